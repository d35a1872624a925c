// The boxes of the variants dialog: their texts, what depends on what, and the way to a rule set and back.
#include "view/variant_form.h"

#include "base/fault.h"
#include "base/text.h"
#include "rules/cells.h"
#include "rules/install.h"
#include "rules/square_names.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::view {

namespace {

using F = RuleFrame;

constexpr TickRow Ticks[] = {
    {18, F::Captures, "CapRequired", "Captures mandatory",
     "Who can capture must. Without it a plain move may always be made instead."},
    {TickMaxCapMove, F::Captures, "MaxCapMove", "Move with most captures mandatory",
     "Of all captures only those that take the most pieces may be played. A king counts as one piece."},
    {TickMaxCapMoveKings, F::Captures, "MaxCapMoveKings", "If even capture most Kings",
     "Of captures of equally many pieces only those that take the most kings may be played."},
    {TickMulJumps, F::Captures, "MulJumps", "Multiple captures in one move mandatory",
     "A capture goes on as long as it can. Without it the player may stop after any jump."},
    {9, F::Captures, "KingCapMove", "Capture with King mandatory", "If a king can capture, the men may not."},
    {8, F::Captures, "ManCapKing", "Man can capture King", "Men may jump kings. Without it they may jump men only."},
    {13, F::Captures, "RemovePieces", "Remove captured pieces after move",
     "Jumped pieces stay on the board until the move ends and can't be jumped or passed again. Without it a flying "
     "piece may pass over them."},
    {TickManContJump, F::Captures, "ManContJump", "Man must continue jumping at last rank",
     "A man that reaches a promotion square in the middle of a capture goes on jumping. Without it the capture ends "
     "there."},
    {TickCrowned, F::Captures, "ManContJumpCrowned", "if yes promote to King",
     "It is crowned at once and goes on as a king. Without it it is crowned only if its capture ends there."},
    {22, F::Captures, "LastCap", "Capture last moved piece mandatory",
     "If the piece that has just moved can be taken by a first jump, it must be."},
    {24, F::Captures, "KingMan", "King becomes Man after capturing", "A king that has captured is a man again."},
    {TickJumpFriend, F::Captures, "JumpFriend", "Men can jump own pieces",
     "A plain move may leap over a straight row of own pieces of the same kind."},
    {TickUnlimited, F::Captures, "NumberFriends", "unlimited", "The row may have any length."},
    {TickLongKings, F::FlyingKings, "LongKings", "Kings can move multiple squares",
     "Kings fly: they move and capture over any distance along a line."},
    {TickKingFirst, F::FlyingKings, "KingFirst", "Land on 1st square after last jumped piece",
     "A flying capture must land directly behind the piece that it jumps."},
    {15, F::FlyingKings, "ManCapMoveKing", "Man move like a flying King when jumping",
     "Men capture at a distance, as flying kings do."},
    {TickFinishCapture, F::FlyingKings, "MaxCapMoveK", "Finish a started capture move",
     "A king that has begun to capture carries its capture to the end."},
    {27, F::FlyingKings, "CapReverse", "Kings can reverse direction in capture",
     "After a jump a flying king may turn straight back along the same line."},
    {TickColour, F::Misc, "PiecesOnBlack", "Bottom left square is black",
     "The game is played on the squares of this corner's colour. A change moves the promotion squares along."},
    {TickBlackStarts, F::Misc, "BlackStarts", "Black begins", "Black makes the first move of a game."},
    {TickRandomColour, F::Misc, "RndColor", "Random", "The side that begins is drawn by lot in each game."},
    {5, F::Misc, "AntiMode", "Anti Mode", "Who loses all pieces, or can't move, wins."},
    {23, F::Misc, "ManKing", "Last Man becomes King", "A side's last man is crowned at once if it has nothing else."},
    {25, F::Misc, "ChangeSide", "Promoted Men change color", "A man that is crowned becomes a king of the other side."},
    {TickWinAtPromo, F::WinDraw, "WinAtPromo", "Win when King returns",
     "A side wins when a king of its own comes back to the row where it started from."},
    {TickKingWin, F::WinDraw, "KingWin", "Win when player gets first King", "Who crowns a man first wins at once."},
    {19, F::WinDraw, "NoLegalDraw", "Draw when no moves but pieces",
     "A side that has pieces but no move draws. Without it it has lost."},
    {TickThreeKings, F::WinDraw, "ThreeKings", "Draw with 3 Kings versus 1 King ",
     "Three kings against one are a draw after so many moves."},
    {TickTwoKings, F::WinDraw, "TwoKings", "Draw with 2 Kings versus 1 King ",
     "Two kings against one are a draw after so many moves."},
    {TickRemoveMen, F::Opening, "RemoveMen", "Remove Men",
     "Before the first move each side loses so many pieces by lot; one stays at least."},
    {TickDoMoves, F::Opening, "DoMoves", "Automatic Moves", "The game begins with so many half-moves drawn by lot."},
    {TickOffBoard, F::OffTheBoard, "canContract", "Start with pieces off the board",
     "Each side has pieces in hand, which enter the board instead of a move."},
};

constexpr NumberRow Numbers[] = {
    {6, 18, F::Captures, 0, "NumberFriends", "# pieces:", "The number of own pieces that are leapt over."},
    {5, 17, F::WinDraw, 0, "NumberKings", "After # moves:", "Moves that three kings have to win against one."},
    {7, 19, F::WinDraw, 0, "NumberKings2", "After # moves:", "Moves that two kings have to win against one."},
    {8, 20, F::WinDraw, 0, "NumberPieces",
     "Loose when less than # pieces:", "A side that has this many pieces or fewer has lost. 0: there is no such rule."},
    {3, 11, F::Opening, TickRemoveMen, "NumberMen", "", "How many pieces each side loses."},
    {4, 12, F::Opening, TickDoMoves, "NumberMoves", "", "How many half-moves are drawn."},
    {10, 22, F::OffTheBoard, 0, "ContractNumber", "# pieces:", "Pieces that each side has in hand at the start."},
    {9, 21, F::OffTheBoard, 0, "ContractW1",
     "White First Row:", "The row on which White's pieces enter: 2 is the lowest row of the board, 11 the highest."},
    {11, 23, F::OffTheBoard, 0, "ContractW2",
     "White Last Row:", "The row that must be free for a piece of White's to enter, from 2 to 11."},
    {12, 24, F::OffTheBoard, 0, "ContractB1",
     "Black First Row:", "The row on which Black's pieces enter: 11 is the highest row of the board, 2 the lowest."},
    {13, 25, F::OffTheBoard, 0, "ContractB2",
     "Black Last Row:", "The row that must be free for a piece of Black's to enter, from 2 to 11."},
};

constexpr int NumberOfRun = 6;
constexpr int NumberOfThreeKings = 5;
constexpr int NumberOfTwoKings = 7;
constexpr int NumberOfMen = 3;
constexpr int NumberOfMoves = 4;
constexpr int NumbersOffBoard[] = {10, 9, 11, 12, 13};
constexpr std::int32_t AnyLength = -1;
constexpr std::uint8_t BothColours = 2;

// The neighbour on the other colour of square: squares change by pairs.
int OtherColour(int Cell) {
    return Cell + (rules::ColumnOf(Cell) % 2 != 0 ? 1 : -1);
}

bool IsTicked(const VariantForm& Form, int Number) {
    return Form.Ticks[Number].Ticked;
}

void Enable(VariantForm& Form, int Number, bool Enabled) {
    Form.Ticks[Number].Enabled = Enabled;
}

void EnableRun(VariantForm& Form) {
    Form.Numbers[NumberOfRun].Enabled = Form.Ticks[TickUnlimited].Enabled && !IsTicked(Form, TickUnlimited);
}

// What can be used while a check box is ticked, or is not.
void EnableDependent(VariantForm& Form, int Number) {
    const bool On = IsTicked(Form, Number);
    switch (Number) {
    case TickMaxCapMove:
        Enable(Form, TickMulJumps, !On);
        Enable(Form, TickMaxCapMoveKings, On);
        break;
    case TickManContJump:
        Enable(Form, TickCrowned, On);
        break;
    case TickLongKings:
        Enable(Form, TickKingFirst, On);
        Enable(Form, TickFinishCapture, On);
        break;
    case TickKingWin:
        Enable(Form, TickWinAtPromo, !On);
        break;
    case TickWinAtPromo:
        Enable(Form, TickKingWin, !On);
        break;
    case TickRemoveMen:
        Form.Numbers[NumberOfMen].Enabled = On;
        break;
    case TickDoMoves:
        Form.Numbers[NumberOfMoves].Enabled = On;
        break;
    case TickThreeKings:
        Form.Numbers[NumberOfThreeKings].Enabled = On;
        break;
    case TickTwoKings:
        Form.Numbers[NumberOfTwoKings].Enabled = On;
        break;
    case TickRandomColour:
        Enable(Form, TickBlackStarts, !On);
        break;
    case TickJumpFriend:
        Enable(Form, TickUnlimited, On);
        EnableRun(Form);
        break;
    case TickUnlimited:
        EnableRun(Form);
        break;
    case TickOffBoard:
        for (const int Box : NumbersOffBoard) {
            Form.Numbers[Box].Enabled = On;
        }
        break;
    default:
        break;
    }
}

void FlipPromotionSquares(VariantForm& Form) {
    for (EntryBox& Box : Form.Promotions) {
        const int Cell = rules::AlgebraicCell(base::ToUpper(base::Trim(Box.Text)));
        if (Cell != 0) {
            Box.Text = rules::AlgebraicName(OtherColour(Cell));
        }
    }
}

// The plain steps and the captures.
std::pair<std::string_view, std::string_view> SplitMovement(std::string_view Text) {
    const std::size_t Blank = Text.find(' ');
    return {Text.substr(0, Blank), Blank == std::string_view::npos ? std::string_view() : Text.substr(Blank + 1)};
}

void FillBoxes(VariantForm& Form, const rules::RuleSetFields& Rules) {
    for (const TickRow& Row : Ticks) {
        const std::int32_t Value = rules::FindRuleKey(Row.Key)->Read(Rules);
        Form.Ticks[Row.Number].Ticked = Row.Number == TickUnlimited ? Value == AnyLength : Value != 0;
    }
    for (const NumberRow& Row : Numbers) {
        const std::int32_t Value = rules::FindRuleKey(Row.Key)->Read(Rules);
        // Any length is told by its check box; with that off, the box of numbers begins at none.
        Form.Numbers[Row.Number].Text = std::to_string(Row.Number == NumberOfRun ? std::max(Value, 0) : Value);
        Form.Numbers[Row.Number].Wrong = false;
    }
    for (int Box = 0; Box < PromotionBoxes; ++Box) {
        const int Cell = Rules.PromotionSquares[Box % rules::PromotionRows][Box / rules::PromotionRows];
        Form.Promotions[Box] = {Cell == rules::NoSquare ? std::string() : rules::AlgebraicName(Cell)};
    }
    for (int Piece = 0; Piece < 4; ++Piece) {
        const auto [Plain, Captures] = SplitMovement(Rules.MovementStrings[Piece].View());
        Form.Movements[Piece] = {std::string(Plain)};
        Form.Movements[Piece + 4] = {std::string(Captures)};
    }
}

// --- The way back ---------------------------------------------------------------------------------------------------

// A number that its rule has no room for is complained about like a square that is none.
bool TakeNumber(EntryBox& Box, std::string_view Key, rules::RuleSetFields& Rules) {
    try {
        rules::WriteRule(Rules, Key, Box.Text);
    } catch (const base::Fault&) {
        Box.Wrong = true;
        return false;
    }
    return true;
}

// The first list that a step to the side stands in opens all squares; pieces that have it promote on any of them.
bool StepsSideways(const VariantForm& Form) {
    return std::ranges::any_of(Form.Movements, [](const EntryBox& Box) {
        return (';' + Box.Text + ';').find(";E;") != std::string::npos ||
               (';' + Box.Text + ';').find(";W;") != std::string::npos;
    });
}

bool IsPlayed(int Cell, std::uint8_t PiecesOnBlack) {
    const bool Odd = (rules::RowOf(Cell) + rules::ColumnOf(Cell)) % 2 != 0;
    return PiecesOnBlack == BothColours || Odd == (PiecesOnBlack != 0);
}

bool TakePromotions(VariantForm& Form, rules::RuleSetFields& Rules) {
    const std::uint8_t Played = StepsSideways(Form) ? BothColours : Rules.PiecesOnBlack;
    for (int Box = 0; Box < PromotionBoxes; ++Box) {
        const std::string Name = base::ToUpper(base::Trim(Form.Promotions[Box].Text));
        std::int32_t& Square = Rules.PromotionSquares[Box % rules::PromotionRows][Box / rules::PromotionRows];
        if (Name.empty()) {
            Square = rules::NoSquare;
            continue;
        }
        const int Cell = rules::AlgebraicCell(Name);
        if (Cell < rules::FirstCell || Cell > rules::LastCell || !IsPlayed(Cell, Played)) {
            Form.Promotions[Box].Wrong = true;
            return false;
        }
        Square = Cell;
    }
    return true;
}

bool TakeMovements(VariantForm& Form, rules::RuleSetFields& Rules) {
    for (int Box = 0; Box < MovementBoxes; ++Box) {
        EntryBox& Steps = Form.Movements[Box];
        if (!rules::IsDirectionList(Steps.Text)) {
            Steps.Wrong = true;
            return false;
        }
    }
    for (int Piece = 0; Piece < 4; ++Piece) {
        const std::string& Plain = Form.Movements[Piece].Text;
        const std::string& Captures = Form.Movements[Piece + 4].Text;
        // A text that says the same already stays as its file has it, with a closing blank or without.
        const auto Before = SplitMovement(Rules.MovementStrings[Piece].View());
        if (Before.first != Plain || Before.second != Captures) {
            Rules.MovementStrings[Piece].Assign(std::string(Plain).append(" ").append(Captures));
        }
    }
    return true;
}

} // namespace

std::string_view FrameCaption(RuleFrame Frame) {
    constexpr std::string_view Captions[] = {"Captures", "Flying Kings", "Misc",
                                             "Win/Draw", "Opening",      "Off the Board"};
    return Captions[static_cast<std::size_t>(Frame)];
}

std::span<const TickRow> TickRows() {
    return Ticks;
}

std::span<const NumberRow> NumberRows() {
    return Numbers;
}

void ShowRules(VariantForm& Form, const rules::RuleSetFields& Rules) {
    Form = {};
    FillBoxes(Form, Rules);
    for (const TickRow& Row : Ticks) {
        EnableDependent(Form, Row.Number);
    }
    Enable(Form, TickColour, Rules.PiecesOnBlack < BothColours);
}

void ShowDrawnRules(VariantForm& Form, const rules::RuleSetFields& Rules) {
    FillBoxes(Form, Rules);
    Enable(Form, TickBlackStarts, Rules.RndColor != 1);
    Enable(Form, TickColour, Rules.PiecesOnBlack < BothColours);
    Enable(Form, TickMaxCapMoveKings, Rules.MaxCapMove != 0);
    Enable(Form, TickCrowned, Rules.ManContJump != 0);
}

void SetTick(VariantForm& Form, int Number, bool Ticked) {
    const bool Changed = Form.Ticks[Number].Ticked != Ticked;
    Form.Ticks[Number].Ticked = Ticked;
    if (Number == TickMaxCapMove) {
        Form.Ticks[TickMulJumps].Ticked = Ticked || Form.Ticks[TickMulJumps].Ticked;
        Form.Ticks[TickMaxCapMoveKings].Ticked = Ticked && Form.Ticks[TickMaxCapMoveKings].Ticked;
    } else if (Number == TickManContJump) {
        Form.Ticks[TickCrowned].Ticked = Ticked && Form.Ticks[TickCrowned].Ticked;
    } else if (Number == TickColour && Changed) {
        FlipPromotionSquares(Form);
    }
    EnableDependent(Form, Number);
}

bool TakeRules(VariantForm& Form, rules::RuleSetFields& Rules) {
    const auto Forgive = [](auto& Boxes) { std::ranges::for_each(Boxes, [](EntryBox& Box) { Box.Wrong = false; }); };
    Forgive(Form.Numbers);
    Forgive(Form.Promotions);
    Forgive(Form.Movements);

    // 1. The check boxes. A board of both colours stays one: its box tells nothing then.
    for (const TickRow& Row : Ticks) {
        const bool Told = Row.Number != TickUnlimited && (Row.Number != TickColour || Form.Ticks[TickColour].Enabled);
        if (Told) {
            rules::FindRuleKey(Row.Key)->Write(Rules, IsTicked(Form, Row.Number) ? 1 : 0);
        }
    }

    // 2. The numbers.
    for (const NumberRow& Row : Numbers) {
        if (!TakeNumber(Form.Numbers[Row.Number], Row.Key, Rules)) {
            return false;
        }
    }
    if (IsTicked(Form, TickUnlimited)) {
        Rules.NumberFriends = AnyLength;
    }

    // 3. The squares, then the steps.
    return TakePromotions(Form, Rules) && TakeMovements(Form, Rules);
}

} // namespace zonterbrook::view
