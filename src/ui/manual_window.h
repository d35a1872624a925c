// The manual in a window of its own: to read, to search, with its pictures and links.
#pragma once

#include <QDialog>

#include <functional>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace zonterbrook::ui {

class ManualWindow : public QDialog {
    Q_OBJECT

public:
    /// `Folder`: where the manual lies. Links that lead out of it are given to `Open`.
    ManualWindow(QWidget* Parent, const QString& Folder, std::function<void(const QString&)> InOpen);

    /// Shows the part with this heading, or the beginning.
    void GoTo(const QString& Heading);

private:
    void Load(const QString& Page);
    void ListHeadings();
    void Find(bool Backward);
    void Follow(const QUrl& Link);

    QString Folder;
    std::function<void(const QString&)> Open;
    QListWidget* Headings;
    QTextBrowser* Page;
    QLineEdit* Words;
};

} // namespace zonterbrook::ui
