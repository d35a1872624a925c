// The world outside: sounds, folders, the log, and how often the window has its turn.
#include "window_hands.h"

#include <QFile>

#include <filesystem>

namespace zonterbrook::tests {
namespace {

TEST(Sounds, FilesAreWavesThatDoNotOutlastTheNextMove) {
    for (const auto& [Name, Longest] : {std::pair("click.wav", 0.25), std::pair("roll.wav", 1.0)}) {
        QFile File(QStringLiteral(ZONTERBROOK_DATA_DIR "/sounds/") + Name);
        ASSERT_TRUE(File.open(QIODevice::ReadOnly)) << Name;
        const QByteArray Bytes = File.readAll();
        constexpr qsizetype Header = 44;
        EXPECT_TRUE(Bytes.startsWith("RIFF") && Bytes.mid(8, 8) == "WAVEfmt ") << Name;
        EXPECT_GT(Bytes.size(), 2 * Header) << Name;
        EXPECT_LT(static_cast<double>(Bytes.size() - Header) / 2 / 44100, Longest) << Name;
    }
}

TEST(Folders, APersonsOwnIsMadeWhereNothingCanBeWrittenBesideTheProgram) {
    const QTemporaryDir Dir;
    const std::filesystem::path Open = Dir.path().toStdString();
    const std::filesystem::path Own = Open / "share" / "own";
    EXPECT_EQ(Open, ui::FindFolders(Open, Own).Written);
    EXPECT_FALSE(std::filesystem::exists(Own));
    EXPECT_EQ(Own, ui::FindFolders(Open / "missing", Own).Written);
    EXPECT_TRUE(std::filesystem::is_directory(Own));
}

class World : public WindowFixture {};

TEST_F(World, TheLogIsWrittenAtOnceAndGoesOnWhereItEnded) {
    PlayBothSides();
    Drag("d4", "e5");
    const ui::MainWindow Next(Folders());
    QFile Log(Written->filePath("quavermill.log"));
    ASSERT_TRUE(Log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(Log.readAll().contains("\r\n   1. d4-e5 "));
}

TEST_F(World, TheWindowHasItsTurnEveryTenMilliseconds) {
    int Turns = 0;
    QTimer Counter;
    QObject::connect(&Counter, &QTimer::timeout, [&] { ++Turns; });
    Counter.start(0);
    QElapsedTimer Clock;
    Clock.start();
    while (Clock.elapsed() < 50 || (Turns == 0 && Clock.elapsed() < 30000)) {
        for (int Node = 0; Node < 2048; ++Node) {
            Game().Outside().Yield();
        }
    }
    EXPECT_LT(0, Turns);
    EXPECT_LE(Turns, 2 * (Clock.elapsed() / 10 + 1)) << "a search would do nothing else";
}

TEST_F(World, NothingIsSaidWithoutADeviceForSounds) {
    static int Warnings = 0;
    PlayBothSides();
    Game().UseSound = 1;
    const QtMessageHandler Before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++Warnings; });
    Drag("d4", "e5");
    Game().Outside().PlaySound("sounds/missing.wav", 100);
    Game().Outside().PlaySound("sounds/roll.wav", 100);
    QCoreApplication::processEvents();
    qInstallMessageHandler(Before);
    EXPECT_EQ(0, Warnings);
    EXPECT_EQ(1, Game().GameMoves);
}

} // namespace
} // namespace zonterbrook::tests
