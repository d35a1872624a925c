// Files in the window: the chooser of PDN games, the details, what was opened lately, a file that is dropped.
#include "window_hands.h"

#include <QComboBox>
#include <QDropEvent>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QTreeView>

namespace zonterbrook::tests {
namespace {

class WindowFiles : public WindowFixture {
protected:
    std::filesystem::path Make(const char* Name, const QByteArray& Text) {
        QFile File(Written->filePath(QString::fromLatin1(Name)));
        EXPECT_TRUE(File.open(QIODevice::WriteOnly));
        File.write(Text);
        return File.fileName().toStdString();
    }
    /// Runs `Do` with the dialog as soon as it stands, and sees to it that it does not stand for ever.
    template <typename Act>
    static std::unique_ptr<Soon> Within(const char* Name, Act Do) {
        return std::make_unique<Soon>([Name] { return Dialog(Name) != nullptr; },
                                      [Name, Do] {
                                          QPointer<QDialog> Open = Dialog(Name);
                                          Do(*Open);
                                          if (Open != nullptr && testing::Test::HasFailure()) {
                                              Open->reject();
                                          }
                                      });
    }
    /// A file of ten games, between A and B0 to B9.
    std::filesystem::path TenGames() {
        QByteArray Text;
        for (int I = 0; I < 10; ++I) {
            Text += QByteArray("[White \"A\"]\n[Black \"B") + QByteArray::number(I) + "\"]\n[Date \"0" +
                    QByteArray::number(9 - I % 9) + "/01/2001\"]\n\n1. 32-28 19-23 *\n\n";
        }
        return Make("ten.pdn", Text);
    }
    static QDialog* Dialog(const char* Name) {
        auto* Open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        return Open != nullptr && Open->objectName() == Name ? Open : nullptr;
    }
};

TEST_F(WindowFiles, AGameIsChosenByTypingAndArrows) {
    const auto Choose = Within("dlgPDN", [](QDialog& Open) {
        auto* List = Open.findChild<QTreeView*>("ListView1");
        auto* Count = Open.findChild<QLabel*>("Count");
        ASSERT_TRUE(QTest::qWaitFor([&] { return Count->text() == "10 games"; }));
        QTest::mouseClick(List->header()->viewport(), Qt::LeftButton, {},
                          QPoint(List->columnViewportPosition(1) + 5, 5));
        EXPECT_EQ("01/01/2001", List->model()->index(0, 1).data().toString()) << "by date";
        auto* Words = Open.findChild<QLineEdit*>("Filter");
        QTest::keyClicks(Words, "b7 a");
        EXPECT_EQ("1 of 10 games", Count->text());
        EXPECT_EQ("B7", List->currentIndex().siblingAtColumn(2).data().toString());
        QTest::keyClicks(Words, "x");
        EXPECT_FALSE(Open.findChild<QPushButton*>("OKButton")->isEnabled());
        QTest::keyClick(Words, Qt::Key_Backspace);
        EXPECT_EQ("DEFAULT", Open.findChild<QComboBox*>("Combo1")->itemText(0));
        QTest::keyClick(Words, Qt::Key_Down);
        QTest::keyClick(List, Qt::Key_Return);
    });
    Window->OpenFile(TenGames());
    EXPECT_EQ(2, Game().Record.Count);
    EXPECT_EQ("B7", Game().BlackPlayerName);
    EXPECT_TRUE(Window->windowTitle().endsWith("ten.pdn[*]")) << qPrintable(Window->windowTitle());
    EXPECT_FALSE(Window->isWindowModified());
}

TEST_F(WindowFiles, ClosedWithoutAChoiceNothingHappens) {
    const auto Leave = Within("dlgPDN", [](QDialog& Open) { Open.close(); });
    Window->OpenFile(TenGames());
    EXPECT_EQ(0, Game().Record.Count);
    EXPECT_FALSE(control::IsEnabled(Game(), CommandId::RecentMenu));
}

TEST_F(WindowFiles, DetailsAreStoredByApplyAndByOk) {
    PlayBothSides();
    const auto Fill = Within("dlgDetails", [this](QDialog& Open) {
        QTest::keyClicks(Open.findChild<QLineEdit*>("Text1"), "Cup");
        QTest::mouseClick(Open.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        EXPECT_EQ("Cup", Game().Details.Event);
        QTest::keyClicks(Open.findChild<QLineEdit*>("Text5"), "Ann");
        QTest::mouseClick(Open.findChild<QPushButton*>("CancelButton"), Qt::LeftButton);
    });
    Run(CommandId::Details);
    EXPECT_EQ("Cup", Game().Details.Event) << "Cancel takes nothing back";
    EXPECT_EQ("", Game().Details.White);
    EXPECT_TRUE(Window->isWindowModified());
}

TEST_F(WindowFiles, AFileThatIsDroppedIsOpenedAndListed) {
    const std::filesystem::path File = Make("a&b.qvm", "QUAVERMILL Version=0.89\nSTART\nd4e5\n");
    QMimeData Dragged;
    Dragged.setUrls({QUrl::fromLocalFile(QString::fromStdString(File.string()))});
    QDragEnterEvent Enter(QPoint(10, 10), Qt::CopyAction, &Dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window.get(), &Enter);
    EXPECT_TRUE(Enter.isAccepted());
    QDropEvent Drop(QPointF(10, 10), Qt::CopyAction, &Dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window.get(), &Drop);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Game().Record.Count == 1; }));
    QMenu* Recent = Find<QMenu>("OpenRecent");
    ASSERT_EQ(1, Recent->actions().size());
    EXPECT_EQ("&1 a&&b.qvm", Recent->actions().constFirst()->text());
    Run(CommandId::NewGame);
    Recent->actions().constFirst()->trigger();
    EXPECT_EQ(1, Game().Record.Count);
}

} // namespace
} // namespace zonterbrook::tests
