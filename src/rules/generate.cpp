// The generators: one frame over the board, the plain moves, the entries from off the board, and the capture walk.
//
// Writes the move stack, the limits of the ply and the capture rows; leaves the position as it was.
#include "rules/generate.h"

#include "rules/capture_rows.h"
#include "rules/capture_walk.h"
#include "rules/install.h"
#include "rules/moves.h"
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
void RegisterPlainMoves(RulesState& State, const Rules& Rule, const MoveOrdering& Order, int Cell) {
    static constexpr CapturePath NoCaptures{};
    VisitPlainMoves(State, Rule, Cell, false, [&](int Dest, bool Promotes) {
        if (Promotes) {
            RegisterPromotion(State, Order, Cell, Dest, NoCaptures);
        } else {
            RegisterMove(State, Order, Cell, Dest);
        }
        return false;
    });
}

/// The plain moves of all pieces and the entries, in the order of the cells.
template <typename Rules>
void RegisterAllPlainMoves(RulesState& State, const Rules& Rule, const MoveOrdering& Order) {
    const CellSet Movers = PossibleMovers(State, Rule);
    CellSet Cells = Rule.Entries ? PlayingCells : Movers;
    while (Cells.Any()) {
        const int Cell = Cells.TakeFirst();
        if (!Rule.Entries || Movers.Contains(Cell)) {
            RegisterPlainMoves(State, Rule, Order, Cell);
        }
        if (Rule.Entries && MayEnter<RowWidth>(State, Cell)) {
            RegisterMove(State, Order, FromHand, Cell);
        }
    }
}

/// One generator call. Returns true if no capture was found at all, filtered or not.
template <typename Rules>
bool Generate(RulesState& State, const Rules& Rule, int AllMoves, CallFigures& Figures) {
    const MoveOrdering Order(State);
    const int Base = State.StackLimit[State.Ply];
    State.StackTop = Base;
    const bool Plain = AllMoves > 0 || (AllMoves == 0 && !Rule.CapRequired);
    CellSet Capturers = PossibleCapturers(State, Rule);

    if constexpr (Rules::RegistersAtOnce) {
        CellSet Cells = Plain ? PiecesOf(State, State.Side) : Capturers;
        CaptureStack Stack(State, Order);
        CaptureWalk Walk(State, Rule, Stack);
        while (Cells.Any()) {
            const int Cell = Cells.TakeFirst();
            if (Plain) {
                RegisterPlainMoves(State, Rule, Order, Cell);
            }
            if (Capturers.Contains(Cell)) {
                Walk.Run(Cell);
            }
        }
        State.StackLimit[State.Ply + 1] = State.StackTop;
        return Capturers.None();
    } else {
        // Captures go to the stack behind all plain moves, so the two passes need not be one.
        if (Plain) {
            RegisterAllPlainMoves(State, Rule, Order);
        }
        State.CaptureRow.Count = 0;
        bool NoCaptures = true;
        if (Capturers.Any()) {
            CaptureRowList Rows(State.CaptureRow);
            CaptureWalk Walk(State, Rule, Rows);
            const auto Note = [&] { Figures = {Rows.KingsCounted(), Walk.PathLength() * 4, Rows.Longest() * 4}; };
            try {
                while (Capturers.Any()) {
                    Walk.Run(Capturers.TakeFirst());
                }
                NoCaptures = Rows.Count() == 0;
                // With optional captures, the capture of the piece that moved last does away with the plain moves.
                if (Rule.LastCap && AllMoves == 0 && Rows.HasLastCap() && !Rule.CapRequired && !NoCaptures) {
                    State.StackTop = Base;
                }
                Rows.Filter(Rule, State.CaptureRow, [&](const CaptureRowFields& Row) {
                    if (Row.Promotes != 0) {
                        RegisterPromotion(State, Order, Row.Source, Row.Dest, Row.Text);
                    } else {
                        RegisterCaptureMove(State, Order, Row.Source, Row.Dest, Row.Text);
                    }
                    return false;
                });
            } catch (const base::Fault&) {
                Note();
                throw;
            }
        }
        State.StackLimit[State.Ply + 1] = State.StackTop;
        return NoCaptures;
    }
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
    Trapped(Name, Figures, [&] { Generate(State, Rules(State), AllMoves, Figures); });
}

/// Captures, and plain moves only if there is none. When the first call met no capture at all, a second one could only
/// add the plain moves, so they are added straight away.
template <typename Rules>
void GenerateBothBy(RulesState& State, std::string_view Name) {
    CallFigures Figures;
    Trapped(Name, Figures, [&] {
        const Rules Rule = Rules(State);
        const bool NoCaptures = Generate(State, Rule, 0, Figures);
        if (MoveCountOfPly(State) > 0) {
            return;
        }
        if (NoCaptures && Rule.CapRequired) {
            RegisterAllPlainMoves(State, Rule, MoveOrdering(State));
            State.StackLimit[State.Ply + 1] = State.StackTop;
        } else {
            Generate(State, Rule, 1, Figures);
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
        const MoveOrdering Order(State);
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
                RegisterMove(State, Order, FromHand, Cell);
            }
        }
        // `LastCap` clears the texts of the state's own table here, so in this test it drops no row. Wanted.
        return Rows.Filter(Rule, State.CaptureRow, [](const CaptureRowFields&) { return true; });
    });
}

} // namespace zonterbrook::rules
