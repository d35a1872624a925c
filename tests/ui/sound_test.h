// The sounds: files that can be played, and a program that keeps quiet where nothing can play them.
#pragma once

#include "window_hands.h"

#include <QObject>

namespace zonterbrook::tests {

class SoundTest : public QObject, private WindowHands {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { Close(); }

    void FilesAreWaves_data();
    void FilesAreWaves();
    void NothingIsSaidWithoutADevice();
};

} // namespace zonterbrook::tests
