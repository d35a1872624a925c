// The sounds: files that can be played, and a program that keeps quiet where nothing can play them.
#include "window_hands.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cstdlib>

namespace zonterbrook::tests {
namespace {

TEST(Sounds, FilesAreWaves) {
    // A sound that outlasts the next move is a nuisance.
    for (const auto& [Name, Longest] : {std::pair("click.wav", 0.25), std::pair("roll.wav", 1.0)}) {
        SCOPED_TRACE(Name);
        QFile File(QStringLiteral(ZONTERBROOK_DATA_DIR "/sounds/") + Name);
        ASSERT_TRUE(File.open(QIODevice::ReadOnly));
        const QByteArray Bytes = File.readAll();
        constexpr qsizetype Header = 44;
        ASSERT_GT(Bytes.size(), Header);
        EXPECT_TRUE(Bytes.startsWith("RIFF") && Bytes.mid(8, 8) == "WAVEfmt ");
        EXPECT_EQ(1, qFromLittleEndian<quint16>(Bytes.constData() + 22)) << "channels";
        EXPECT_EQ(44100U, qFromLittleEndian<quint32>(Bytes.constData() + 24)) << "samples a second";
        EXPECT_EQ(16, qFromLittleEndian<quint16>(Bytes.constData() + 34)) << "bits";
        EXPECT_LT(static_cast<double>(Bytes.size() - Header) / 2 / 44100, Longest);
        int Loudest = 0;
        int Last = 0;
        for (qsizetype At = Header; At + 1 < Bytes.size(); At += 2) {
            Last = std::abs(int(qFromLittleEndian<qint16>(Bytes.constData() + At)));
            Loudest = std::max(Loudest, Last);
        }
        EXPECT_TRUE(Loudest > 8000 && Loudest < 32000) << "too low, or cut off: " << Loudest;
        EXPECT_LT(Last, 100) << "cut off at the end";
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
