// Plays the program's wave files, or is silent where nothing can play them.
//
// Nothing of it exists before the first sound, so that whoever plays without sounds pays nothing for them.
#pragma once

#include <QHash>
#include <QString>

#include <memory>

class QSoundEffect;

namespace zonterbrook::ui {

class SoundPlayer {
public:
    SoundPlayer();
    ~SoundPlayer();
    SoundPlayer(const SoundPlayer&) = delete;
    SoundPlayer& operator=(const SoundPlayer&) = delete;

    /// Starts the wave file `Path` and returns at once; one that still sounds begins anew. No file or no sound device:
    /// silence, and no complaint.
    /// `Volume`: 0 to 1.
    void Play(const QString& Path, float Volume);

private:
    QHash<QString, std::shared_ptr<QSoundEffect>> Effects;
};

} // namespace zonterbrook::ui
