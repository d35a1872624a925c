// Wave files through the toolkit's sound effects, which mix and play them on threads of their own.
#include "ui/sound.h"

#include <QAudioDevice>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace zonterbrook::ui {

namespace {

void SayNothing(QtMsgType, const QMessageLogContext&, const QString&) {}

// A machine without a sound server is nothing to warn of on the console, which the toolkit does as it looks for one.
bool HasDevice() {
    const QtMessageHandler Usual = qInstallMessageHandler(SayNothing);
    const bool Found = !QMediaDevices::defaultAudioOutput().isNull();
    qInstallMessageHandler(Usual);
    return Found;
}

} // namespace

SoundPlayer::SoundPlayer() = default;
SoundPlayer::~SoundPlayer() = default;

void SoundPlayer::Play(const QString& Path, float Volume) {
    if (!HasDevice() || !QFile::exists(Path)) {
        return;
    }
    std::shared_ptr<QSoundEffect>& Effect = Effects[Path];
    if (!Effect) {
        Effect = std::make_shared<QSoundEffect>();
        Effect->setSource(QUrl::fromLocalFile(Path));
    }
    Effect->setVolume(Volume);
    Effect->play();
}

} // namespace zonterbrook::ui
