// The world outside the game, made real: message boxes, clock, chance, folders, log, and turns for the window's events.
//
// Whatever waits for a person shows the contents first, so that a message never stands over a stale board.
#include "ui/qt_platform.h"

#include "ui/details_dialog.h"
#include "ui/diagram_picture.h"
#include "ui/icons.h"
#include "ui/main_window.h"
#include "ui/manual_window.h"
#include "ui/options_dialog.h"
#include "ui/pdn_dialog.h"
#include "ui/ply_dialog.h"
#include "ui/problem_dialog.h"
#include "ui/rules_dialog.h"
#include "ui/variants_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileDialog>
#include <QGridLayout>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryFile>
#include <QTimer>
#include <QUrl>

#include <cmath>

namespace zonterbrook::ui {

namespace {

// Long enough that a look at the event queue costs the search nothing, short enough that nobody sees a delay.
constexpr std::chrono::milliseconds TurnInterval{10};

constexpr int DiagramPixels = 600;
const QString ManualFolder = QStringLiteral("manual");
constexpr std::string_view RulesHeading = "The rules of a variant";
constexpr int FrameButtons = 160; // what a window's frame takes beside the title, in pixels

QString Text(std::string_view Utf8) {
    return QString::fromUtf8(Utf8.data(), static_cast<qsizetype>(Utf8.size()));
}

/// The texts of a box whose buttons stand already: adding one would lay it out anew.
void Say(QMessageBox& Box, std::string_view Title, std::string_view Words) {
    Box.setWindowTitle(Text(Title));
    Box.setTextFormat(Qt::PlainText);
    Box.setText(Text(Words));
    // A box is as wide as what it says, but its title is to be read too, between the buttons of its frame.
    if (auto* Grid = qobject_cast<QGridLayout*>(Box.layout()); Grid != nullptr) {
        const int Width = Box.fontMetrics().horizontalAdvance(Box.windowTitle()) + FrameButtons;
        Grid->addItem(new QSpacerItem(Width, 0), Grid->rowCount(), 0, 1, Grid->columnCount());
    }
}

bool CanWriteIn(const std::filesystem::path& Folder) {
    QTemporaryFile Probe(QDir(QString::fromStdString(Folder.string())).filePath(QStringLiteral("XXXXXX.tmp")));
    return Probe.open();
}

} // namespace

ProgramFolders FindFolders(const std::filesystem::path& Program, const std::filesystem::path& OfUser) {
    if (CanWriteIn(Program)) {
        return {Program, Program};
    }
    std::error_code Ignored; // a folder that can't be made shows when a file is to be written there
    std::filesystem::create_directories(OfUser, Ignored);
    return {Program, OfUser};
}

namespace {

QStringList GameFilters(bool Both) {
    QStringList Filters;
    QStringList Patterns;
    for (const control::FileKind& Kind : control::GameFileKinds) {
        Filters << Text(Kind.Name);
        Patterns << Text(Kind.Pattern);
    }
    if (Both) {
        Filters.prepend(QCoreApplication::translate("QtPlatform", "Games") + " (" + Patterns.join(' ') + ')');
    }
    return Filters;
}

} // namespace

QtPlatform::QtPlatform(MainWindow& Owner, ProgramFolders Where)
    : Window(Owner), Folders(std::move(Where)),
      Lock(QDir(QString::fromStdString(Folders.Written.string())).filePath(QStringLiteral("quavermill.lock"))) {
    // Held as long as this program runs, however long that is; one that has crashed holds nothing.
    Lock.setStaleLockTime(0);
    Lock.tryLock(0);
    QtPlatform::SeedRandom();
}

// --- Time and chance ------------------------------------------------------------------------------------------------

double QtPlatform::Seconds() {
    constexpr double Day = 86400;
    const double Now = QTime::currentTime().msecsSinceStartOfDay() / 1000.0 - StoodStill;
    return Now - Day * std::floor(Now / Day);
}

double QtPlatform::Random() {
    return std::generate_canonical<double, 53>(Chance);
}

void QtPlatform::SeedRandom() {
    Chance.seed(static_cast<std::mt19937_64::result_type>(QDateTime::currentMSecsSinceEpoch()));
}

std::string QtPlatform::Date() {
    return QDate::currentDate().toString(QStringLiteral("MM/dd/yyyy")).toStdString();
}

std::string QtPlatform::Time() {
    return QTime::currentTime().toString(QStringLiteral("HH:mm:ss")).toStdString();
}

void QtPlatform::TakeTurn() {
    const auto Now = std::chrono::steady_clock::now();
    if (Now - LastTurn < TurnInterval) {
        return;
    }
    Window.ShowContents();
    QCoreApplication::processEvents();
    LastTurn = std::chrono::steady_clock::now();
}

void QtPlatform::Wait(double Seconds) {
    Window.ShowContents();
    QEventLoop Loop;
    QTimer::singleShot(static_cast<int>(std::lround(Seconds * 1000)), Qt::PreciseTimer, &Loop, &QEventLoop::quit);
    Loop.exec();
}

void QtPlatform::Refresh() {
    Window.ShowContents();
}

// --- Messages -------------------------------------------------------------------------------------------------------

void QtPlatform::Message(std::string_view Title, std::string_view Words, control::Icon Sign) {
    Window.ShowContents();
    QMessageBox Box(Above());
    Box.setObjectName(QStringLiteral("MessageBox"));
    Box.setIcon(Sign == control::Icon::Exclamation ? QMessageBox::Warning
                : Sign == control::Icon::Question  ? QMessageBox::Question
                                                   : QMessageBox::NoIcon);
    if (Sign == control::Icon::Congratulation) {
        constexpr int PictureSide = 64;
        Box.setIconPixmap(ProgramIcon().pixmap(QSize(PictureSide, PictureSide), Box.devicePixelRatioF()));
    }
    Box.setStandardButtons(QMessageBox::Ok);
    Say(Box, Title, Words);
    RunBox(Box);
}

bool QtPlatform::Ask(std::string_view Title, std::string_view Words) {
    Window.ShowContents();
    QMessageBox Box(Above());
    Box.setObjectName(QStringLiteral("QuestionBox"));
    Box.setIcon(QMessageBox::Question);
    Box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    Box.setDefaultButton(QMessageBox::Yes);
    Box.setEscapeButton(QMessageBox::No);
    Say(Box, Title, Words);
    return RunBox(Box) == QMessageBox::Yes;
}

// A search that a question interrupts stands still, and so does its clock.
int QtPlatform::RunBox(QDialog& Box) {
    QElapsedTimer Open;
    Open.start();
    const int Answer = Box.exec();
    StoodStill += static_cast<double>(Open.elapsed()) / 1000;
    return Answer;
}

// A box stands over the dialog that it comes from, if there is one.
QWidget* QtPlatform::Above() const {
    QWidget* Dialog = QApplication::activeModalWidget();
    return Dialog != nullptr ? Dialog : &Window;
}

control::CommandId QtPlatform::ShowPopup(control::CommandId Menu) {
    Window.ShowContents();
    return Window.RunPopup(Menu);
}

void QtPlatform::PlaySound(std::string_view File, int Volume) {
    constexpr float Loudest = 100;
    Sounds.Play(QDir(QString::fromStdString(Folders.Program.string())).filePath(Text(File)),
                static_cast<float>(Volume) / Loudest);
}

void QtPlatform::OpenDocument(std::string_view Target) {
    QDesktopServices::openUrl(QUrl::fromUserInput(Text(Target)));
}

// --- Folders and the log --------------------------------------------------------------------------------------------

std::filesystem::path QtPlatform::ApplicationDirectory() const {
    return Folders.Program;
}

std::filesystem::path QtPlatform::WritableDirectory() const {
    return Folders.Written;
}

control::FileKeeper QtPlatform::KeptBy() const {
    // Where nothing can be written at all, it is for this program to say so.
    const bool Elsewhere = !Lock.isLocked() && Lock.error() == QLockFile::LockFailedError;
    return Elsewhere ? control::FileKeeper::AnotherProgram : control::FileKeeper::ThisProgram;
}

std::optional<std::filesystem::path> QtPlatform::AskFileToOpen(std::string_view Title) {
    QFileDialog Dialog(&Window, Text(Title));
    Dialog.setFileMode(QFileDialog::ExistingFile);
    Dialog.setNameFilters(GameFilters(true));
    return RunFileDialog(Dialog);
}

std::optional<std::filesystem::path> QtPlatform::AskFileToSave(std::string_view Title,
                                                               const std::filesystem::path& Suggested) {
    QFileDialog Dialog(&Window, Text(Title));
    Dialog.setAcceptMode(QFileDialog::AcceptSave);
    Dialog.setFileMode(QFileDialog::AnyFile);
    // Whether a file may be replaced is asked by whoever knows what saving to it does.
    Dialog.setOption(QFileDialog::DontConfirmOverwrite);
    Dialog.setNameFilters(GameFilters(false));
    if (!Suggested.empty()) {
        Dialog.selectFile(QString::fromStdString(Suggested.string()));
    }
    return RunFileDialog(Dialog);
}

std::optional<std::filesystem::path> QtPlatform::RunFileDialog(QFileDialog& Dialog) {
    Window.ShowContents();
    if (LastFolder.isEmpty()) {
        LastFolder = QDir::currentPath();
    }
    Dialog.setObjectName(QStringLiteral("FileDialog"));
    Dialog.setDirectory(LastFolder);
    if (Dialog.exec() != QDialog::Accepted || Dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    LastFolder = Dialog.directory().absolutePath();
    std::filesystem::path File(Dialog.selectedFiles().constFirst().toStdU16String());
    // A name without an extension gets that of the kind of file that was chosen.
    if (Dialog.acceptMode() == QFileDialog::AcceptSave && !File.has_extension()) {
        File += Dialog.selectedNameFilter().contains(QLatin1String("*.pdn")) ? ".pdn" : ".qvm";
    }
    return File;
}

std::optional<control::PdnChoice> QtPlatform::ChoosePdnGame(formats::PdnIndex& Games, std::string_view Title,
                                                            const std::vector<std::string>& Variants) {
    Window.ShowContents();
    PdnDialog Dialog(&Window, Games, Text(Title), Variants);
    return Dialog.Choose();
}

void QtPlatform::ShowDetails(const game::Details& Details, const std::function<void(const game::Details&)>& Store) {
    Window.ShowContents();
    DetailsDialog(&Window, Details, Store).exec();
}

void QtPlatform::ShowVariants(control::VariantEditor& Editor) {
    Window.ShowContents();
    VariantsDialog Dialog(&Window, Editor, Window.BoardOf().Art());
    QObject::connect(&Dialog, &VariantsDialog::ManualWanted, &Dialog, [this] { ShowManual(RulesHeading); });
    Dialog.exec();
}

void QtPlatform::ShowOptions(control::OptionsEditor& Editor) {
    Window.ShowContents();
    OptionsDialog(&Window, Editor).exec();
}

void QtPlatform::ShowPlyValues(control::PlyValueTool& Tool) {
    Window.ShowContents();
    PlyDialog(&Window, Tool).exec();
}

std::optional<std::size_t> QtPlatform::ShowProblems(const std::vector<control::Finding>& Found) {
    Window.ShowContents();
    return ProblemDialog(&Window, Found).Choose();
}

void QtPlatform::ShowRules(const control::RulesPage& Page) {
    Window.ShowContents();
    RulesDialog Dialog(&Window, Page, [this](const QString& Target) { OpenDocument(Target.toStdString()); });
    RunBox(Dialog);
}

void QtPlatform::ShowAbout() {
    Window.ShowContents();
    AboutDialog Dialog(&Window, [this](const QString& Target) { OpenDocument(Target.toStdString()); });
    RunBox(Dialog);
}

void QtPlatform::ShowManual(std::string_view Heading) {
    Window.ShowContents();
    ManualWindow Manual(Above(), QDir(QString::fromStdString(Folders.Program.string())).filePath(ManualFolder),
                        [this](const QString& Target) { OpenDocument(Target.toStdString()); });
    Manual.GoTo(Text(Heading));
    RunBox(Manual);
}

bool QtPlatform::LoadPictures(std::span<const std::filesystem::path> Files) {
    return Window.BoardOf().Art().LoadSkin(Files);
}

// --- The board for others -------------------------------------------------------------------------------------------

void QtPlatform::UseDiagram(control::DiagramUse Use, std::string_view Position) {
    Window.ShowContents();
    switch (Use) {
    case control::DiagramUse::Copy:
        CopyDiagram(Position);
        break;
    case control::DiagramUse::Save:
        SaveDiagram();
        break;
    case control::DiagramUse::Print:
        PrintDiagram();
        break;
    }
}

void QtPlatform::CopyDiagram(std::string_view Position) {
    auto* Both = new QMimeData;
    Both->setImageData(DiagramImage(Window.BoardOf().Art(), Window.GameOf(), DiagramPixels));
    Both->setText(Text(Position));
    QGuiApplication::clipboard()->setMimeData(Both);
}

void QtPlatform::SaveDiagram() {
    QFileDialog Dialog(&Window, QCoreApplication::translate("QtPlatform", "Save Diagram"));
    Dialog.setAcceptMode(QFileDialog::AcceptSave);
    Dialog.setNameFilters({QStringLiteral("PNG (*.png)"), QStringLiteral("SVG (*.svg)")});
    Dialog.setDefaultSuffix(QStringLiteral("png"));
    QObject::connect(&Dialog, &QFileDialog::filterSelected, &Dialog, [&Dialog](const QString& Filter) {
        Dialog.setDefaultSuffix(Filter.startsWith(QLatin1String("SVG")) ? QStringLiteral("svg")
                                                                        : QStringLiteral("png"));
    });
    const auto File = RunFileDialog(Dialog);
    if (!File) {
        return;
    }
    bool Given = false;
    const int Pixels = QInputDialog::getInt(&Window, QCoreApplication::translate("QtPlatform", "Save Diagram"),
                                            QCoreApplication::translate("QtPlatform", "Width and height in pixels:"),
                                            DiagramPixels, 100, 4000, 50, &Given);
    if (!Given) {
        return;
    }
    const QString Failure = SaveDiagramPicture(Window.BoardOf().Art(), Window.GameOf(),
                                               QString::fromStdU16String(File->u16string()), Pixels);
    if (!Failure.isEmpty()) {
        Message("Diagram", Failure.toStdString(), control::Icon::Exclamation);
    }
}

void QtPlatform::PrintDiagram() {
    QPrinter Printer(QPrinter::HighResolution);
    QPrintDialog Dialog(&Printer, &Window);
    if (Dialog.exec() != QDialog::Accepted) {
        return;
    }
    QPainter Painter(&Printer);
    const QRect Page = Painter.viewport();
    const int Side = std::min(Page.width(), Page.height()) * 3 / 4;
    PaintDiagram(Painter, Window.BoardOf().Art(), Window.GameOf(),
                 QRect((Page.width() - Side) / 2, Page.height() / 12, Side, Side));
}

std::string QtPlatform::ClipboardText() {
    return QGuiApplication::clipboard()->text().toStdString();
}

void QtPlatform::SetClipboardText(std::string_view Words) {
    QGuiApplication::clipboard()->setText(Text(Words));
}

bool QtPlatform::OpenLog() {
    Log.setFileName(QDir(QString::fromStdString(Folders.Written.string())).filePath(QStringLiteral("quavermill.log")));
    return Log.open(QIODevice::Append | QIODevice::WriteOnly);
}

void QtPlatform::AppendLog(std::string_view Words) {
    Log.write(Text(Words).replace(QLatin1Char('\n'), QLatin1String("\r\n")).toUtf8());
    Log.flush();
}

void QtPlatform::CloseLog() {
    Log.close();
}

// --- The end --------------------------------------------------------------------------------------------------------

void QtPlatform::CloseWindow() {
    Window.CloseLater();
}

void QtPlatform::EndProgram() {
    Window.EndLater();
}

} // namespace zonterbrook::ui
