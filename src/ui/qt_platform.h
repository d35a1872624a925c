// The world outside the game, made real: message boxes, clock, chance, folders, log, and turns for the window's events.
//
// The engine yields through it at every node; at most every hundredth of a second the window then repaints and handles
// its events.
#pragma once

#include "control/platform.h"
#include "ui/sound.h"

#include <QFile>
#include <QLockFile>

#include <chrono>
#include <filesystem>
#include <optional>
#include <random>

class QFileDialog;
class QDialog;
class QWidget;

namespace zonterbrook::ui {

class MainWindow;

/// Where the program's files lie, and where those go that it writes: the same folder unless the program is installed
/// where it may not write.
struct ProgramFolders {
    std::filesystem::path Program;
    std::filesystem::path Written;
};

/// The folders of a program whose own folder is `Program`. `OfUser`: the user's data folder, made if it is needed.
ProgramFolders FindFolders(const std::filesystem::path& Program, const std::filesystem::path& OfUser);

class QtPlatform : public control::Platform {
public:
    QtPlatform(MainWindow& Owner, ProgramFolders Where);

    double Seconds() override;
    double Random() override;

    void Message(std::string_view Title, std::string_view Text, control::Icon Sign) override;
    bool Ask(std::string_view Title, std::string_view Text) override;
    void PlaySound(std::string_view File, int Volume) override;
    void Wait(double Seconds) override;
    void Refresh() override;
    std::string Date() override;
    std::string Time() override;
    void SeedRandom() override;
    std::filesystem::path ApplicationDirectory() const override;
    std::filesystem::path WritableDirectory() const override;
    control::FileKeeper KeptBy() const override;
    std::optional<std::filesystem::path> AskFileToOpen(std::string_view Title) override;
    std::optional<std::filesystem::path> AskFileToSave(std::string_view Title,
                                                       const std::filesystem::path& Suggested) override;
    std::optional<control::PdnChoice> ChoosePdnGame(formats::PdnIndex& Games, std::string_view Title,
                                                    const std::vector<std::string>& Variants) override;
    void ShowDetails(const game::Details& Details, const std::function<void(const game::Details&)>& Store) override;
    void ShowVariants(control::VariantEditor& Editor) override;
    void ShowOptions(control::OptionsEditor& Editor) override;
    void ShowPlyValues(control::PlyValueTool& Tool) override;
    std::optional<std::size_t> ShowProblems(const std::vector<control::Finding>& Found) override;
    void ShowRules(const control::RulesPage& Page) override;
    void ShowAbout() override;
    void ShowManual(std::string_view Heading) override;
    bool LoadPictures(std::span<const std::filesystem::path> Files) override;
    void UseDiagram(control::DiagramUse Use, std::string_view Position) override;
    std::string ClipboardText() override;
    void SetClipboardText(std::string_view Words) override;
    bool OpenLog() override;
    void AppendLog(std::string_view Text) override;
    void CloseLog() override;
    control::CommandId ShowPopup(control::CommandId Menu) override;
    void OpenDocument(std::string_view Target) override;
    void CloseWindow() override;
    void EndProgram() override;

protected:
    void TakeTurn() override;

private:
    int RunBox(QDialog& Box);
    QWidget* Above() const;
    void CopyDiagram(std::string_view Position);
    void SaveDiagram();
    void PrintDiagram();
    std::optional<std::filesystem::path> RunFileDialog(QFileDialog& Dialog);

    double StoodStill = 0; ///< seconds that boxes have been open
    MainWindow& Window;
    ProgramFolders Folders;
    QLockFile Lock; ///< held by the program that keeps the files
    QFile Log;
    QString LastFolder; ///< where a file was opened or saved last
    SoundPlayer Sounds;
    std::mt19937_64 Chance;
    std::chrono::steady_clock::time_point LastTurn;
};

} // namespace zonterbrook::ui
