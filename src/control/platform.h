// The world outside the game as one interface: messages, questions, sounds, time, folders, the log, the window's end.
//
// The window makes it real; tests use a scripted one. It is also the world that the engine sees.
#pragma once

#include "base/outside_world.h"
#include "control/command_id.h"
#include "formats/pdn_index.h"
#include "game/details.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::control {

/// The sign beside a message; the last one for the end of a game.
enum class Icon { None, Exclamation, Question, Congratulation };

/// How long a position is shown before the next thing happens.
inline constexpr double PauseSeconds = 0.5;

/// The kinds of file that a game is saved in, in the order of the dialogs: what they are called, and their pattern.
struct FileKind {
    std::string_view Name;
    std::string_view Pattern;
};
inline constexpr FileKind GameFileKinds[] = {{"Zonterbrook File (*.qvm)", "*.qvm"},
                                             {"Portable Draughts Notation File (*.pdn)", "*.pdn"}};

/// Who keeps the files of the program: a second one at once leaves them to the first, and some worlds have none.
enum class FileKeeper : std::uint8_t { ThisProgram, AnotherProgram, Nobody };

/// A game of a PDN file that the person has chosen.
struct PdnChoice {
    std::size_t Game = 0; ///< from 0
    std::string Variant;  ///< to play it under; empty for the game's own
};

/// What the rules window says.
struct RulesPage {
    std::string Heading; ///< empty where there is no help
    std::string Help;    ///< "\n" between its lines
    std::string Link;    ///< a document with more; empty for none
};

/// What becomes of the board's picture.
enum class DiagramUse : std::uint8_t { Copy, Save, Print };

class OptionsEditor;
class PlyValueTool;
class VariantEditor;
struct Finding;

class Platform : public base::OutsideWorld {
public:
    using OutsideWorld::OutsideWorld;

    /// Shows a message and waits until the person has read it. The window shows the contents as they stand first.
    virtual void Message(std::string_view Title, std::string_view Text, Icon Sign) = 0;

    /// Asks a question with the answers Yes and No; true for Yes. Closing the box is No.
    virtual bool Ask(std::string_view Title, std::string_view Text) = 0;

    /// Starts a wave file and returns at once; no sound, and no complaint, if it can't be played. `File` is relative
    /// to the application directory, such as "sounds/click.wav".
    /// `Volume`: 0 to 100.
    virtual void PlaySound(std::string_view File, int Volume) = 0;

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

    /// The folder for the files that the program writes, which are also read from there first.
    virtual std::filesystem::path WritableDirectory() const = 0;

    /// Who keeps autosave, settings and rating.
    virtual FileKeeper KeptBy() const = 0;

    /// The file to open, or nothing when the person changes their mind. `Title` is the dialog's.
    virtual std::optional<std::filesystem::path> AskFileToOpen(std::string_view Title) = 0;

    /// The file to save to. `Suggested` may be empty. Asks nothing about a file that is there already.
    virtual std::optional<std::filesystem::path> AskFileToSave(std::string_view Title,
                                                               const std::filesystem::path& Suggested) = 0;

    /// Lets the person choose among the games of a file, which is looked through meanwhile, and among the variants to
    /// play it under. Nothing when they change their mind.
    virtual std::optional<PdnChoice> ChoosePdnGame(formats::PdnIndex& Games, std::string_view Title,
                                                   const std::vector<std::string>& Variants) = 0;

    /// Shows the details of a game for editing; `Store` takes them over each time that the person wants it.
    virtual void ShowDetails(const game::Details& Details, const std::function<void(const game::Details&)>& Store) = 0;

    /// Shows the variants, with all their rules, until the person closes the dialog.
    virtual void ShowVariants(VariantEditor& Editor) = 0;

    /// Shows the options until the person closes the dialog.
    virtual void ShowOptions(OptionsEditor& Editor) = 0;

    /// Shows the table of ply values: has it built, and then shows it until the person closes the window.
    virtual void ShowPlyValues(PlyValueTool& Tool) = 0;

    /// Shows what a search for problems has found. The place of the one that the person wants to see on the board, or
    /// nothing.
    virtual std::optional<std::size_t> ShowProblems(const std::vector<Finding>& Found) = 0;

    virtual void ShowRules(const RulesPage& Page) = 0;
    virtual void ShowAbout() = 0;

    /// Shows the manual, at a heading if one is named.
    virtual void ShowManual(std::string_view Heading) = 0;

    /// Makes the pictures of a skin ready, one for each of `view::Picture`; an empty path stands for the program's own.
    /// False if one of them can't be read; then those of the last skin stay.
    virtual bool LoadPictures(std::span<const std::filesystem::path> Files) = 0;

    /// Copies the board as it is shown, with its position as text; or saves its picture to a file, or prints it.
    virtual void UseDiagram(DiagramUse Use, std::string_view Position) = 0;

    /// The text of the clipboard, empty if it holds none.
    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(std::string_view Text) = 0;

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
