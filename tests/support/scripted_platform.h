// The world outside the game as a test prepares it: what will be said and asked, and what the answers are.
//
// A message or question that was not prepared fails the test, and so does one that was prepared and did not come. The
// clock stands unless the test turns it; a wait turns it by its length.
#pragma once

#include "control/platform.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::tests {

class ScriptedPlatform : public control::Platform {
public:
    /// What the test may set and look at.
    double Clock = 1000;
    std::filesystem::path Directory;
    std::string Clipboard;
    game::Details DetailsShown;
    game::Details EditedDetails;                  ///< what the person makes of a game's details
    std::filesystem::path Written = "/no folder"; ///< where the program's own files go
    control::FileKeeper Keeper = control::FileKeeper::Nobody;
    std::function<void(control::VariantEditor&)> OnVariants; ///< what the person does in the dialog
    std::function<void(control::OptionsEditor&)> OnOptions;
    std::function<void(control::PlyValueTool&)> OnPlyValues;
    std::function<std::optional<std::size_t>(const std::vector<control::Finding>&)> OnProblems;
    control::RulesPage RulesShown;
    std::vector<std::filesystem::path> PicturesLoaded;
    bool PicturesCanBeRead = true;
    std::vector<std::pair<control::DiagramUse, std::string>> Diagrams;
    std::vector<std::string> Opened; ///< documents
    std::function<void()> OnWait;    ///< runs while the program waits
    std::function<void()> OnMessage; ///< runs while a message stands
    std::function<void()> OnNode;    ///< runs at every node of a search
    std::uint64_t Nodes = 0;
    std::deque<double> Chances; ///< random numbers to come; behind them a fixed row goes on
    std::vector<std::string> Sounds;
    std::string Log;
    bool LogCanBeOpened = true;
    bool LogIsOpen = false;
    bool Ended = false;
    bool TakesAnything = false; ///< nothing that is said or asked is unexpected; questions are answered by lot
    int Closings = 0;
    int Seeds = 0;
    std::string LastSaid;

    explicit ScriptedPlatform(std::filesystem::path ApplicationFolder)
        : Platform(1), Directory(std::move(ApplicationFolder)) {}

    ~ScriptedPlatform() override {
        for (const Expected& Left : Script) {
            ADD_FAILURE() << "never came: " << Left.Title << ": " << Left.Text;
        }
    }

    void ExpectMessage(std::string_view Title, std::string_view Text) {
        Script.push_back({Kind::Message, std::string(Title), std::string(Text)});
    }
    void ExpectQuestion(std::string_view Title, std::string_view Text, bool Yes) {
        Script.push_back({Kind::Question, std::string(Title), std::string(Text), Yes});
    }
    void ExpectPopup(control::CommandId Choice) { Script.push_back({Kind::Popup, "popup", "", false, Choice}); }

    void ExpectOpenDialog(std::optional<std::filesystem::path> File) {
        Script.push_back({Kind::OpenFile, "Load Game", "", false, control::CommandId::None, std::move(File)});
    }
    void ExpectChooser(std::string_view Title, std::optional<control::PdnChoice> Chosen) {
        Script.push_back({Kind::ChooseGame, std::string(Title), "", false, control::CommandId::None, std::nullopt,
                          std::move(Chosen)});
    }
    void ExpectSaveDialog(std::optional<std::filesystem::path> File) {
        Script.push_back({Kind::SaveFile, "Save Game", "", false, control::CommandId::None, std::move(File)});
    }

    bool ScriptIsDone() const { return Script.empty(); }

    void Message(std::string_view Title, std::string_view Text, control::Icon) override {
        Take(Kind::Message, Title, Text);
        if (OnMessage) {
            OnMessage();
        }
    }
    bool Ask(std::string_view Title, std::string_view Text) override { return Take(Kind::Question, Title, Text).Yes; }
    control::CommandId ShowPopup(control::CommandId) override { return Take(Kind::Popup, "popup", "").Choice; }

    void PlaySound(std::string_view File, int) override { Sounds.emplace_back(File); }
    void Wait(double Seconds) override {
        Clock += Seconds;
        if (OnWait) {
            OnWait();
        }
    }
    void Refresh() override {}
    std::string Date() override { return "01/02/2003"; }
    std::string Time() override { return "04:05:06"; }
    void SeedRandom() override { ++Seeds; }
    std::filesystem::path ApplicationDirectory() const override { return Directory; }
    std::filesystem::path WritableDirectory() const override { return Written; }
    control::FileKeeper KeptBy() const override { return Keeper; }
    std::optional<std::filesystem::path> AskFileToOpen(std::string_view Title) override {
        return Take(Kind::OpenFile, Title, "").File;
    }
    std::optional<std::filesystem::path> AskFileToSave(std::string_view Title, const std::filesystem::path&) override {
        return Take(Kind::SaveFile, Title, "").File;
    }
    std::optional<control::PdnChoice> ChoosePdnGame(formats::PdnIndex& Games, std::string_view Title,
                                                    const std::vector<std::string>&) override {
        while (Games.Scan(1U << 20U)) {
        }
        return Take(Kind::ChooseGame, Title, "").Chosen;
    }
    void ShowDetails(const game::Details& Details, const std::function<void(const game::Details&)>& Store) override {
        DetailsShown = Details;
        Store(EditedDetails);
    }
    void ShowVariants(control::VariantEditor& Editor) override { DoIn(OnVariants, Editor); }
    void ShowOptions(control::OptionsEditor& Editor) override { DoIn(OnOptions, Editor); }
    void ShowPlyValues(control::PlyValueTool& Tool) override { DoIn(OnPlyValues, Tool); }
    std::optional<std::size_t> ShowProblems(const std::vector<control::Finding>& Found) override {
        return OnProblems ? OnProblems(Found) : std::nullopt;
    }
    void ShowRules(const control::RulesPage& Page) override { RulesShown = Page; }
    void ShowAbout() override {}
    void ShowManual(std::string_view) override {}
    bool LoadPictures(std::span<const std::filesystem::path> Files) override {
        PicturesLoaded.assign(Files.begin(), Files.end());
        return PicturesCanBeRead;
    }
    void UseDiagram(control::DiagramUse Use, std::string_view Position) override {
        Diagrams.emplace_back(Use, std::string(Position));
    }
    std::string ClipboardText() override { return Clipboard; }
    void SetClipboardText(std::string_view Text) override { Clipboard = Text; }
    bool OpenLog() override { return LogIsOpen = LogCanBeOpened; }
    void AppendLog(std::string_view Text) override {
        EXPECT_TRUE(LogIsOpen) << "written to a closed log: " << Text;
        Log += Text;
    }
    void CloseLog() override { LogIsOpen = false; }
    void OpenDocument(std::string_view Target) override { Opened.emplace_back(Target); }
    void CloseWindow() override { ++Closings; }
    void EndProgram() override { Ended = true; }

    double Seconds() override { return Clock; }
    double Random() override {
        if (!Chances.empty()) {
            const double Next = Chances.front();
            Chances.pop_front();
            return Next;
        }
        Row = Row * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(Row >> 11U) / 9007199254740992.0;
    }

protected:
    void TakeTurn() override {
        ++Nodes;
        if (OnNode) {
            OnNode();
        }
    }

private:
    enum class Kind { Message, Question, Popup, OpenFile, SaveFile, ChooseGame };
    struct Expected {
        Kind Sort;
        std::string Title, Text;
        bool Yes = false;
        control::CommandId Choice = control::CommandId::None;
        std::optional<std::filesystem::path> File = {};
        std::optional<control::PdnChoice> Chosen = {};
    };

    Expected Take(Kind Sort, std::string_view Title, std::string_view Text) {
        if (Script.empty() && TakesAnything) {
            LastSaid = Text;
            const int First = static_cast<int>(control::CommandId::ClearBoard);
            const int Choice = First + static_cast<int>(Random() * (control::CommandCount - First));
            return {Sort, "", "", Random() < 0.5, static_cast<control::CommandId>(Choice)};
        }
        if (Script.empty()) {
            ADD_FAILURE() << "unexpected: " << Title << ": " << Text;
            return {Sort, "", ""};
        }
        Expected Next = Script.front();
        Script.pop_front();
        EXPECT_EQ(Next.Sort, Sort) << Title << ": " << Text;
        EXPECT_EQ(Next.Title, Title);
        EXPECT_EQ(Next.Text, Text);
        return Next;
    }

    template <typename Editor>
    void DoIn(const std::function<void(Editor&)>& What, Editor& Dialog) {
        if (What) {
            What(Dialog);
        } else if (!TakesAnything) {
            ADD_FAILURE() << "a dialog that was not expected";
        }
    }

    std::deque<Expected> Script;
    std::uint64_t Row = 1;
};

} // namespace zonterbrook::tests
