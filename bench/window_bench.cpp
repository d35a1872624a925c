// What the window costs: from nothing to the first picture, drawing the whole board, a press, going through a game, and
// how long the window keeps a person waiting while the computer thinks.
//
// Runs on the platform that QT_QPA_PLATFORM names, off screen if none does. Every round of the first needs a game's
// folder that can be written, so it is made in a temporary one.
#include "control/book.h"
#include "control/events.h"
#include "control/game_document.h"
#include "control/loaded_game.h"
#include "control/saved_game.h"
#include "control/skin.h"
#include "control/variant_editor.h"
#include "control/variant_start.h"
#include "formats/settings.h"
#include "formats/text_file.h"
#include "rules/cells.h"
#include "rules/square_names.h"
#include "ui/board_widget.h"
#include "ui/main_window.h"
#include "ui/variants_dialog.h"
#include "view/draw_board.h"

#include <QApplication>
#include <QLineEdit>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

using namespace zonterbrook;

namespace {

ui::ProgramFolders FoldersIn(const QTemporaryDir& Own) {
    const std::filesystem::path Program = QCoreApplication::applicationDirPath().toStdString();
    return {Program, Own.path().toStdString()};
}

/// The state, the window, its art, and one paint of everything.
void StartToFirstPaint(benchmark::State& Rounds) {
    const QTemporaryDir Own;
    for (auto _ : Rounds) {
        ui::MainWindow Window(FoldersIn(Own));
        Window.show();
        benchmark::DoNotOptimize(Window.grab());
    }
}
BENCHMARK(StartToFirstPaint)->Unit(benchmark::kMillisecond);

/// The hundred cells anew in the state, and the painting of all of them.
void DrawWholeBoard(benchmark::State& Rounds) {
    const QTemporaryDir Own;
    ui::MainWindow Window(FoldersIn(Own));
    Window.show();
    benchmark::DoNotOptimize(Window.grab());
    QPixmap Canvas(Window.BoardOf().size() * Window.devicePixelRatioF());
    for (auto _ : Rounds) {
        view::DrawBoard(Window.GameOf(), 0);
        Window.ShowContents();
        Window.BoardOf().render(&Canvas);
    }
}
BENCHMARK(DrawWholeBoard)->Unit(benchmark::kMillisecond);

/// A press on a piece and its release on the same square: boxes, redraw, paint.
void PressAndPutBack(benchmark::State& Rounds) {
    const QTemporaryDir Own;
    ui::MainWindow Window(FoldersIn(Own));
    Window.show();
    benchmark::DoNotOptimize(Window.grab());
    QPixmap Canvas(Window.BoardOf().size() * Window.devicePixelRatioF());
    constexpr int CellOfMan = 63; // d4
    for (auto _ : Rounds) {
        control::GameState& Game = Window.GameOf();
        control::c_MouseDown(Game, CellOfMan, control::LeftButton);
        Window.ShowContents();
        Window.BoardOf().render(&Canvas);
        control::c_MouseUp(Game, CellOfMan, control::LeftButton, 100, 100);
        Window.ShowContents();
        Window.BoardOf().render(&Canvas);
    }
}
BENCHMARK(PressAndPutBack)->Unit(benchmark::kMillisecond);

/// A window that is dragged larger and smaller: everything placed anew, the pictures rendered for the new size,
/// painted.
void ResizeWindow(benchmark::State& Rounds) {
    const QTemporaryDir Own;
    ui::MainWindow Window(FoldersIn(Own));
    Window.resize(1900, 1000);
    Window.show();
    QPixmap Canvas(1920, 1080);
    int Step = 0;
    for (auto _ : Rounds) {
        Step = (Step + 7) % 100;
        Window.resize(1900 - Step, 1000 - Step);
        QCoreApplication::processEvents();
        Window.render(&Canvas);
    }
}
BENCHMARK(ResizeWindow)->Unit(benchmark::kMillisecond);

/// The whole board on a screen of 3840 by 2160.
void DrawLargestBoard(benchmark::State& Rounds) {
    const QTemporaryDir Own;
    ui::MainWindow Window(FoldersIn(Own));
    Window.resize(3840, 2100);
    Window.show();
    QCoreApplication::processEvents();
    QPixmap Canvas(Window.BoardOf().size());
    for (auto _ : Rounds) {
        view::DrawBoard(Window.GameOf(), 0);
        Window.ShowContents();
        Window.BoardOf().render(&Canvas);
    }
}
BENCHMARK(DrawLargestBoard)->Unit(benchmark::kMillisecond);

/// One picture of a capture that slides, at 1920 by 1080.
void SlideOnePicture(benchmark::State& Rounds) {
    const QTemporaryDir Own;
    ui::MainWindow Window(FoldersIn(Own));
    Window.resize(1900, 1000);
    Window.show();
    QCoreApplication::processEvents();
    QPixmap Canvas(Window.BoardOf().size());
    control::GameState& Game = Window.GameOf();
    for (auto _ : Rounds) {
        ++Game.Slide.Number;
        Game.Slide.Piece = view::Picture::white_man_ico;
        Game.Slide.Path = {63, 45, 27};
        Game.Slide.Taken = {{54, view::Picture::black_man_ico}, {36, view::Picture::black_man_ico}};
        Window.BoardOf().Display(Game);
        const QRegion Seen = QRegion(Window.BoardOf().CellRect(63)) + Window.BoardOf().CellRect(54) +
                             Window.BoardOf().CellRect(36) + Window.BoardOf().CellRect(27);
        Window.BoardOf().render(&Canvas, QPoint(), Seen);
    }
}
BENCHMARK(SlideOnePicture)->Unit(benchmark::kMillisecond);

/// The dialog of the variants with all of them listed, painted once.
void OpenVariants(benchmark::State& Rounds) {
    const QTemporaryDir Own;
    ui::MainWindow Window(FoldersIn(Own));
    Window.show();
    for (auto _ : Rounds) {
        control::VariantEditor Editor(Window.GameOf());
        ui::VariantsDialog Dialog(&Window, Editor, Window.BoardOf().Art());
        Dialog.show();
        benchmark::DoNotOptimize(Dialog.grab());
    }
}
BENCHMARK(OpenVariants)->Unit(benchmark::kMillisecond);

/// A word typed into the box that narrows the list, and taken out again.
void NarrowVariants(benchmark::State& Rounds) {
    const QTemporaryDir Own;
    ui::MainWindow Window(FoldersIn(Own));
    control::VariantEditor Editor(Window.GameOf());
    ui::VariantsDialog Dialog(&Window, Editor, Window.BoardOf().Art());
    Dialog.show();
    auto* Words = Dialog.findChild<QLineEdit*>(QStringLiteral("Filter"));
    for (auto _ : Rounds) {
        Words->setText(QStringLiteral("losing game with flying kings"));
        Words->clear();
    }
}
BENCHMARK(NarrowVariants)->Unit(benchmark::kMillisecond);

/// Another skin, from its file to the painted board.
void ChangeSkin(benchmark::State& Rounds) {
    const QTemporaryDir Own;
    ui::MainWindow Window(FoldersIn(Own));
    Window.show();
    QPixmap Canvas(Window.BoardOf().size() * Window.devicePixelRatioF());
    bool Dark = false;
    for (auto _ : Rounds) {
        Dark = !Dark;
        Window.GameOf().SkinName = Dark ? "Midnight" : "Walnut";
        control::LoadSkin(Window.GameOf());
        view::DrawBoard(Window.GameOf(), 0);
        Window.ShowContents();
        Window.BoardOf().render(&Canvas);
    }
}
BENCHMARK(ChangeSkin)->Unit(benchmark::kMillisecond);

constexpr int LongGame = 200;
// Two kings in corners where neither can take the other.
constexpr std::string_view ToAndFro[] = {"j2i1", "a9b0", "i1j2", "b0a9"};

/// Nobody is there to close a message.
class SilentPlatform : public ui::QtPlatform {
public:
    using QtPlatform::QtPlatform;
    void Message(std::string_view, std::string_view, control::Icon) override {}
    bool Ask(std::string_view, std::string_view) override { return true; }
    void Wait(double) override {}
};

void LayKings(control::GameState& Game) {
    for (int Cell = rules::FirstCell; Cell <= rules::LastCell; ++Cell) {
        Game.Board[Cell] = rules::IsOnBoard(Cell) ? rules::Empty : Game.Board[Cell];
    }
    Game.Board[rules::AlgebraicCell("J2")] = rules::WhiteKing;
    Game.Board[rules::AlgebraicCell("A9")] = rules::BlackKing;
    control::StartPosition(Game);
}

/// A window in which 200 half-moves have been played.
struct LongGameWindow {
    QTemporaryDir Own;
    ui::MainWindow Window{FoldersIn(Own)};
    SilentPlatform Silent{Window, FoldersIn(Own)};
    base::OutsideWorld* Real = Window.GameOf().World;

    LongGameWindow() {
        control::GameState& Game = Window.GameOf();
        Silent.OpenLog();
        Game.World = &Silent;
        Window.show();
        control::RunCommand(Game, control::CommandId::PlayerPlayer);
        LayKings(Game);
        for (int HalfMove = 0; HalfMove < LongGame; ++HalfMove) {
            Game.Turn = control::TurnState::Resting; // past every draw
            Game.TypedText = ToAndFro[HalfMove % std::size(ToAndFro)];
            control::Text2_KeyUp(Game, control::EnterKey);
        }
        Window.ShowContents();
    }
    ~LongGameWindow() { Window.GameOf().World = Real; }
    LongGameWindow(const LongGameWindow&) = delete;
    LongGameWindow& operator=(const LongGameWindow&) = delete;
};

/// From the start of a long game to its end with one command, and back, with a paint of the whole window each.
void FirstAndLast(benchmark::State& Rounds) {
    LongGameWindow Played;
    ui::MainWindow& Window = Played.Window;
    for (auto _ : Rounds) {
        for (const control::CommandId Way : {control::CommandId::First, control::CommandId::Last}) {
            control::RunCommand(Window.GameOf(), Way);
            Window.ShowContents();
            benchmark::DoNotOptimize(Window.grab());
        }
    }
    Rounds.counters["half_moves"] = Window.GameOf().Record.Count;
}
BENCHMARK(FirstAndLast)->Unit(benchmark::kMillisecond);

/// The same game step by step, shown and painted after each.
void ForwardStepByStep(benchmark::State& Rounds) {
    LongGameWindow Played;
    ui::MainWindow& Window = Played.Window;
    QPixmap Canvas(Window.BoardOf().size() * Window.devicePixelRatioF());
    for (auto _ : Rounds) {
        control::RunCommand(Window.GameOf(), control::CommandId::First);
        while (Window.GameOf().GameMoves < Window.GameOf().Record.Count) {
            control::RunCommand(Window.GameOf(), control::CommandId::Forward);
            Window.ShowContents();
            Window.BoardOf().render(&Canvas);
        }
    }
    Rounds.counters["half_moves"] = Window.GameOf().Record.Count;
}
BENCHMARK(ForwardStepByStep)->Unit(benchmark::kMillisecond);

/// The document of a game of so many half-moves with kings that walk to and fro.
formats::GameFileDocument KingsWalk(const control::GameState& Game, std::size_t HalfMoves) {
    formats::GameFileDocument Walk = control::DocumentOf(Game);
    Walk.Moves.clear();
    for (std::size_t HalfMove = 0; HalfMove < HalfMoves; ++HalfMove) {
        Walk.Moves.push_back({std::string(ToAndFro[HalfMove % std::size(ToAndFro)]), {}});
    }
    return Walk;
}

/// A thousand half-moves from a file onto the board, without painting.
void ReplayLongestGame(benchmark::State& Rounds) {
    LongGameWindow Played;
    control::GameState& Game = Played.Window.GameOf();
    const std::filesystem::path File = std::filesystem::path(Played.Own.path().toStdString()) / "long.qvm";
    formats::WriteFile(File, formats::WriteGameFile(KingsWalk(Game, rules::MaxGameMoves)));
    for (auto _ : Rounds) {
        control::LoadGameFile(Game, File, control::LoadMode::Autosave);
    }
    Rounds.counters["half_moves"] = Game.Record.Count;
}
BENCHMARK(ReplayLongestGame)->Unit(benchmark::kMillisecond);

/// The same game saved.
void SaveLongestGame(benchmark::State& Rounds) {
    LongGameWindow Played;
    control::GameState& Game = Played.Window.GameOf();
    control::StartGameOf(Game, KingsWalk(Game, rules::MaxGameMoves), control::LoadMode::Autosave);
    const std::filesystem::path File = std::filesystem::path(Played.Own.path().toStdString()) / "saved.qvm";
    for (auto _ : Rounds) {
        control::SaveGameTo(Game, File);
    }
}
BENCHMARK(SaveLongestGame)->Unit(benchmark::kMillisecond);

/// A start that brings back a game of 200 moves, up to the first picture.
void StartWithLastGame(benchmark::State& Rounds) {
    constexpr std::size_t HalfMoves = 400;
    const QTemporaryDir Own;
    const std::filesystem::path Folder = Own.path().toStdString();
    {
        LongGameWindow Played;
        const control::GameState& Game = Played.Window.GameOf();
        formats::WriteFile(Folder / control::AutosaveName, formats::WriteGameFile(KingsWalk(Game, HalfMoves)));
        formats::Settings Settings;
        Settings.AutoSave = 1;
        Settings.ChessDrawRules = 0; // no message over the end of the walk
        formats::WriteFile(Folder / "quavermill.ini", formats::WriteSettings(Settings));
    }
    for (auto _ : Rounds) {
        ui::MainWindow Window(FoldersIn(Own));
        Window.show();
        benchmark::DoNotOptimize(Window.grab());
        Rounds.counters["half_moves"] = Window.GameOf().Record.Count;
    }
}
BENCHMARK(StartWithLastGame)->Unit(benchmark::kMillisecond);

/// A search of two seconds while events come in: the longest that one of them had to wait.
void LatencyInSearch(benchmark::State& Rounds) {
    using Clock = std::chrono::steady_clock;
    const QTemporaryDir Own;
    ui::MainWindow Window(FoldersIn(Own));
    Window.show();
    double Worst = 0;
    int Events = 0;
    for (auto _ : Rounds) {
        control::RunCommand(Window.GameOf(), control::CommandId::First);
        Clock::time_point Before{};
        QTimer Due;
        QObject::connect(&Due, &QTimer::timeout, [&] {
            const auto Now = Clock::now();
            const bool Searching = Window.GameOf().Turn == control::TurnState::Thinking;
            if (Searching && Before != Clock::time_point{}) {
                // An event that is due at once waits until the window gets its next turn.
                Worst = std::max(Worst, std::chrono::duration<double, std::milli>(Now - Before).count());
                ++Events;
            }
            Before = Searching ? Now : Clock::time_point{};
        });
        Due.start(0);
        control::RunCommand(Window.GameOf(), control::CommandId::Compute);
    }
    Rounds.counters["worst_ms"] = Worst;
    Rounds.counters["turns"] = Events;
}
BENCHMARK(LatencyInSearch)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

/// A game of 20 half-moves, and a book of 2,000 lines that part from it at one half-move or another.
struct BookWindow {
    static constexpr int HalfMoves = 20;
    static constexpr int BookLines = 2000;
    QTemporaryDir Own;
    ui::MainWindow Window{FoldersIn(Own)};

    BookWindow() {
        control::GameState& Game = Window.GameOf();
        Game.BookFolder = Own.path().toStdString();
        control::RunCommand(Game, control::CommandId::PlayerPlayer);
        std::string Line;
        for (int HalfMove = 1; HalfMove <= HalfMoves; ++HalfMove) {
            Game.TypedText = Game.ChoiceList.Lines.back();
            control::Text2_KeyUp(Game, control::EnterKey);
            const auto Made = game::NamedMoveOf(Game.Record.Last().Played.Record);
            Line += game::RawMove(rules::Notation::Numeric, Made) + ' ';
        }
        std::string Text = "QUAVERSET Version=0.89\nVariant=International Checkers\nstart\n" + Line + "\n";
        for (int I = 0; I < BookLines; ++I) {
            std::string Other = Line;
            const int Square = 10 + I % 40;
            Other.replace(static_cast<std::size_t>(I % HalfMoves) * 5, 4, std::to_string(Square * 101));
            Text += Other + "\n";
        }
        formats::WriteFile(Game.BookFolder / "International Checkers.bok", Text + "end\n");
    }
};

void LookUpBook(benchmark::State& Rounds) {
    BookWindow Book;
    for (auto _ : Rounds) {
        benchmark::DoNotOptimize(control::AskBook(Book.Window.GameOf()));
    }
    Rounds.counters["in_book"] = control::AskBook(Book.Window.GameOf()).InBook ? 1 : 0;
}
BENCHMARK(LookUpBook)->Unit(benchmark::kMicrosecond);

/// The first question of a game.
void ReadBook(benchmark::State& Rounds) {
    BookWindow Book;
    for (auto _ : Rounds) {
        Book.Window.GameOf().Book.reset();
        benchmark::DoNotOptimize(control::AskBook(Book.Window.GameOf()));
    }
}
BENCHMARK(ReadBook)->Unit(benchmark::kMillisecond);

} // namespace

int main(int Count, char** Words) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    benchmark::Initialize(&Count, Words);
    const QApplication Application(Count, Words);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
