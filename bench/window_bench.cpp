// What the window costs: from nothing to the first picture, and drawing the whole board.
//
// Runs on the platform that QT_QPA_PLATFORM names, off screen if none does. Every round of the first needs a game's
// folder that can be written, so it is made in a temporary one.
#include "control/events.h"
#include "ui/board_widget.h"
#include "ui/main_window.h"
#include "view/draw_board.h"

#include <QApplication>
#include <QPixmap>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

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
        control::c_MouseDown(Game, CellOfMan, control::LeftButton, 100, 100);
        Window.ShowContents();
        Window.BoardOf().render(&Canvas);
        control::c_MouseUp(Game, CellOfMan, control::LeftButton, 100, 100);
        Window.ShowContents();
        Window.BoardOf().render(&Canvas);
    }
}
BENCHMARK(PressAndPutBack)->Unit(benchmark::kMillisecond);

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
