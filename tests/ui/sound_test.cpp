// The sounds: files that can be played, and a program that keeps quiet where nothing can play them.
#include "sound_test.h"

#include <QFile>
#include <QRegularExpression>
#include <QtEndian>

#include <algorithm>
#include <cstdlib>

namespace zonterbrook::tests {

void SoundTest::initTestCase() {
    // No test makes a noise: there is no such server.
    qputenv("PULSE_SERVER", "/nonexistent/socket");
}

void SoundTest::FilesAreWaves_data() {
    QTest::addColumn<QString>("Name");
    QTest::addColumn<double>("Longest"); // a sound that outlasts the next move is a nuisance
    QTest::newRow("a move") << QStringLiteral("click.wav") << 0.25;
    QTest::newRow("a new game") << QStringLiteral("roll.wav") << 1.0;
}

void SoundTest::FilesAreWaves() {
    QFETCH(QString, Name);
    QFETCH(double, Longest);
    QFile File(QStringLiteral(ZONTERBROOK_DATA_DIR "/sounds/") + Name);
    QVERIFY(File.open(QIODevice::ReadOnly));
    const QByteArray Bytes = File.readAll();
    constexpr qsizetype Header = 44;
    QVERIFY(Bytes.size() > Header);
    QCOMPARE(Bytes.left(4), QByteArray("RIFF"));
    QCOMPARE(Bytes.mid(8, 8), QByteArray("WAVEfmt "));
    QCOMPARE(qFromLittleEndian<quint16>(Bytes.constData() + 22), quint16(1)); // mono
    QCOMPARE(qFromLittleEndian<quint32>(Bytes.constData() + 24), quint32(44100));
    QCOMPARE(qFromLittleEndian<quint16>(Bytes.constData() + 34), quint16(16));
    const double Samples = static_cast<double>(Bytes.size() - Header) / 2;
    QVERIFY(Samples / 44100 < Longest);
    int Loudest = 0;
    for (qsizetype At = Header; At + 1 < Bytes.size(); At += 2) {
        Loudest = std::max(Loudest, std::abs(int(qFromLittleEndian<qint16>(Bytes.constData() + At))));
    }
    QVERIFY(Loudest > 8000);
    QVERIFY(Loudest < 32000);                                                                      // nothing is cut off
    QVERIFY(std::abs(int(qFromLittleEndian<qint16>(Bytes.constData() + Bytes.size() - 2))) < 100); // nor at the end
}

void SoundTest::NothingIsSaidWithoutADevice() {
    Open();
    PlayBothSides();
    Game().UseSound = 1;
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    Drag("d4", "e5");
    Game().Outside->PlaySound("sounds/missing.wav");
    Game().Outside->PlaySound("sounds/roll.wav");
    QCoreApplication::processEvents();
    QCOMPARE(Game().GameMoves, 1);
}

} // namespace zonterbrook::tests
