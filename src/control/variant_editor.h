// The variants: choosing one, changing its rules, drawing rules by lot, keeping one's own.
//
// The dialog works on this and decides nothing. It edits the rules in force: what has been chosen or applied stays, in
// whatever way the dialog is closed. Each routine of a click is safe to call from the window: a failure is shown, and
// ends the program where it has to.
#pragma once

#include "control/state.h"
#include "control/survey.h"
#include "rules/rule_check.h"
#include "view/variant_catalogue.h"
#include "view/variant_form.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::control {

class VariantEditor {
public:
    explicit VariantEditor(GameState& InState);

    /// The boxes. The dialog writes typed texts into them.
    view::VariantForm Form;

    /// Which folder is listed, and what it holds.
    bool ListsUserVariants() const { return UserListed; }
    const std::vector<view::CatalogueEntry>& Variants() const { return Listed; }

    /// The variant that is chosen, its help and its start position of a hundred digits.
    const std::string& Chosen() const { return State.VariantName; }
    bool ChosenIsUsers() const { return State.UseClassic == 0; }
    const std::string& HelpText() const { return File.HelpText; }
    /// The squares of the start position by the rules in the boxes, in the order of a set-up text, and whether the
    /// square in the corner at White's left is dark, and both colours are played on.
    struct Start {
        std::string Squares;
        std::uint8_t PiecesOnBlack = 1;

        bool operator==(const Start&) const = default;
    };
    Start StartPosition() const;

    /// The rules as the boxes have them now, or nothing while one of them holds what is no square or direction.
    std::optional<rules::RuleSetFields> RulesInBoxes() const;
    /// Whether they are others than those of the variant's file.
    bool IsEdited() const;
    /// What is contradictory or void in them.
    std::vector<rules::RuleWarning> Warnings() const;

    /// True once the program is on its way out: the dialog has to close.
    bool ProgramEnds() const { return State.ProgramEnds; }

    // --- Clicks -----------------------------------------------------------------------------------------------------

    /// Lists the program's variants, or the person's own.
    void Option_Click(bool UserVariants);
    /// Reads a variant of the list straight into the rules in force. A file that can't be read ends the program.
    void Combo1_Click(std::string_view Name);
    void Check_Click(int Number, bool Ticked);
    /// Takes the boxes over into the rules; false, and a message, at the first box that can't be read.
    bool Variantsapply_Click();
    /// Draws a whole rule set from a fresh seed, or from one that somebody has told.
    void Random_Click();
    void DrawFrom(std::uint64_t Seed);
    /// The seed of the last draw.
    std::optional<std::uint64_t> LastSeed() const { return Seed; }

    /// The engine on both sides of the rules in the boxes; nothing while they can't be read. `GoOn` as for a survey.
    std::unique_ptr<Survey> TryOut(const SurveyPlan& Plan, std::function<bool()> GoOn) const;

    // --- The person's own variants -----------------------------------------------------------------------------------

    /// Whether there is a position that the person has set up before: it can be the start of a variant that is saved.
    bool HasSetUpPosition() const { return SetUpPosition.has_value(); }
    /// Writes the rules in the boxes and the start position as a variant of the person's own, and chooses it. Gives a
    /// complaint, or an empty text; asks before it replaces one.
    std::string SaveUserVariant(const std::string& Name, const std::string& Help, bool FromSetUpPosition);
    /// Deletes the chosen one, after a question, and chooses the default variant.
    void DeleteUserVariant();

private:
    void List(bool UserVariants);
    void Read(std::string_view Name, bool UserVariant);

    GameState& State;
    bool UserListed;
    std::vector<view::CatalogueEntry> Listed;
    formats::VariantDocument File; ///< of the chosen variant
    std::string StartSetup;
    std::unique_ptr<rules::RulesState> Scratch; ///< a board to try start positions on
    std::optional<std::string> SetUpPosition;
    std::optional<std::uint64_t> Seed;
};

} // namespace zonterbrook::control
