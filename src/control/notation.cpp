// The notation in force and the texts that are written in it.
//
// Writes the notation, the rows of the record and the lists made from them. Texts that have no record behind them, the
// calculation above all, are converted word by word.
#include "control/notation.h"

#include "base/text.h"
#include "control/record.h"
#include "rules/square_names.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

using rules::Notation;

bool SameWords(Notation ModeA, Notation ModeB) {
    return (ModeA == Notation::Algebraic) == (ModeB == Notation::Algebraic);
}

// Reads and writes squares in a notation that need not be the one in force.
class InNotation {
public:
    InNotation(GameState& InState, Notation Mode) : State(InState), Before(InState.NotationMode) {
        State.NotationMode = Mode;
    }
    ~InNotation() { State.NotationMode = Before; }
    InNotation(const InNotation&) = delete;
    InNotation& operator=(const InNotation&) = delete;

private:
    GameState& State;
    Notation Before;
};

bool IsSquareCharacter(char C, Notation Mode) {
    const bool Digit = C >= '0' && C <= '9';
    return Mode == Notation::Algebraic ? Digit || (C >= 'a' && C <= 'j') : Digit;
}

// The length of the square's name that `Text` begins with, 0 if it begins with none.
std::size_t SquareLength(std::string_view Text, Notation Mode) {
    std::size_t Length = 0;
    while (Length < Text.size() && Length < 2 && IsSquareCharacter(Text[Length], Mode)) {
        ++Length;
    }
    return Mode == Notation::Algebraic && Length < 2 ? 0 : Length;
}

std::string ConvertSquare(GameState& State, std::string_view Square, Notation From, Notation To) {
    int Cell = 0;
    {
        const InNotation Reading(State, From);
        Cell = rules::SquareNumber(State, base::ToUpper(Square));
    }
    const InNotation Writing(State, To);
    return Cell == 0 ? std::string() : rules::SquareNotation(State, Cell, rules::Padding::None);
}

// One word if it is a move: two squares with a hyphen or capture character between them, and marks behind. `Expected`:
// a move stands here, so a lone square is one, a piece that enters.
std::string ConvertWord(GameState& State, std::string_view Word, bool Expected, Notation From, Notation To) {
    const std::size_t First = SquareLength(Word, From);
    const bool Joined =
        First > 0 && First < Word.size() && (Word[First] == '-' || Word[First] == 'x' || Word[First] == ':');
    const std::size_t Second = Joined ? SquareLength(Word.substr(First + 1), From) : 0;
    if (First == 0 || (Second == 0 && (Joined || !Expected))) {
        return std::string(Word);
    }
    const std::string Source = ConvertSquare(State, Word.substr(0, First), From, To);
    if (Second == 0) {
        return Source.empty() ? std::string(Word) : Source + std::string(Word.substr(First));
    }
    const std::string Dest = ConvertSquare(State, Word.substr(First + 1, Second), From, To);
    if (Source.empty() || Dest.empty()) {
        return std::string(Word);
    }
    return Source + Word[First] + Dest + std::string(Word.substr(First + 1 + Second));
}

// Rewrites the rows of the record from the moves that were played, and the list from the rows.
void RewriteRecord(GameState& State) {
    const int Rows = static_cast<int>(State.GameList.Lines.size());
    for (int HalfMove = 1; HalfMove <= Rows; ++HalfMove) {
        const rules::MoveRecord& Record = State.PlayedMoves[HalfMove].Record;
        const bool FromBook = StoredDisplay(State, HalfMove).ends_with('b');
        std::string Display = rules::SquareNotation(State, Record.Source, rules::Padding::None);
        if (!Display.empty()) {
            Display += Record.Captures.Count == 0 ? '-' : State.CaptureChar;
        }
        Display += rules::SquareNotation(State, Record.Dest, rules::Padding::None);
        Display += Record.Kind != 0 ? "K" : "";
        Display += FromBook ? "b" : "";
        GameMoveRowFields& Row = State.GameMoveRow[(HalfMove + 1) / 2];
        (HalfMove % 2 == 1 ? Row.FirstMove : Row.SecondMove) = RawTextOf(State, Record) + " " + Display;
        State.GameList.Lines[static_cast<std::size_t>(HalfMove - 1)] = view::MoveListLine(HalfMove, Display);
    }
}

view::CommandId EntryOf(Notation Mode) {
    switch (Mode) {
    case Notation::Algebraic:
        return view::CommandId::mnu_Board_Notation_Chess;
    case Notation::Numeric:
        return view::CommandId::mnu_Board_Notation_Checkers;
    default:
        return view::CommandId::Nonotation;
    }
}

} // namespace

std::string ConvertMoves(GameState& State, std::string_view Text, Notation From, Notation To) {
    std::string Result;
    bool InMainLine = false;
    bool AfterBest = false;
    while (!Text.empty()) {
        const std::size_t End = std::min(Text.find_first_of(" \n"), Text.size());
        const std::string_view Word = Text.substr(0, End);
        Result += ConvertWord(State, Word, InMainLine || AfterBest, From, To);
        InMainLine = InMainLine || Word == "Main:";
        AfterBest = Word.empty() ? AfterBest : Word == "Best:";
        if (End < Text.size()) {
            Result += Text[End];
            InMainLine = InMainLine && Text[End] != '\n';
        }
        Text.remove_prefix(std::min(End + 1, Text.size()));
    }
    return Result;
}

void SetNotation(GameState& State, Notation Mode) {
    const Notation Before = State.NotationMode;
    // Numbers exist for fifty squares only; and "None" names moves by number, which would name the wrong squares here.
    if (Mode != Notation::Algebraic && State.RuleSet.PiecesOnBlack == 2) {
        return;
    }
    view::ChooseRadio(State, EntryOf(Mode));
    State.NotationMode = Mode;
    if (!SameWords(Before, Mode)) {
        const std::int32_t Selected = State.GameList.Selected;
        RewriteRecord(State);
        State.GameList.Selected = Selected;
        State.Calculation.Text = ConvertMoves(State, State.Calculation.Text, Before, Mode);
        State.StatusText = ConvertMoves(State, State.StatusText, Before, Mode);
        if (!State.RootList.Lines.empty()) {
            const std::int32_t SelectedRoot = State.RootList.Selected;
            view::ShowRootMoves(State);
            State.RootList.Selected = SelectedRoot;
        }
    }
    view::DrawBoard(State, 0);
    State.SourcesShown = 0;
    view::RefreshMoveChoices(State);
}

} // namespace zonterbrook::control
