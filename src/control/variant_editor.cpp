// The variants: choosing one, changing its rules, drawing rules by lot, keeping one's own.
#include "control/variant_editor.h"

#include "base/chance.h"
#include "control/trap.h"
#include "control/variant_start.h"
#include "rules/install.h"
#include "rules/position.h"
#include "rules/random_rules.h"

#include <system_error>
#include <utility>

namespace zonterbrook::control {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view DefaultVariant = "International Checkers";
// Seeds are told from one person to another.
constexpr double Seeds = 1e6;

std::string SetupOf(const formats::VariantDocument& Variant) {
    return Variant.Setup.empty() ? std::string(rules::DefaultSetup) : Variant.Setup;
}

} // namespace

VariantEditor::VariantEditor(GameState& InState)
    : State(InState), UserListed(InState.UseClassic == 0),
      Scratch(std::make_unique<rules::RulesState>(static_cast<const rules::RulesState&>(InState))) {
    List(UserListed);
    File = ReadChosenVariant(State);
    StartSetup = SetupOf(File);
    view::ShowRules(Form, State.RuleSet);
    if (State.Replaced != nullptr && State.Replaced->BlackStartsByRules) {
        SetUpPosition = State.Replaced->Setup;
    }
}

void VariantEditor::List(bool UserVariants) {
    UserListed = UserVariants;
    Listed = view::ReadCatalogue(FolderOfVariants(State, UserVariants));
}

std::optional<rules::RuleSetFields> VariantEditor::RulesInBoxes() const {
    view::VariantForm Copy = Form;
    rules::RuleSetFields Rules = State.RuleSet;
    return view::TakeRules(Copy, Rules) ? std::optional(Rules) : std::nullopt;
}

bool VariantEditor::IsEdited() const {
    const auto Rules = RulesInBoxes();
    if (!Rules) {
        return true;
    }
    // Lots are drawn for the side that begins before the dialog opens.
    rules::RuleSetFields OfFile = File.Rules;
    OfFile.BlackStarts = OfFile.RndColor == 1 ? Rules->BlackStarts : OfFile.BlackStarts;
    return !(*Rules == OfFile);
}

std::vector<rules::RuleWarning> VariantEditor::Warnings() const {
    const auto Rules = RulesInBoxes();
    return Rules ? rules::CheckRules(*Rules, StartSetup) : std::vector<rules::RuleWarning>{};
}

VariantEditor::Start VariantEditor::StartPosition() const {
    Scratch->RuleSet = RulesInBoxes().value_or(State.RuleSet);
    rules::LaySetup(*Scratch, StartSetup);
    rules::StartRulesGame(*Scratch);
    return {rules::SetupText(Scratch->Board), Scratch->RuleSet.PiecesOnBlack};
}

void VariantEditor::Option_Click(bool UserVariants) {
    RunTrapped(State, [&] { List(UserVariants); });
}

void VariantEditor::Read(std::string_view Name, bool UserVariant) {
    State.VariantName = Name;
    State.UseClassic = UserVariant ? 0 : 1;
    File = ReadChosenVariant(State);
    StartSetup = SetupOf(File);
    State.RuleSet = File.Rules;
    view::ShowRules(Form, State.RuleSet);
}

void VariantEditor::Combo1_Click(std::string_view Name) {
    RunTrapped(State, [&] { Read(Name, UserListed); });
}

void VariantEditor::Check_Click(int Number, bool Ticked) {
    view::SetTick(Form, Number, Ticked);
    if (Number == view::TickColour) {
        State.RuleSet.PiecesOnBlack = Ticked ? 1 : 0;
        State.LoadedRuleSet.PiecesOnBlack = State.RuleSet.PiecesOnBlack;
    }
}

bool VariantEditor::Variantsapply_Click() {
    if (view::TakeRules(Form, State.RuleSet)) {
        return true;
    }
    State.Outside().Message("Error", "Illegal entry!", Icon::Exclamation);
    return false;
}

void VariantEditor::Random_Click() {
    DrawFrom(static_cast<std::uint64_t>(State.Outside().Random() * Seeds));
}

void VariantEditor::DrawFrom(std::uint64_t FromSeed) {
    Seed = FromSeed;
    base::Chance Row{FromSeed};
    rules::DrawRules(State.RuleSet, Form.Ticks[view::TickColour].Enabled, [&] { return Row.Next(); });
    view::ShowDrawnRules(Form, State.RuleSet);
}

std::unique_ptr<Survey> VariantEditor::TryOut(const SurveyPlan& Plan, std::function<bool()> GoOn) const {
    const auto Rules = RulesInBoxes();
    if (!Rules) {
        return nullptr;
    }
    formats::VariantDocument Variant = File;
    Variant.Rules = *Rules;
    const auto FromLot = static_cast<std::uint64_t>(State.Outside().Random() * Seeds);
    return std::make_unique<Survey>(std::move(Variant), base::Chance{FromLot}, Plan, std::move(GoOn));
}

std::string VariantEditor::SaveUserVariant(const std::string& Name, const std::string& Help, bool FromSetUpPosition) {
    if (std::string Complaint = formats::ComplaintAboutName(Name); !Complaint.empty()) {
        return Complaint;
    }
    const auto Rules = RulesInBoxes();
    if (!Rules) {
        return "One of the boxes holds no square or no direction.";
    }
    formats::VariantDocument Variant{Name, *Rules, StartSetup, Help, {}, {}};
    if (FromSetUpPosition && SetUpPosition) {
        Variant.Setup = *SetUpPosition;
    }
    const fs::path Folder = formats::VariantFolder(State.Outside().WritableDirectory(), true);
    std::error_code Error;
    fs::create_directories(Folder, Error);
    const auto There = formats::FindFile(Folder, formats::PathText(formats::VariantFile({}, Name)));
    if (There &&
        !State.Outside().Ask("Save as User Variant", "There is a variant \"" + Name + "\" already. Replace it?")) {
        return {};
    }
    const fs::path To = There.value_or(formats::VariantFile(Folder, Name));
    if (const auto Failure = formats::WriteFile(To, formats::WriteVariant(Variant))) {
        return Failure->Text();
    }
    RunTrapped(State, [&] {
        List(true);
        Read(Name, true);
    });
    return {};
}

void VariantEditor::DeleteUserVariant() {
    if (!ChosenIsUsers() ||
        !State.Outside().Ask("Delete Variant", "Delete the variant \"" + State.VariantName + "\" for good?")) {
        return;
    }
    const auto There = formats::FindFile(FolderOfVariants(State, true),
                                         formats::PathText(formats::VariantFile({}, State.VariantName)));
    std::error_code Error;
    if (There && !fs::remove(*There, Error)) {
        State.Outside().Message("Error", formats::PathText(*There) + ": " + Error.message(), Icon::Exclamation);
        return;
    }
    RunTrapped(State, [&] {
        List(true);
        Read(DefaultVariant, false);
    });
}

} // namespace zonterbrook::control
