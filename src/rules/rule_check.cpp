// The check of a rule set.
//
// The rules are installed in a state of its own, as for a game, so that steps, promotion squares and the men's colour
// of square are the ones that will be played. `Roaming` then finds where each kind of piece may get, and the checks ask
// it.
#include "rules/rule_check.h"

#include "base/fault.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "rules/position.h"
#include "rules/roaming.h"
#include "rules/square_names.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

namespace zonterbrook::rules {

namespace {

constexpr std::string_view Owners[2] = {"White", "Black"};
constexpr std::string_view Kinds[PieceIndices] = {"White's men", "Black's men", "White's kings", "Black's kings"};

bool IsSideways(const RulesState& State) {
    return std::ranges::any_of(State.MoveDirections, [](const DirectionColumn& Column) {
        return std::ranges::any_of(Column, [](std::int16_t Step) { return Step == 1 || Step == -1; });
    });
}

std::string SquareList(const CellSet& Cells) {
    constexpr int MostNames = 5;
    std::string List;
    int Named = 0;
    Cells.ForEach([&](int Cell) {
        if (Named < MostNames) {
            List += (Named == 0 ? "" : ", ") + AlgebraicName(Cell);
        }
        ++Named;
    });
    return Named > MostNames ? List + " and " + std::to_string(Named - MostNames) + " more" : List;
}

// --- rules that cancel each other -------------------------------------------------------------------------

using R = RuleSetFields;

/// A rule that does nothing, or not what it says, where `Applies`.
struct VoidRule {
    std::string_view Key;
    bool (*Applies)(const R& Rules, const Roaming& Pieces);
    std::string_view Sentence;
};

/// Of several rows with one key the first that applies is told. A rule at its default is never told of: nobody asked
/// for it.
constexpr VoidRule VoidRules[] = {
    // Captures
    {"MaxCapMoveKings",
     [](const R& Rules, const Roaming& P) { return Rules.MaxCapMoveKings != 0 && !P.MayHaveKings(); },
     "There can never be a king in this game, so captures of the most kings are no different from others."},
    {"MaxCapMoveKings",
     [](const R& Rules, const Roaming&) {
         return Rules.MaxCapMoveKings == 1 && Rules.MaxCapMove == 0 && Rules.KingCapMove == 1;
     },
     "Kings are counted only where a capture of the most pieces is mandatory, and it is not. All that this rule does "
     "is to lift the duty to capture with a king."},
    {"MaxCapMoveKings",
     [](const R& Rules, const Roaming&) { return Rules.MaxCapMoveKings != 0 && Rules.MaxCapMove == 0; },
     "Kings are counted only where a capture of the most pieces is mandatory, and it is not: any capture may be "
     "chosen, whatever it takes."},
    {"MulJumps",
     [](const R& Rules, const Roaming&) {
         // Where men fly and kings do not, MulJumps also decides on which squares a capture may end.
         return Rules.MulJumps == 0 && Rules.MaxCapMove != 0 &&
                !(Rules.KingCapMove == 1 && Rules.MaxCapMoveKings == 1) &&
                (Rules.LongKings == 1 || (Rules.ManCapMoveKing == 0 && Rules.ManContJumpCrowned == 0));
     },
     "A capture may be broken off, but a capture of the most pieces is mandatory: so nobody can ever break one off."},
    {"MaxCapMoveK", [](const R& Rules, const Roaming&) { return Rules.MaxCapMoveK == 0 && Rules.LongKings == 0; },
     "This rule is about kings that move several squares, and kings move one here. Leaving it off changes nothing."},
    {"MaxCapMoveK", [](const R& Rules, const Roaming&) { return Rules.MaxCapMoveK == 0 && Rules.MaxCapMove != 0; },
     "A king need not finish its capture, but a capture of the most pieces is mandatory: so it must all the same."},
    {"MaxCapMoveK", [](const R& Rules, const Roaming&) { return Rules.MaxCapMoveK == 0 && Rules.MulJumps == 0; },
     "Any capture may be broken off, a king's too: leaving this rule off changes nothing."},
    {"KingCapMove", [](const R& Rules, const Roaming& P) { return Rules.KingCapMove != 0 && !P.MayHaveKings(); },
     "There can never be a king in this game, so none has to capture."},
    {"KingCapMove", [](const R& Rules, const Roaming& P) { return Rules.KingCapMove != 0 && !P.MayHaveMen(); },
     "There are only kings in this game, so a king has nothing to go before."},
    {"KingCapMove",
     [](const R& Rules, const Roaming&) {
         return Rules.KingCapMove == 1 && Rules.MaxCapMoveKings == 1 && Rules.MaxCapMove == 0;
     },
     "The duty to capture with a king gives way where captures of the most kings count: men may capture all the "
     "same."},
    {"ManCapKing", [](const R& Rules, const Roaming& P) { return Rules.ManCapKing == 0 && !P.MayHaveKings(); },
     "There can never be a king in this game that men could spare."},
    {"ManCapMoveKing", [](const R& Rules, const Roaming& P) { return Rules.ManCapMoveKing != 0 && !P.MayHaveMen(); },
     "There can never be a man in this game that could capture from afar."},
    {"KingFirst", [](const R& Rules, const Roaming& P) { return Rules.KingFirst != 0 && !P.MayFly(); },
     "No piece captures from afar in this game: all of them land directly behind the captured piece anyway."},
    {"CapReverse", [](const R& Rules, const Roaming& P) { return Rules.CapReverse != 0 && !P.MayFly(); },
     "No piece captures from afar in this game, and only such captures could turn back."},
    {"CapReverse", [](const R& Rules, const Roaming&) { return Rules.CapReverse != 0 && Rules.RemovePieces == 1; },
     "Captured pieces stay on the board until the move is over and bar the way back: a capture can never turn "
     "straight back."},
    {"KingMan", [](const R& Rules, const Roaming& P) { return Rules.KingMan != 0 && !P.MayHaveKings(); },
     "There can never be a king in this game that could become a man."},
    // Promotion
    {"ManContJumpCrowned",
     [](const R& Rules, const Roaming& P) { return Rules.ManContJumpCrowned != 0 && !P.MayCrown(); },
     "No man can come to a promotion square in this game, so none is crowned on its way."},
    {"ManContJumpCrowned",
     [](const R& Rules, const Roaming&) { return Rules.ManContJumpCrowned != 0 && Rules.ManContJump == 0; },
     "A man's capture ends on the promotion square, so it can't go on from there as a king."},
    {"ChangeSide", [](const R& Rules, const Roaming& P) { return Rules.ChangeSide != 0 && !P.MayCrown(); },
     "No man can come to a promotion square in this game, so none changes its colour."},
    {"ManKing", [](const R& Rules, const Roaming& P) { return Rules.ManKing != 0 && !P.MayHaveMen(); },
     "There can never be a man in this game that could be the last one."},
    {"JumpFriend",
     [](const R& Rules, const Roaming& P) {
         return Rules.JumpFriend == 1 && Rules.NumberFriends != 0 && Rules.LongKings != 1 && P.May(3);
     },
     "Kings that move one square may jump their own kind, too, and a Black king's jump of that kind stops the program "
     "with an error."},
    {"NumberFriends",
     [](const R& Rules, const Roaming&) {
         return Rules.JumpFriend != 0 && (Rules.NumberFriends == 0 || Rules.NumberFriends < -1);
     },
     "A line of own pieces that may be jumped must have this length, and no line has it: nobody can jump own pieces. "
     "Unlimited length is -1."},
    {"NumberFriends", [](const R& Rules, const Roaming&) { return Rules.JumpFriend == 0 && Rules.NumberFriends != 0; },
     "Own pieces can't be jumped in this game, so the length of their line does nothing."},
    // The end of the game
    {"KingWin", [](const R& Rules, const Roaming& P) { return Rules.KingWin != 0 && !P.MayHaveKings(); },
     "There can never be a king in this game, so nobody wins by one."},
    {"KingWin", [](const R& Rules, const Roaming&) { return Rules.KingWin != 0 && Rules.WinAtPromo != 0; },
     "A king wins only when it comes back to its own side, for the two rules are on together: the first king wins "
     "nothing."},
    {"WinAtPromo", [](const R& Rules, const Roaming& P) { return Rules.WinAtPromo != 0 && !P.MayHaveKings(); },
     "There can never be a king in this game, so none comes back."},
    {"ThreeKings", [](const R& Rules, const Roaming& P) { return Rules.ThreeKings != 0 && !P.MayHaveKings(); },
     "There can never be a king in this game, so three against one never come about."},
    {"TwoKings", [](const R& Rules, const Roaming& P) { return Rules.TwoKings != 0 && !P.MayHaveKings(); },
     "There can never be a king in this game, so two against one never come about."},
    {"NumberKings", [](const R& Rules, const Roaming&) { return Rules.ThreeKings != 0 && Rules.NumberKings == 0; },
     "Three kings against one are drawn after no moves: as soon as they stand on the board for another half-move."},
    {"NumberKings", [](const R& Rules, const Roaming&) { return Rules.ThreeKings == 0 && Rules.NumberKings != 0; },
     "Three kings against one are not drawn in this game, so the number of moves does nothing."},
    {"NumberKings2", [](const R& Rules, const Roaming&) { return Rules.TwoKings != 0 && Rules.NumberKings2 <= 0; },
     "Two kings against one are drawn after no moves: as soon as they stand on the board for another half-move."},
    {"NumberKings2", [](const R& Rules, const Roaming&) { return Rules.TwoKings == 0 && Rules.NumberKings2 != 0; },
     "Two kings against one are not drawn in this game, so the number of moves does nothing."},
    // The start
    {"BlackStarts", [](const R& Rules, const Roaming&) { return Rules.BlackStarts != 0 && Rules.RndColor != 0; },
     "Lots are drawn for the first move, so it does not matter that Black begins."},
    {"NumberMen", [](const R& Rules, const Roaming&) { return Rules.RemoveMen != 0 && Rules.NumberMen == 0; },
     "Men are taken off the board by lot, but their number is 0: all of them stay."},
    {"NumberMen", [](const R& Rules, const Roaming&) { return Rules.RemoveMen == 0 && Rules.NumberMen != 0; },
     "No men are taken off the board by lot, so their number does nothing."},
    {"NumberMoves", [](const R& Rules, const Roaming&) { return Rules.DoMoves != 0 && Rules.NumberMoves == 0; },
     "The game begins with moves drawn by lot, but their number is 0: none is played."},
    {"NumberMoves", [](const R& Rules, const Roaming&) { return Rules.DoMoves == 0 && Rules.NumberMoves != 0; },
     "The game does not begin with moves drawn by lot, so their number does nothing."},
    {"ContractNumber",
     [](const R& Rules, const Roaming&) { return Rules.canContract != 0 && Rules.ContractNumber <= 0; },
     "Pieces may enter from off the board, but nobody has any in hand."},
    {"ContractNumber",
     [](const R& Rules, const Roaming&) { return Rules.canContract == 0 && Rules.ContractNumber != 0; },
     "Each side has pieces in hand, but none may ever enter the board."},
};

// --- the check ---------------------------------------------------------------------------------------------

class Check {
public:
    Check(const RuleSetFields& InRules, std::string_view Setup)
        : Rules(InRules), State(std::make_unique<RulesState>()) {
        ResetRules(*State);
        if (!Setup.empty() && !IsSetupText(Setup)) {
            throw base::Fault("a start position has a hundred digits, 0 to 4");
        }
        State->RuleSet = Rules;
        State->LoadedRuleSet = Rules;
        LaySetup(*State, Setup);
        Laid = AllPieces(*State);
        StartRulesGame(*State);
        Played = PlayedCells(*State);
        if (Laid.Any() && (Laid & Played).None() && (AllPieces(*State) & Played).None()) {
            FitMenToColour(*State);
        }
    }

    std::vector<RuleWarning> Run() {
        CheckFlags();
        CheckStartPosition();
        CheckMovementTexts();
        CheckEntries();
        const CellSet Sides[] = {PiecesOf(*State, White), PiecesOf(*State, Black)};
        if (Sides[0].None() || Sides[1].None()) {
            return std::move(Warnings); // where pieces get and what they take can't be told without an enemy
        }
        const Roaming Pieces(*State);
        CheckMovements(Pieces);
        CheckColourOfSquares(Pieces);
        CheckPromotion(Pieces);
        CheckVoidRules(Pieces);
        CheckGoals(Pieces);
        CheckNumbersOfPieces();
        CheckFirstMove();
        return std::move(Warnings);
    }

private:
    void Warn(std::string_view Key, std::string Sentence) {
        Warnings.push_back({std::string(Key), std::move(Sentence)});
    }

    void CheckFlags() {
        for (const RuleKey& Key : RuleKeys()) {
            const bool Counts = Key.Name.starts_with("Number") || Key.Name.starts_with("Contract");
            const int Highest = Key.Name == "PiecesOnBlack" ? 2 : 1;
            const std::int32_t Value = Key.Read(Rules);
            if (!Counts && (Value < 0 || Value > Highest)) {
                Warn(Key.Name, "The value " + std::to_string(Value) + " is neither 0 for no nor 1 for yes" +
                                   (Highest == 2 ? " nor 2 for all squares" : "") +
                                   ": in play it counts as yes in one place and as no in another.");
            }
        }
    }

    void CheckStartPosition() {
        for (const int Colour : {0, 1}) {
            if (PiecesOf(*State, Colour == 0 ? White : Black).None()) {
                Warn("Setup", std::string(Owners[Colour]) +
                                  " has no piece on the board at the start: the game is over before it begins.");
            }
        }
        // Where all stand on the other colour, they are moved over.
        const CellSet Astray = Laid.Without(Played);
        if (Astray.Any() && (Laid & Played).Any()) {
            Warn("Setup", "Pieces stand on squares that are not played on: " + SquareList(Astray) +
                              ". Only if all of them stood on such squares would they be moved to the others.");
        }
    }

    void CheckMovementTexts() {
        constexpr std::string_view Lists[2] = {"steps", "captures"};
        for (int Index = 0; Index < PieceIndices; ++Index) {
            const std::string_view Text = Rules.MovementStrings[Index].View();
            const std::size_t Blank = std::min(Text.find(' '), Text.size());
            const std::string_view Parts[2] = {Text.substr(0, Blank), Text.substr(std::min(Blank + 1, Text.size()))};
            for (int List = 0; List < 2; ++List) {
                const DirectionColumn& Column = State->MoveDirections[Index + 4 * List];
                CheckWords(Index, Parts[List], Column, Lists[List]);
            }
        }
    }

    void CheckWords(int Index, std::string_view Text, const DirectionColumn& Column, std::string_view List) {
        const auto Read = static_cast<std::size_t>(StepCount(Column));
        const std::string Whose = "The list of " + std::string(List) + " of " + std::string(Kinds[Index]);
        for (std::size_t Word = 0; Word < Read; ++Word) {
            Text.remove_prefix(std::min(Text.find(';'), Text.size() - 1) + 1);
        }
        if (Text.find_first_not_of("; ") != std::string_view::npos) {
            Warn(MovementKeys[Index], Read == DirectionEntries - 1
                                          ? Whose + " has more than eight directions: the ninth and what follows are "
                                                    "not read."
                                          : Whose + " is cut short: \"" + std::string(Text.substr(0, Text.find(';'))) +
                                                "\" is no direction, and what follows it is not read.");
        }
        if (std::set<std::int16_t>(Column.begin(), Column.begin() + Read).size() != Read) {
            Warn(MovementKeys[Index], Whose + " names a direction twice: its moves are listed twice.");
        }
    }

    void CheckEntries() {
        if (Rules.canContract == 0) {
            return;
        }
        constexpr std::string_view Keys[2][2] = {{"ContractW1", "ContractW2"}, {"ContractB1", "ContractB2"}};
        const std::int32_t Values[2][2] = {{Rules.ContractW1, Rules.ContractW2}, {Rules.ContractB1, Rules.ContractB2}};
        for (const int Colour : {0, 1}) {
            const std::string Owner(Owners[Colour]);
            const EntryRows Rows = EntryRowsOf(Rules, Colour);
            for (const int Which : {0, 1}) {
                if (!IsBoardRow(Values[Colour][Which])) {
                    Warn(Keys[Colour][Which],
                         "There is no row " + std::to_string(Values[Colour][Which]) +
                             ": they run from 2 at the bottom to 11 at the top. " + Owner +
                             (Which == 0 ? " can't enter a piece." : "'s entries look at a row off the board."));
                }
            }
            if (IsBoardRow(Values[Colour][0]) && IsBoardRow(Values[Colour][1]) && !IsBoardRow(Rows.Free)) {
                Warn(Keys[Colour][1],
                     std::string("The row that must be free is counted from the row of entry away from ")
                         .append(Owner)
                         .append("'s side, and lies off the board: ")
                         .append(Owner)
                         .append(" can't enter a piece."));
            }
        }
    }

    void CheckMovements(const Roaming& Pieces) {
        bool SomebodyCaptures = false;
        for (int Index = 0; Index < PieceIndices; ++Index) {
            SomebodyCaptures |= Pieces.May(Index) && StepCount(State->MoveDirections[Index + 4]) > 0;
        }
        for (int Index = 0; Index < PieceIndices; ++Index) {
            if (!Pieces.May(Index)) {
                continue;
            }
            const std::string Kind(Kinds[Index]);
            const int Captures = StepCount(State->MoveDirections[Index + 4]);
            int Idle = 0;
            std::string IdleWords;
            std::string_view Words = Rules.MovementStrings[Index].View();
            Words.remove_prefix(std::min(Words.find(' ') + 1, Words.size()));
            for (int Entry = 0; Entry < Captures; ++Entry) {
                const std::string_view Word = Words.substr(0, Words.find(';'));
                if (!Pieces.MayTake(Index, Entry)) {
                    IdleWords.append(Idle++ == 0 ? "" : ", ").append(Word);
                }
                Words.remove_prefix(std::min(Word.size() + 1, Words.size()));
            }
            if (Captures == 0 && StepCount(State->MoveDirections[Index]) == 0) {
                Warn(MovementKeys[Index], Kind + " have no direction to step or to capture in: they can never move.");
            } else if (Captures == 0 && SomebodyCaptures) {
                Warn(MovementKeys[Index], Kind + " have no direction to capture in: they can never capture. Captures "
                                                 "are listed behind a blank.");
            } else if (Idle > 0) {
                Warn(MovementKeys[Index], std::string(Kind)
                                              .append(" never capture in these directions: ")
                                              .append(IdleWords)
                                              .append(". From where they can get, no enemy ever stands there with a "
                                                      "square behind it."));
            }
        }
    }

    void CheckColourOfSquares(const Roaming& Pieces) {
        if (Rules.PiecesOnBlack == 0 && IsSideways(*State)) {
            Warn("PiecesOnBlack", "A step to the side leads to every square, so all of them are played on, whatever is "
                                  "chosen here.");
        }
        CellSet Reached;
        for (int Index = 0; Index < PieceIndices; ++Index) {
            Reached |= Pieces.StandsOn(Index);
        }
        if ((AllPieces(*State).Without(Played)).None() && Reached.Without(Played).Any()) {
            Warn("PiecesOnBlack",
                 "Straight steps can lead to squares of the colour that is not played on, which have no "
                 "number. Let all squares be played on (2).");
        }
    }

    void CheckPromotion(const Roaming& Pieces) {
        bool MayHaveSquares[2];
        for (const int Colour : {0, 1}) {
            MayHaveSquares[Colour] = Pieces.May(Colour) && State->PromotionSet[Colour].Any();
        }
        for (const int Colour : {0, 1}) {
            const std::string Owner(Owners[Colour]);
            const CellSet Squares = State->PromotionSet[Colour];
            if (const CellSet Astray = Squares.Without(Played); Astray.Any()) {
                Warn(PromotionKeys[Colour],
                     "Promotion squares that are not played on: " + SquareList(Astray) + ". Nobody is crowned there.");
            }
            // Where men of neither side are crowned, a game without kings is meant.
            if (Pieces.May(Colour) && Squares.None() && MayHaveSquares[1 - Colour]) {
                Warn(PromotionKeys[Colour],
                     Owner + " has men but no promotion square: " +
                         (Rules.ManKing == 1 ? "only the last one becomes a king." : "they can never become kings."));
            }
            const CellSet Men = State->Pieces[Colour];
            if ((Squares & Played).None() || Men.None()) {
                continue;
            }
            const CellSet Good = Pieces.MayBeCrownedFrom(Colour);
            const CellSet Lost = Men.Without(Good);
            if ((Pieces.StandsOn(Colour) & Good).None()) {
                Warn(PromotionKeys[Colour], Owner + "'s men can never come to one of these squares: by their steps and "
                                                    "captures all of them are out of reach.");
            } else if (2 * Lost.Count() > Men.Count()) {
                // Some that can't are usual where the promotion squares lie in a corner.
                Warn(PromotionKeys[Colour], "Most of " + Owner +
                                                "'s men can never come to one of these squares from where they "
                                                "start: " +
                                                SquareList(Lost) + ".");
            }
        }
    }

    void CheckVoidRules(const Roaming& Pieces) {
        std::string_view Told;
        for (const VoidRule& Row : VoidRules) {
            if (Row.Key != Told && Row.Applies(Rules, Pieces)) {
                Told = Row.Key;
                Warn(Row.Key, std::string(Row.Sentence));
            }
        }
    }

    /// Rules by which a king wins on a square.
    void CheckGoals(const Roaming& Pieces) {
        const bool Returns = Rules.WinAtPromo != 0;
        if ((!Returns && Rules.KingWin == 0) || !Pieces.MayHaveKings()) {
            return;
        }
        const std::string_view Key = Returns ? "WinAtPromo" : "KingWin";
        if (State->PromotionSet[0].None() && State->PromotionSet[1].None()) {
            Warn(Key, "There are no promotion squares, and a king wins only on one of them: nobody can win so.");
        }
        for (const int Colour : {0, 1}) {
            const CellSet Goals = State->PromotionSet[Returns ? 1 - Colour : Colour];
            if ((State->Pieces[Colour + 2] & Goals).Any()) {
                Warn(Key, "A king of " + std::string(Owners[Colour]) +
                              " stands on a winning square at the start: the game is over at once.");
            }
        }
        const bool Shared = (State->PromotionSet[0] & State->PromotionSet[1]).Any();
        if (Rules.ChangeSide == 1 && Pieces.MayCrown() && (Returns || !Shared)) {
            Warn(Key, Returns
                          ? "A new king changes its colour and stands at once where it wins for its new side: the "
                            "first crowning ends the game."
                          : "A new king changes its colour and stands on the squares of its old side, where it wins "
                            "nothing: the first crowning does not end the game.");
        }
    }

    void CheckNumbersOfPieces() {
        if (Rules.NumberPieces < 0) {
            Warn("NumberPieces", "A number below 0 is never reached, not even by a side without pieces.");
        }
        for (const int Colour : {0, 1}) {
            const std::string Owner(Owners[Colour]);
            const int Count = PiecesOf(*State, Colour == 0 ? White : Black).Count();
            const int Drawn = Rules.RemoveMen == 1 ? std::min<int>(Rules.NumberMen, Count - 1) : 0;
            if (Rules.RemoveMen == 1 && Rules.NumberMen >= Count) {
                Warn("NumberMen",
                     Owner + " has only " + std::to_string(Count) +
                         " on the board at the start, and one piece always stays: " + std::to_string(Drawn) +
                         " can be taken off, not " + std::to_string(Rules.NumberMen) + ".");
            }
            if (Rules.NumberPieces > 0 && Count - Drawn <= Rules.NumberPieces) {
                Warn("NumberPieces", Owner + " starts with " + std::to_string(Count - Drawn) +
                                         " on the board, and a side with " + std::to_string(Rules.NumberPieces) +
                                         " or fewer is beaten: the game is over at once.");
            }
        }
    }

    void CheckFirstMove() {
        if (Rules.RemoveMen == 1) {
            return; // the lot may free the way
        }
        for (const std::int32_t Side : {White, Black}) {
            if (Side != State->Side && Rules.RndColor != 1) {
                continue;
            }
            const std::string Owner(Owners[ColourIndex(Side)]);
            const std::int32_t Before = std::exchange(State->Side, Side);
            try {
                GenerateLegalMoves(*State);
                if (MoveCountOfPly(*State) == 0) {
                    Warn("Setup", Owner + " begins and has no move: the game is over before it begins.");
                }
            } catch (const GeneratorFault&) {
                Warn("Setup", Owner + "'s first moves can't be worked out by these rules: the program would stop with "
                                      "an error.");
                return; // the board is not to be trusted now
            }
            State->Side = Before;
        }
    }

    const RuleSetFields& Rules;
    std::unique_ptr<RulesState> State; ///< the rules installed and the start position laid, the men on their colour
    CellSet Laid;                      ///< the pieces as the start position has them
    CellSet Played;                    ///< the squares that are played on
    std::vector<RuleWarning> Warnings;
};

} // namespace

std::vector<RuleWarning> CheckRules(const RuleSetFields& Rules, std::string_view Setup) {
    return Check(Rules, Setup).Run();
}

} // namespace zonterbrook::rules
