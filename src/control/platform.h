// The world outside the game as one interface: messages, questions, sounds, time, folders, the log, the window's end.
//
// The window makes it real; tests use a scripted one. It is also the world that the engine sees.
#pragma once

#include "base/outside_world.h"
#include "control/command_id.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace zonterbrook::control {

enum class Icon { None, Exclamation, Question };

/// How long a position is shown before the next thing happens.
inline constexpr double PauseSeconds = 0.5;

class Platform : public base::OutsideWorld {
public:
    using OutsideWorld::OutsideWorld;

    /// Shows a message and waits until the person has read it. The window shows the contents as they stand first.
    virtual void Message(std::string_view Title, std::string_view Text, Icon Sign) = 0;

    /// Asks a question with the answers Yes and No; true for Yes. Closing the box is No.
    virtual bool Ask(std::string_view Title, std::string_view Text) = 0;

    /// Starts a wave file and returns at once; no sound, and no complaint, if it can't be played. `File` is relative
    /// to the application directory, such as "sounds/click.wav".
    virtual void PlaySound(std::string_view File) = 0;

    /// Returns when `Seconds` have passed; events of the window may run meanwhile.
    virtual void Wait(double Seconds) = 0;

    /// Paints what the contents say now: called from within long work.
    virtual void Refresh() = 0;

    /// The local date, "mm/dd/yyyy", and time of day, "hh:mm:ss".
    virtual std::string Date() = 0;
    virtual std::string Time() = 0;

    /// Seeds the random numbers from the clock.
    virtual void SeedRandom() = 0;

    /// The folder of the program's own files.
    virtual std::filesystem::path ApplicationDirectory() const = 0;

    /// Opens the log for appending; false if it can't be written. Then text goes to its end, until it is closed;
    /// its lines end in "\n" here, in the file as those of every text file of the program.
    virtual bool OpenLog() = 0;
    virtual void AppendLog(std::string_view Text) = 0;
    virtual void CloseLog() = 0;

    /// Opens the popup menu at the mouse, with the ticks of the contents, and returns the chosen entry or `None`.
    virtual CommandId ShowPopup(CommandId Menu) = 0;

    /// Opens a link or document with whatever the desktop has for it.
    virtual void OpenDocument(std::string_view Target) = 0;

    /// Begins to close the main window as a person would: the window calls `Form_QueryUnload` and what follows.
    virtual void CloseWindow() = 0;

    /// Ends the program without a question: the window goes once the running handlers have returned.
    virtual void EndProgram() = 0;
};

} // namespace zonterbrook::control
