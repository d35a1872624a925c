// A world in which nothing is shown: chance follows from a seed, what is said is noted, every question is answered with
// Yes, and nothing waits.
//
// The console lives in it, and so do games that nobody watches.
#pragma once

#include "base/chance.h"
#include "control/platform.h"

namespace zonterbrook::control {

class StillWorld : public Platform {
public:
    double Seconds() override;
    double Random() override;
    void Message(std::string_view Title, std::string_view Text, Icon Sign) override;
    bool Ask(std::string_view /*Title*/, std::string_view /*Text*/) override { return true; }
    void PlaySound(std::string_view /*File*/, int /*Volume*/) override {}
    void Wait(double /*Seconds*/) override {}
    void Refresh() override {}
    std::string Date() override;
    std::string Time() override { return {}; }
    void SeedRandom() override {}
    std::filesystem::path ApplicationDirectory() const override { return Program; }
    std::filesystem::path WritableDirectory() const override { return {}; }
    FileKeeper KeptBy() const override { return FileKeeper::Nobody; }
    std::optional<std::filesystem::path> AskFileToOpen(std::string_view /*Title*/) override { return std::nullopt; }
    std::optional<std::filesystem::path> AskFileToSave(std::string_view /*Title*/,
                                                       const std::filesystem::path& /*Suggested*/) override {
        return std::nullopt;
    }
    std::optional<PdnChoice> ChoosePdnGame(formats::PdnIndex& /*Games*/, std::string_view /*Title*/,
                                           const std::vector<std::string>& /*Variants*/) override {
        return std::nullopt;
    }
    void ShowDetails(const game::Details& /*Details*/,
                     const std::function<void(const game::Details&)>& /*Store*/) override {}
    void ShowVariants(VariantEditor& /*Editor*/) override {}
    void ShowOptions(OptionsEditor& /*Editor*/) override {}
    void ShowPlyValues(PlyValueTool& /*Tool*/) override {}
    std::optional<std::size_t> ShowProblems(const std::vector<Finding>& /*Found*/) override { return std::nullopt; }
    void ShowRules(const RulesPage& /*Page*/) override {}
    void ShowAbout() override {}
    void ShowManual(std::string_view /*Heading*/) override {}
    bool LoadPictures(std::span<const std::filesystem::path> /*Files*/) override { return true; }
    void UseDiagram(DiagramUse /*Use*/, std::string_view /*Position*/) override {}
    std::string ClipboardText() override { return {}; }
    void SetClipboardText(std::string_view /*Text*/) override {}
    bool OpenLog() override { return false; }
    void AppendLog(std::string_view /*Text*/) override {}
    void CloseLog() override {}
    CommandId ShowPopup(CommandId /*Menu*/) override { return CommandId::None; }
    void OpenDocument(std::string_view /*Target*/) override {}
    void CloseWindow() override {}
    void EndProgram() override {}

    std::filesystem::path Program; ///< where the variants lie
    base::Chance Chance;           ///< where the random numbers come from
    std::function<void()> OnTurn;  ///< every so often while something is at work
    std::string Said;              ///< a line for each message since it was last emptied, line ends as "\\n"

protected:
    void TakeTurn() override;
};

} // namespace zonterbrook::control
