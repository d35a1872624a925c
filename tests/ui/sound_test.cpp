// The sounds: files that can be played, and a program that keeps quiet where nothing can play them.
#include "window_hands.h"

#include <QFile>

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

class NoDevice : public WindowFixture {};

TEST_F(NoDevice, NothingIsSaid) {
    static int Warnings = 0;
    PlayBothSides();
    Game().UseSound = 1;
    const QtMessageHandler Before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++Warnings; });
    Drag("d4", "e5");
    Game().Outside().PlaySound("sounds/missing.wav");
    Game().Outside().PlaySound("sounds/roll.wav");
    QCoreApplication::processEvents();
    qInstallMessageHandler(Before);
    EXPECT_EQ(0, Warnings);
    EXPECT_EQ(1, Game().GameMoves);
}

} // namespace
} // namespace zonterbrook::tests
