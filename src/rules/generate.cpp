// The generators: one frame over the board, the plain moves, the entries from off the board, and the capture walk.
//
// Writes the move stack, the limits of the ply and the capture rows; leaves the position as it was.
#include "rules/generate.h"

#include "rules/capture_rows.h"
#include "rules/capture_walk.h"
#include "rules/install.h"
#include "rules/move_writer.h"
#include "rules/position.h"
#include "rules/walk_rules.h"

#include <string>

namespace zonterbrook::rules {

namespace {

/// What a fault's message tells of the call: kept outside the call, so that the trap still sees it.
struct CallFigures {
    int Kings = 0;
    int PathLength = 0;
    int Longest = 0;
};

/// The pieces of the side to move that have a first jump, or that need a walk to find out.
template <typename Rules>
CellSet PossibleCapturers(const RulesState& State, const Rules& Rule) {
    const int Own = ColourIndex(State.Side);
    const CellSet EnemyMen = State.Pieces[1 - Own];
    const CellSet EnemyKings = State.Pieces[3 - Own];
    const CellSet Enemies = EnemyMen | EnemyKings;
    if (Enemies.None()) {
        return {};
    }
    const CellSet Free = PlayingCells.Without(AllPieces(State));
    const auto Jumpers = [&](CellSet Pieces, CellSet Prey, int Index) {
        CellSet Result;
        for (const std::int16_t Step : State.MoveDirections[Index + 4]) {
            if (Step == DirectionSentinel) {
                break;
            }
            const CellSet Facing = Pieces & Prey.Moved(-Step);
            if (Facing.Any()) {
                Result |= Facing & Free.Moved(-2 * Step);
            }
        }
        return Result;
    };
    const CellSet Men = State.Pieces[Own];
    const CellSet Kings = State.Pieces[Own + 2];
    CellSet Result = Rule.ManCapMoveKing ? Men : Jumpers(Men, Rule.ManCapKing ? Enemies : EnemyMen, Own);
    if (Kings.Any()) {
        Result |= Rule.LongKings ? Kings : Jumpers(Kings, Enemies, Own + 2);
    }
    return Result;
}

/// The own pieces that have a plain move at all: one step of theirs leads to a free cell. With jumps over friends any
/// piece may have one.
template <typename Rules>
CellSet PossibleMovers(const RulesState& State, const Rules& Rule) {
    const CellSet Own = PiecesOf(State, State.Side);
    if (Rule.JumpFriend) {
        return Own;
    }
    const CellSet Free = PlayingCells.Without(AllPieces(State));
    CellSet Result;
    for (int Index = ColourIndex(State.Side); Index < PieceIndices; Index += 2) {
        const CellSet Pieces = State.Pieces[Index];
        if (Pieces.None()) {
            continue;
        }
        for (const std::int16_t Step : State.MoveDirections[Index]) {
            if (Step == DirectionSentinel) {
                break;
            }
            Result |= Pieces & Free.Moved(-Step);
        }
    }
    return Result;
}

/// A plain jump over a straight run of pieces like the mover, if the rules have it and the run fits: the cell behind
/// it, or 0.
int FriendJump(const RulesState& State, int Next, int Step, std::int32_t Code) {
    int Length = 0;
    int Cell = Next;
    while (State.Board[Cell] == Code) {
        ++Length;
        Cell += Step;
    }
    const bool Fits = State.RuleSet.NumberFriends == -1 || State.RuleSet.NumberFriends == Length;
    return State.Board[Cell] == Empty && Fits ? Cell : 0;
}

/// Whether a jump over friends promotes. Black kings are asked too, and overrun the promotion table: such a jump has
/// always been the end of the program, and variants rely on nothing else.
bool FriendJumpPromotes(const RulesState& State, std::int32_t Code, int Dest) {
    if (Code == WhiteKing) {
        return false;
    }
    return State.JumpPromotionSet[PieceIndex(Code)].Contains(Dest);
}

/// Visits the plain moves of the piece on `Cell` in column order as `Take(Dest, Promotes)` until one answers true.
template <typename Rules, typename Visitor>
bool VisitPlainMoves(const RulesState& State, const Rules& Rule, int Cell, bool FirstCellOfLine, Visitor&& Take) {
    const std::int32_t Code = State.Board[Cell];
    const int Index = PieceIndex(Code);
    const bool Flying = Rule.LongKings && IsKing(Code);
    for (const std::int16_t Step : State.MoveDirections[Index]) {
        if (Step == DirectionSentinel) {
            break;
        }
        int Dest = Cell + Step;
        const std::int32_t Value = State.Board[Dest];
        if (Value == Empty) {
            if (Flying) {
                do {
                    if (Take(Dest, false)) {
                        return true;
                    }
                    Dest += Step;
                } while (!FirstCellOfLine && State.Board[Dest] == Empty);
            } else if (Take(Dest, IsMan(Code) && Rule.Promotion[Index].Contains(Dest))) {
                return true;
            }
        } else if (Rule.JumpFriend && !Flying && Value == Code) {
            Dest = FriendJump(State, Dest, Step, Code);
            if (Dest != 0 && Take(Dest, FriendJumpPromotes(State, Code, Dest))) {
                return true;
            }
        }
    }
    return false;
}

/// Where a side may enter pieces: a mailbox row as a range of cells, and how far off the row that must be free is.
/// The legal-move test reckons with rows of ten, so the two do not agree; only variants with entries that also draw
/// without a move can tell.
template <int Width>
bool MayEnter(const RulesState& State, int Cell) {
    const RuleSetFields& Rules = State.RuleSet;
    if (Rules.PiecesOnBlack != 2 && !IsPlayingSquare(State, Cell)) {
        return false;
    }
    const bool IsWhite = State.Side == White;
    const std::int64_t First = IsWhite ? Rules.ContractW1 : Rules.ContractB1;
    const std::int64_t Last = IsWhite ? Rules.ContractW2 : Rules.ContractB2;
    const int InHand = IsWhite ? State.PiecesInHandWhite : State.PiecesInHandBlack;
    if (State.Board[Cell] != Empty || InHand < 1 || Cell <= First * Width || Cell >= First * Width + Width - 1) {
        return false;
    }
    const std::int64_t Distance = (First > Last ? First - Last : Last - First) * Width;
    return State.Board[IsWhite ? Cell + Distance : Cell - Distance] == Empty;
}

template <typename Rules>
void RegisterPlainMoves(const RulesState& State, const Rules& Rule, MoveWriter& Writer, int Cell) {
    static constexpr CapturePath NoCaptures{};
    VisitPlainMoves(State, Rule, Cell, false, [&](int Dest, bool Promotes) {
        if (Promotes) {
            Writer.RegisterPromotion(Cell, Dest, NoCaptures);
        } else {
            Writer.RegisterMove(Cell, Dest);
        }
        return false;
    });
}

/// The plain moves of all pieces and the entries, in the order of the cells.
template <typename Rules>
void RegisterAllPlainMoves(const RulesState& State, const Rules& Rule, MoveWriter& Writer) {
    const CellSet Movers = PossibleMovers(State, Rule);
    const CellSet Cells = Rule.Entries ? PlayingCells : Movers;
    Cells.ForEach([&](int Cell) {
        if (!Rule.Entries || Movers.Contains(Cell)) {
            RegisterPlainMoves(State, Rule, Writer, Cell);
        }
        if (Rule.Entries && MayEnter<RowWidth>(State, Cell)) {
            Writer.RegisterMove(FromHand, Cell);
        }
    });
}

/// What a generator is asked for.
enum class Wanted {
    Captures,
    All,
    CapturesElsePlain ///< plain moves only if no piece can capture anything, filtered or not
};

/// The captures of a rule set without filters, beside the plain moves of each piece if they are wanted.
template <typename Rules>
void RegisterUnfiltered(RulesState& State, const Rules& Rule, MoveWriter& Writer, bool Plain) {
    const CellSet Capturers = PossibleCapturers(State, Rule);
    CaptureStack Stack(Writer);
    CaptureWalk Walk(State, Rule, Stack);
    const CellSet Cells = Plain ? PiecesOf(State, State.Side) : Capturers;
    Cells.ForEach([&](int Cell) {
        if (Plain) {
            RegisterPlainMoves(State, Rule, Writer, Cell);
        }
        if (Capturers.Contains(Cell)) {
            Walk.Run(Cell);
        }
    });
}

/// The captures that stand. `DropsPlain`: a capture of the piece that moved last does away with the plain moves that
/// have been written from `Base` on. Returns false if there was none to begin with.
template <typename Rules>
bool RegisterCaptures(RulesState& State, const Rules& Rule, MoveWriter& Writer, bool DropsPlain, int Base,
                      CallFigures& Figures) {
    State.CaptureRow.Count = 0;
    const CellSet Capturers = PossibleCapturers(State, Rule);
    if (Capturers.None()) {
        return false;
    }
    CaptureRowList Rows(State.CaptureRow);
    CaptureWalk Walk(State, Rule, Rows);
    try {
        Capturers.ForEach([&](int Cell) { Walk.Run(Cell); });
        if (Rows.Count() == 0) {
            return false;
        }
        if (DropsPlain && Rows.HasLastCap()) {
            Writer.Restart(Base);
        }
        Rows.Filter(Rule, State.CaptureRow, [&](const CaptureRowFields& Row) {
            if (Row.Promotes != 0) {
                Writer.RegisterPromotion(Row.Source, Row.Dest, Row.Text);
            } else {
                Writer.RegisterCaptureMove(Row.Source, Row.Dest, Row.Text);
            }
            return false;
        });
    } catch (const base::Fault&) {
        Figures = {Rows.KingsCounted(), Walk.PathLength() * 4, Rows.Longest() * 4};
        throw;
    }
    return true;
}

/// One generator call.
template <typename Rules>
void Generate(RulesState& State, const Rules& Rule, Wanted What, bool DropsPlain, CallFigures& Figures) {
    const int Base = State.StackLimit[State.Ply];
    MoveWriter Writer(State, Base);
    if constexpr (Rules::RegistersAtOnce) {
        RegisterUnfiltered(State, Rule, Writer, What == Wanted::All);
        if (What == Wanted::CapturesElsePlain && Writer.IsAt(Base)) {
            RegisterAllPlainMoves(State, Rule, Writer);
        }
    } else {
        // Captures go to the stack behind all plain moves, so the two passes over the board need not be one.
        if (What == Wanted::All) {
            RegisterAllPlainMoves(State, Rule, Writer);
        }
        const bool Any = RegisterCaptures(State, Rule, Writer, DropsPlain, Base, Figures);
        if (What == Wanted::CapturesElsePlain && !Any) {
            RegisterAllPlainMoves(State, Rule, Writer);
        }
    }
    Writer.Finish();
}

/// Runs `Work` under a generator's trap.
template <typename Routine>
auto Trapped(std::string_view Name, const CallFigures& Figures, Routine&& Work) {
    try {
        return Work();
    } catch (const base::Fault&) {
        if (Name == "GenerateMoves") {
            throw GeneratorFault(Name, "GenerateMoves:   J3=" + std::to_string(Figures.Kings) +
                                           "   Len(S1)=" + std::to_string(Figures.PathLength) +
                                           "   L=" + std::to_string(Figures.Longest));
        }
        // The name in the legal-move test's message is an old one of the program. Wanted as it stands.
        throw GeneratorFault(Name, Name == "GenerateMoves1" ? "Fatal Error! Ombrestonefield will exit."
                                                            : "Fatal Error! Zonterbrook will exit.");
    }
}

template <typename Rules>
void GenerateBy(RulesState& State, int AllMoves, std::string_view Name) {
    CallFigures Figures;
    Trapped(Name, Figures, [&] {
        const Rules Rule(State);
        // Where captures are optional, asking for them alone gives the plain moves too; a negative wish never does.
        const bool Plain = AllMoves > 0 || (AllMoves == 0 && !Rule.CapRequired);
        const bool DropsPlain = Rule.LastCap && AllMoves == 0 && !Rule.CapRequired;
        Generate(State, Rule, Plain ? Wanted::All : Wanted::Captures, DropsPlain, Figures);
    });
}

/// Captures, and all moves only if there is none. Where captures are mandatory the second call could only add the plain
/// moves, unless captures have been found and filtered away; so they are added straight away.
template <typename Rules>
void GenerateBothBy(RulesState& State, std::string_view Name) {
    CallFigures Figures;
    Trapped(Name, Figures, [&] {
        const Rules Rule(State);
        if (Rule.CapRequired) {
            Generate(State, Rule, Wanted::CapturesElsePlain, false, Figures);
        } else {
            Generate(State, Rule, Wanted::All, Rule.LastCap, Figures);
        }
        if (MoveCountOfPly(State) == 0) {
            Generate(State, Rule, Wanted::All, false, Figures);
        }
    });
}

} // namespace

void GenerateMoves(RulesState& State, int AllMoves) {
    GenerateBy<LiveRules>(State, AllMoves, "GenerateMoves");
}
void GenerateMovesAmerican(RulesState& State, int AllMoves) {
    GenerateBy<AmericanRules>(State, AllMoves, "GenerateMovesAmerican");
}
void GenerateMovesItalian(RulesState& State, int AllMoves) {
    GenerateBy<ItalianRules>(State, AllMoves, "GenerateMovesItalian");
}
void GenerateMovesGerman(RulesState& State, int AllMoves) {
    GenerateBy<GermanRules>(State, AllMoves, "GenerateMovesGerman");
}
void GenerateMovesRussian(RulesState& State, int AllMoves) {
    GenerateBy<RussianRules>(State, AllMoves, "GenerateMovesRussian");
}

void GenerateLegalMoves(RulesState& State) {
    GenerateBothBy<LiveRules>(State, "GenerateMoves");
}

const Generator& GeneratorOf(int SpecialRuleSet) {
    static constexpr base::CheckedArray<Generator, 5> Generators = {{
        {"GenerateMoves", GenerateMoves, GenerateLegalMoves},
        {"GenerateMovesAmerican", GenerateMovesAmerican,
         [](RulesState& State) { GenerateBothBy<AmericanRules>(State, "GenerateMovesAmerican"); }},
        {"GenerateMovesItalian", GenerateMovesItalian,
         [](RulesState& State) { GenerateBothBy<ItalianRules>(State, "GenerateMovesItalian"); }},
        {"GenerateMovesGerman", GenerateMovesGerman,
         [](RulesState& State) { GenerateBothBy<GermanRules>(State, "GenerateMovesGerman"); }},
        {"GenerateMovesRussian", GenerateMovesRussian,
         [](RulesState& State) { GenerateBothBy<RussianRules>(State, "GenerateMovesRussian"); }},
    }};
    return Generators[SpecialRuleSet];
}

void GenerateGameMoves(RulesState& State) {
    const GamePositionScope Scope(State);
    GenerateLegalMoves(State);
}

bool GenerateMoves1(RulesState& State, int AllMoves) {
    const CallFigures Figures;
    return Trapped("GenerateMoves1", Figures, [&] {
        const LiveRules Rule(State);
        MoveWriter Writer(State, State.StackTop);
        const bool Plain = AllMoves > 0 || (AllMoves == 0 && !Rule.CapRequired);
        const CellSet Own = PiecesOf(State, State.Side);
        const CellSet Capturers = PossibleCapturers(State, Rule);
        CaptureTable Table; // of its own: the test runs inside searches, whose generators' rows must stay
        CaptureRowList Rows(Table);
        CaptureWalk Walk(State, Rule, Rows);
        CellSet Cells = Plain && Rule.Entries ? PlayingCells : Own;
        while (Cells.Any()) {
            const int Cell = Cells.TakeFirst();
            if (Plain && Own.Contains(Cell) &&
                VisitPlainMoves(State, Rule, Cell, true, [](int, bool) { return true; })) {
                return true;
            }
            if (Capturers.Contains(Cell)) {
                Walk.Run(Cell);
            }
            // An entry is put on the stack and yet is no proof of a move: a side that can only enter pieces counts as
            // blocked. Wanted; the next generator call resets the stack.
            if (Plain && Rule.Entries && MayEnter<10>(State, Cell)) {
                Writer.RegisterMove(FromHand, Cell);
                Writer.FinishLoose();
            }
        }
        // `LastCap` clears the texts of the state's own table here, so in this test it drops no row. Wanted.
        return Rows.Filter(Rule, State.CaptureRow, [](const CaptureRowFields&) { return true; });
    });
}

} // namespace zonterbrook::rules
