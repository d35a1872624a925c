// The form of the variants dialog: every rule in a box of its own, as a person sees and changes it.
//
// It is filled from a rule set and turned into one again. Which box can be used follows from what is clicked. The
// window shows the form and decides nothing; the game is control's business.
#pragma once

#include "base/checked_array.h"
#include "rules/rule_set.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::view {

/// The groups of boxes.
enum class RuleFrame : std::uint8_t { Captures, FlyingKings, Misc, WinDraw, Opening, OffTheBoard };
inline constexpr int RuleFrameCount = 6;
std::string_view FrameCaption(RuleFrame Frame);

/// A check box, named by its number. Its caption may belong to a box of numbers behind it.
struct TickRow {
    int Number;
    RuleFrame Frame;
    std::string_view Key; ///< of the rule
    std::string_view Caption;
    std::string_view Tip; ///< what the rule does in play
};

/// A box for a number, named by its number, with the label in front of it; without a caption it belongs to the check
/// box of `Beside`.
struct NumberRow {
    int Number;
    int Label;
    RuleFrame Frame;
    int Beside; ///< number of a check box, or 0
    std::string_view Key;
    std::string_view Caption;
    std::string_view Tip;
};

/// The rows of the dialog, in the order of its tab stops within each frame.
std::span<const TickRow> TickRows();
std::span<const NumberRow> NumberRows();

inline constexpr int HighestTick = 33;
inline constexpr int HighestNumber = 13;
inline constexpr int PromotionBoxes = 2 * rules::PromotionRows; ///< White's, then Black's
inline constexpr int MovementBoxes = 8;                         ///< plain steps of the four pieces, then their captures

// The check boxes that others depend on, and the rule that is told by a number.
inline constexpr int TickMaxCapMove = 1;
inline constexpr int TickMulJumps = 2;
inline constexpr int TickColour = 3;
inline constexpr int TickBlackStarts = 4;
inline constexpr int TickWinAtPromo = 6;
inline constexpr int TickMaxCapMoveKings = 7;
inline constexpr int TickManContJump = 10;
inline constexpr int TickLongKings = 11;
inline constexpr int TickCrowned = 12;
inline constexpr int TickKingFirst = 14;
inline constexpr int TickKingWin = 16;
inline constexpr int TickFinishCapture = 17;
inline constexpr int TickRemoveMen = 20;
inline constexpr int TickDoMoves = 21;
inline constexpr int TickThreeKings = 26;
inline constexpr int TickRandomColour = 28;
inline constexpr int TickJumpFriend = 29;
inline constexpr int TickUnlimited = 30;
inline constexpr int TickTwoKings = 31;
inline constexpr int TickOffBoard = 33;

struct TickBox {
    bool Ticked = false;
    bool Enabled = true;

    bool operator==(const TickBox&) const = default;
};

struct EntryBox {
    std::string Text;
    bool Enabled = true;
    bool Wrong = false; ///< complained about

    bool operator==(const EntryBox&) const = default;
};

struct VariantForm {
    base::CheckedArray<TickBox, HighestTick + 1> Ticks{};      ///< by number
    base::CheckedArray<EntryBox, HighestNumber + 1> Numbers{}; ///< by number
    base::CheckedArray<EntryBox, PromotionBoxes> Promotions{};
    base::CheckedArray<EntryBox, MovementBoxes> Movements{};
};

/// Fills the form. A box that another one rules is enabled accordingly, but keeps the rule's value.
void ShowRules(VariantForm& Form, const rules::RuleSetFields& Rules);

/// Fills the form with a set drawn by lot: few boxes are enabled or disabled by it.
void ShowDrawnRules(VariantForm& Form, const rules::RuleSetFields& Rules);

/// A check box has been clicked: it is ticked or not now, and the boxes that depend on it follow.
void SetTick(VariantForm& Form, int Number, bool Ticked);

/// Takes the form's rules over, box by box. At the first box that holds no square or no direction the transfer stops:
/// the box is marked, and the answer is false; what came before it has been taken over.
bool TakeRules(VariantForm& Form, rules::RuleSetFields& Rules);

} // namespace zonterbrook::view
