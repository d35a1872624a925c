// Why a move can't be played.
#include "rules/refusal.h"

#include "rules/cells.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "rules/position.h"

#include <cstdlib>
#include <memory>
#include <span>

namespace zonterbrook::rules {

namespace {

constexpr std::string_view NoRule = "none";

/// A flag that can stand against a move with the value `Against`, and what that means.
struct FlagRow {
    std::string_view Key;
    std::int32_t Against;
    std::string_view Sentence;
    bool Flies = false; ///< changed, it lets pieces fly that did not
};

// In the order in which they teach best: what must be done before how it is to be done, the choice between captures
// before the way of a single one.
constexpr FlagRow Flags[] = {
    {"CapRequired", 1, "Capturing is compulsory: a piece that can capture has to."},
    {"LastCap", 1, "The piece that moved last can be captured, so it has to be."},
    {"KingCapMove", 1, "A king can capture, so a king has to: men may not."},
    {"MaxCapMoveKings", 1, "Another capture takes more kings, and the most have to be taken."},
    {"MaxCapMove", 1, "Another capture takes more pieces, and the most have to be taken."},
    {"MulJumps", 1, "A capture goes on as long as there is something to take."},
    {"MaxCapMoveK", 1, "A king has to finish the capture that it has begun: there is more on its way."},
    {"ManContJump", 0, "A man's capture ends on the promotion square."},
    {"ManContJump", 1, "A man that reaches the promotion square goes on capturing if it can."},
    {"ManContJumpCrowned", 0, "A man is not crowned in the middle of its capture.", true},
    {"ManContJumpCrowned", 1, "A man is crowned in the middle of its capture and goes on as a king."},
    {"ManCapKing", 0, "Men can't capture kings."},
    {"ManCapMoveKing", 0, "Men capture only what stands next to them.", true},
    {"LongKings", 0, "Kings go one square at a time.", true},
    {"KingFirst", 1, "A king lands directly behind the piece that it captures."},
    {"CapReverse", 0, "A king can't turn straight back in the middle of its capture.", true},
    {"RemovePieces", 1, "Captured pieces stay on the board until the move ends, and can't be passed."},
    {"RemovePieces", 0, "Captured pieces are no bar to a king, so its capture goes on."},
    {"JumpFriend", 0, "Pieces can't jump over their own."},
};

// So many of them choose between the pieces that may move at all.
constexpr std::size_t Choosing = 5;

constexpr std::string_view DiagonalSteps = "NW;NE;SE;SW";
constexpr std::string_view EveryStep = "NW;NE;SE;SW;N;E;S;W";

/// The same position, under rules that are changed for a question at a time.
class Question {
public:
    Question(const RulesState& State, int InSource, int InDest)
        : Scratch(std::make_unique<RulesState>(State)), Rules(State.RuleSet), Source(InSource), Dest(InDest) {
        Scratch->TouchedSquare = 0;
    }

    /// Whether the move stands under some rules.
    bool Stands(const RuleSetFields& Changed) {
        Scratch->RuleSet = Changed;
        InstallRuleSet(*Scratch);
        try {
            GenerateGameMoves(*Scratch);
        } catch (const GeneratorFault&) {
            return false; // the rules that were tried are more than the generators can do
        }
        for (int I = Scratch->StackLimit[Scratch->Ply]; I < Scratch->StackLimit[Scratch->Ply + 1]; ++I) {
            const MoveRecord& Move = Scratch->MoveStack[I];
            if (Move.Source == Source && (Dest == Anywhere || Move.Dest == Dest)) {
                return true;
            }
        }
        return false;
    }

    bool Stands() { return Stands(Rules); }

    bool StandsWithout(const FlagRow& Row) {
        const RuleKey& Key = *FindRuleKey(Row.Key);
        if (Key.Read(Rules) != Row.Against || (Row.Flies && TooMuchToFlyOver())) {
            return false;
        }
        RuleSetFields Changed = Rules;
        Key.Write(Changed, 1 - Row.Against);
        if (Row.Key == "JumpFriend") {
            Changed.NumberFriends = -1;
        }
        return Stands(Changed);
    }

    /// Whether it stands if the piece may step, or capture, in every direction there is on such a board.
    bool StandsInEveryDirection(int Index, bool Captures) {
        if (TooMuchToFlyOver()) {
            return false;
        }
        const std::string_view Now = Rules.MovementStrings[Index].View();
        const std::size_t Blank = Now.find(' ');
        const std::string_view All = Rules.PiecesOnBlack == 2 ? EveryStep : DiagonalSteps;
        const std::string Steps(Now.substr(0, Blank));
        const std::string Jumps(Blank == std::string_view::npos ? std::string_view() : Now.substr(Blank + 1));
        const std::string Text = Captures ? Steps + " " + std::string(All) : std::string(All) + " " + Jumps;
        RuleSetFields Changed = Rules;
        Changed.MovementStrings[Index] = base::MakeFixedText<127>(Text);
        return Stands(Changed);
    }

private:
    // A piece that flies in eight directions over many others walks longer than a person waits.
    bool TooMuchToFlyOver() const {
        constexpr int Many = 9;
        return Rules.PiecesOnBlack == 2 && PiecesOf(*Scratch, -Scratch->Side).Count() > Many;
    }

    std::unique_ptr<RulesState> Scratch;
    const RuleSetFields Rules;
    const int Source;
    const int Dest;
};

std::string Of(bool King, std::string_view Men, std::string_view Kings) {
    return std::string(King ? Kings : Men);
}

// The rule that a piece from off the board is refused by.
Refusal WhyNoEntry(const RulesState& State, Question& Asked, int Dest) {
    const bool White = State.Side > 0;
    if ((White ? State.PiecesInHandWhite : State.PiecesInHandBlack) < 1) {
        return {NoRule, "There are no pieces left off the board."};
    }
    if (Asked.StandsWithout(Flags[0])) {
        return {Flags[0].Key, std::string(Flags[0].Sentence)};
    }
    if (Dest != Anywhere) {
        RuleSetFields Changed = State.RuleSet;
        (White ? Changed.ContractW1 : Changed.ContractB1) = RowOf(Dest);
        (White ? Changed.ContractW2 : Changed.ContractB2) = RowOf(Dest);
        if (Asked.Stands(Changed)) {
            return {White ? "ContractW1" : "ContractB1",
                    "Pieces enter on another row, and only while the way is free."};
        }
    }
    return {NoRule, "A piece can't enter there."};
}

// What can be said where no single rule is the reason.
std::string PlainWords(const RulesState& State, int Source, int Dest, bool MustCapture) {
    const std::int32_t Piece = State.Board[Source];
    const bool King = std::abs(Piece) == 2;
    if (Dest == Anywhere) {
        return MustCapture ? "That piece has nothing to capture." : "That piece is shut in.";
    }
    if (Dest == Source) {
        return "A piece has to go to another square.";
    }
    if (State.Board[Dest] != Empty) {
        return "That square is not empty.";
    }
    if (State.RuleSet.PiecesOnBlack < 2 && !IsPlayingSquare(State, Dest)) {
        return "Pieces never stand on squares of that colour.";
    }
    if (MustCapture) {
        return Of(King, "You have to capture, and that is no capture of this man.",
                  "You have to capture, and that is no capture of this king.");
    }
    return Of(King, "A man can't get there in one move.", "A king can't get there in one move: the way is not free.");
}

} // namespace

Refusal WhyRefused(const RulesState& State, int Source, int Dest) {
    if (Source == Dest && State.RuleSet.canContract != 0 && State.Board[Dest] == Empty) {
        return WhyRefused(State, FromHand, Dest); // as a piece that enters is typed
    }
    Question Asked(State, Source, Dest);

    // 1. What no rule of the variant is to blame for.
    if (Source != FromHand && !IsPiece(State.Board[Source])) {
        return {NoRule, "No piece stands there."};
    }
    if (Source != FromHand && (State.Board[Source] > 0) != (State.Side > 0)) {
        return {NoRule, State.Side > 0 ? "It is White's turn: that is Black's piece."
                                       : "It is Black's turn: that is White's piece."};
    }
    if (Asked.Stands()) {
        const bool Touched = State.TouchMove == 1 && State.TouchedSquare >= 1 && Source != State.TouchedSquare;
        return Touched ? Refusal{"TouchMove", "The piece that was touched first has to be moved."}
                       : Refusal{NoRule, "That move can be played."};
    }
    if (Source == FromHand) {
        return WhyNoEntry(State, Asked, Dest);
    }

    // 2. One rule at a time.
    for (const FlagRow& Row : std::span(Flags).first(Dest == Anywhere ? Choosing : std::size(Flags))) {
        if (Asked.StandsWithout(Row)) {
            return {Row.Key, std::string(Row.Sentence)};
        }
    }
    if (Dest != Anywhere && State.RuleSet.JumpFriend == 1 && State.RuleSet.NumberFriends != -1) {
        RuleSetFields Changed = State.RuleSet;
        Changed.NumberFriends = -1;
        if (Asked.Stands(Changed)) {
            return {"NumberFriends", "Another number of own pieces has to be jumped."};
        }
    }
    const int Index = PieceIndex(State.Board[Source]);
    const bool King = std::abs(State.Board[Source]) == 2;
    if (Dest != Anywhere && Asked.StandsInEveryDirection(Index, false)) {
        return {MovementKeys[Index],
                Of(King, "Men don't step in that direction.", "Kings don't step in that direction.")};
    }
    if (Dest != Anywhere && Asked.StandsInEveryDirection(Index, true)) {
        return {MovementKeys[Index],
                Of(King, "Men don't capture in that direction.", "Kings don't capture in that direction.")};
    }

    // 3. None alone.
    auto Now = std::make_unique<RulesState>(State);
    GenerateGameMoves(*Now);
    bool MustCapture = false;
    for (int I = Now->StackLimit[Now->Ply]; I < Now->StackLimit[Now->Ply + 1]; ++I) {
        MustCapture = MustCapture || (Now->MoveStack[I].Captures.Count != 0 && State.RuleSet.CapRequired == 1);
    }
    return {NoRule, PlainWords(State, Source, Dest, MustCapture)};
}

} // namespace zonterbrook::rules
