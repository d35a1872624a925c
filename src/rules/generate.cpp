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

/// The position as one generator call finds it.
struct Field {
    explicit Field(const RulesState& State)
        : Own(ColourIndex(State.Side)), Men(State.Pieces[Own]), Kings(State.Pieces[Own + 2]),
          EnemyMen(State.Pieces[1 - Own]), Enemies(EnemyMen | State.Pieces[3 - Own]), Pieces(Men | Kings),
          Free(PlayingCells.Without(Pieces | Enemies)) {}

    /// As the other side finds it once a piece has stepped.
    Field(const RulesState& State, int Index, int From, int To)
        : Own(1 - Index % 2), Men(State.Pieces[Own]), Kings(State.Pieces[Own + 2]), EnemyMen(State.Pieces[1 - Own]),
          Enemies(EnemyMen | State.Pieces[3 - Own]), Pieces(Men | Kings) {
        const CellSet Ends = SingleCells[From] ^ SingleCells[To];
        if (Index < 2) {
            EnemyMen ^= Ends;
        }
        Enemies ^= Ends;
        Free = PlayingCells.Without(Pieces | Enemies);
    }

    int Own; ///< the colour to move, and the piece index of its men
    CellSet Men;
    CellSet Kings;
    CellSet EnemyMen;
    CellSet Enemies;
    CellSet Pieces; ///< the mover's men and kings
    CellSet Free;
};

/// The members of `Pieces` that see what `Sees(Step)` gives for one of the steps in `Column`.
template <typename Visitor>
[[gnu::always_inline]] inline CellSet UnionOverSteps(const RulesState& State, int Column, Visitor&& Sees) {
    switch (State.StepShapes[Column]) {
    case StepShape::FourDiagonals:
        return Sees(11) | Sees(13) | Sees(-11) | Sees(-13);
    case StepShape::UpDiagonals:
        return Sees(11) | Sees(13);
    case StepShape::DownDiagonals:
        return Sees(-11) | Sees(-13);
    case StepShape::Other:
        break;
    }
    CellSet Result;
    for (const std::int16_t Step : State.MoveDirections[Column]) {
        if (Step == DirectionSentinel) {
            break;
        }
        Result |= Sees(Step);
    }
    return Result;
}

/// Those of `Pieces` that have prey next to them and a free cell behind it.
[[gnu::always_inline]] inline CellSet Jumpers(const RulesState& State, const Field& Here, int Index,
                                              const CellSet& Pieces, const CellSet& Prey) {
    return Pieces & UnionOverSteps(
                        State, Index + 4, [&](int Step) __attribute__((always_inline)) {
                            return (Prey & Here.Free.Moved(-Step)).Moved(-Step);
                        });
}

/// The pieces of the side to move that have a first jump, or that need a walk to find out.
template <typename Rules>
CellSet PossibleCapturers(const RulesState& State, const Rules& Rule, const Field& Here) {
    if (Here.Enemies.None()) {
        return {};
    }
    CellSet Result = Rule.Is.ManCapMoveKing
                         ? Here.Men
                         : Jumpers(State, Here, Here.Own, Here.Men, Rule.Is.ManCapKing ? Here.Enemies : Here.EnemyMen);
    if (Here.Kings.Any()) {
        Result |= Rule.Is.LongKings ? Here.Kings : Jumpers(State, Here, Here.Own + 2, Here.Kings, Here.Enemies);
    }
    return Result;
}

/// The own pieces that have a plain move at all: one step of theirs leads to a free cell. With jumps over friends any
/// piece may have one.
template <typename Rules>
CellSet PossibleMovers(const RulesState& State, const Rules& Rule, const Field& Here) {
    if (Rule.Is.JumpFriend) {
        return Here.Pieces;
    }
    const auto Stepping = [&](const CellSet& Pieces, int Index) {
        return Pieces &
               UnionOverSteps(
                   State, Index, [&](int Step) __attribute__((always_inline)) { return Here.Free.Moved(-Step); });
    };
    CellSet Result = Stepping(Here.Men, Here.Own);
    if (Here.Kings.Any()) {
        Result |= Stepping(Here.Kings, Here.Own + 2);
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

/// Whether a jump over friends promotes. Black kings are asked too, and overrun the promotion table: such a jump is
/// the end of the program. Wanted: docs/kept_behaviour.md, "A jump over own men".
bool FriendJumpPromotes(const RulesState& State, std::int32_t Code, int Dest) {
    if (Code == WhiteKing) {
        return false;
    }
    return State.JumpPromotionSet[PieceIndex(Code)].Contains(Dest);
}

/// Visits the plain moves of the piece on `Cell` in column order as `Take(Dest, Promotes)` until one answers true.
template <typename Rules, typename Visitor>
[[gnu::always_inline]] inline bool VisitPlainMoves(const RulesState& State, const Rules& Rule, int Cell,
                                                   bool FirstCellOfLine, Visitor&& Take) {
    const std::int32_t Code = State.Board[Cell];
    const int Index = PieceIndex(Code);
    const bool King = Index >= 2;
    const bool Flying = Rule.Is.LongKings && King;
    for (const std::int16_t* Step = State.MoveDirections[Index].begin(); *Step != DirectionSentinel; ++Step) {
        int Dest = Cell + *Step;
        const std::int32_t Value = State.Board[Dest];
        if (Value == Empty) {
            if (Flying) {
                do {
                    if (Take(Dest, false)) {
                        return true;
                    }
                    Dest += *Step;
                } while (!FirstCellOfLine && State.Board[Dest] == Empty);
            } else if (Take(Dest, !King && Rule.Promotion[Index].Contains(Dest))) {
                return true;
            }
        } else if (Rule.Is.JumpFriend && !Flying && Value == Code) {
            Dest = FriendJump(State, Dest, *Step, Code);
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
[[gnu::always_inline]] inline void RegisterPlainMoves(const RulesState& State, const Rules& Rule, MoveWriter& Writer,
                                                      int Cell) {
    const std::uint8_t Stepper = Writer.StepperOf(PieceIndex(State.Board[Cell]));
    const bool Concerned = Writer.Concerns(Cell);
    VisitPlainMoves(State, Rule, Cell, false, [&](int Dest, bool Promotes) {
        if (Promotes) [[unlikely]] {
            static constexpr CapturePath NoCaptures{};
            Writer.RegisterPromotion(Cell, Dest, NoCaptures);
        } else {
            Writer.RegisterStep(Stepper, Cell, Dest, Concerned);
        }
        return false;
    });
}

/// The plain moves where, as mostly, only men can move, by two steps each, and none of them is crowned. Else it does
/// nothing and returns false.
bool RegisterPairsOfSteps(const RulesState& State, const Field& Here, MoveWriter& Writer) {
    const StepShape Shape = State.StepShapes[Here.Own];
    if (Here.Kings.Any() || (Shape != StepShape::UpDiagonals && Shape != StepShape::DownDiagonals)) {
        return false;
    }
    const int First = State.MoveDirections[Here.Own][0];
    const int Second = State.MoveDirections[Here.Own][1];
    const CellSet ByFirst = Here.Men & Here.Free.Moved(-First);
    const CellSet BySecond = Here.Men & Here.Free.Moved(-Second);
    if (((ByFirst | BySecond) & State.BeforePromotion[Here.Own]).Any()) {
        return false;
    }
    MoveWriter Steps = Writer; // nobody else can see it: it stays in registers
    const std::uint8_t Stepper = Steps.StepperOf(Here.Own);
    CellSet::ForEachOf(ByFirst, BySecond, [&, First, Second, Stepper](int Cell, bool MayFirst, bool MaySecond) {
        const bool Concerned = Steps.Concerns(Cell);
        if (MayFirst) {
            Steps.RegisterStep(Stepper, Cell, Cell + First, Concerned);
        }
        if (MaySecond) {
            Steps.RegisterStep(Stepper, Cell, Cell + Second, Concerned);
        }
    });
    Writer.Adopt(Steps);
    return true;
}

/// The plain moves of all pieces and the entries, in the order of the cells.
template <typename Rules>
[[gnu::noinline]] void RegisterAnyPlainMoves(const RulesState& State, const Rules& Rule, const Field& Here,
                                             MoveWriter& Writer) {
    const CellSet Movers = PossibleMovers(State, Rule, Here);
    const CellSet Cells = Rule.Is.Entries ? PlayingCells : Movers;
    Cells.ForEach([&](int Cell) {
        if (!Rule.Is.Entries || Movers.Contains(Cell)) {
            RegisterPlainMoves(State, Rule, Writer, Cell);
        }
        if (Rule.Is.Entries && MayEnter<RowWidth>(State, Cell)) {
            Writer.RegisterMove(FromHand, Cell);
        }
    });
}

template <typename Rules>
[[gnu::always_inline]] inline void RegisterAllPlainMoves(const RulesState& State, const Rules& Rule, const Field& Here,
                                                         MoveWriter& Writer) {
    if (Rule.Is.Entries || Rule.Is.JumpFriend || !RegisterPairsOfSteps(State, Here, Writer)) {
        RegisterAnyPlainMoves(State, Rule, Here, Writer);
    }
}

/// What a generator is asked for.
enum class Wanted {
    Captures,
    All,
    CapturesElsePlain ///< plain moves only if no piece can capture anything, filtered or not
};

/// The captures of a rule set without filters, beside the plain moves of each piece if they are wanted.
template <typename Rules>
void RegisterUnfiltered(RulesState& State, const Rules& Rule, const Field& Here, MoveWriter& Writer, bool Plain) {
    const CellSet Capturers = PossibleCapturers(State, Rule, Here);
    if (!Plain && Capturers.None()) {
        return;
    }
    CaptureStack Stack(Writer);
    CaptureWalk Walk(State, Rule, Stack);
    const CellSet Cells = Plain ? Here.Pieces : Capturers;
    Cells.ForEach([&](int Cell) {
        if (Plain) {
            RegisterPlainMoves(State, Rule, Writer, Cell);
        }
        if (Capturers.Contains(Cell)) {
            Walk.Run(Cell);
        }
    });
}

/// The captures of `Capturers` that stand. `DropsPlain`: a capture of the piece that moved last does away with the
/// plain moves that have been written from `Base` on. Returns false if there was none to begin with.
template <typename Rules>
bool RegisterCaptures(RulesState& State, const Rules& Rule, const CellSet& Capturers, MoveWriter& Writer,
                      bool DropsPlain, int Base, CallFigures& Figures) {
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
[[gnu::always_inline]] inline void Generate(RulesState& State, const Rules& Rule, Wanted What, bool DropsPlain,
                                            CallFigures& Figures) {
    const int Base = State.StackLimit[State.Ply];
    MoveWriter Writer(State, Base);
    const Field Here(State);
    if constexpr (Rules::RegistersAtOnce) {
        RegisterUnfiltered(State, Rule, Here, Writer, What == Wanted::All);
        if (What == Wanted::CapturesElsePlain && Writer.IsAt(Base)) {
            RegisterAllPlainMoves(State, Rule, Here, Writer);
        }
    } else {
        // Captures go to the stack behind all plain moves, so the two passes over the board need not be one.
        if (What == Wanted::All) {
            RegisterAllPlainMoves(State, Rule, Here, Writer);
        }
        State.CaptureRow.Count = 0;
        const CellSet Capturers = PossibleCapturers(State, Rule, Here);
        const bool Any = Capturers.Any() && RegisterCaptures(State, Rule, Capturers, Writer, DropsPlain, Base, Figures);
        if (What == Wanted::CapturesElsePlain && !Any) {
            RegisterAllPlainMoves(State, Rule, Here, Writer);
        }
    }
    Writer.Finish();
}

/// The second step, where the first found nothing: kept out of the first one's way.
template <typename Rules>
[[gnu::noinline]] void GenerateAll(RulesState& State, const Rules& Rule, CallFigures& Figures) {
    Generate(State, Rule, Wanted::All, false, Figures);
}

/// Runs `Work` under a generator's trap.
template <typename Routine>
[[gnu::always_inline]] inline auto Trapped(std::string_view Name, const CallFigures& Figures, Routine&& Work) {
    try {
        return Work();
    } catch (const base::Fault&) {
        if (Name == "GenerateMoves") {
            throw GeneratorFault(Name, "GenerateMoves:   J3=" + std::to_string(Figures.Kings) +
                                           "   Len(S1)=" + std::to_string(Figures.PathLength) +
                                           "   L=" + std::to_string(Figures.Longest));
        }
        // The legal-move test has words of its own. Wanted: docs/kept_behaviour.md, "Ombrestonefield".
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
        const bool Plain = AllMoves > 0 || (AllMoves == 0 && !Rule.Is.CapRequired);
        const bool DropsPlain = Rule.Is.LastCap && AllMoves == 0 && !Rule.Is.CapRequired;
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
        Wanted What = Rule.Is.CapRequired ? Wanted::CapturesElsePlain : Wanted::All;
        Generate(State, Rule, What, Rule.Is.LastCap && What == Wanted::All, Figures);
        if (MoveCountOfPly(State) == 0) [[unlikely]] {
            GenerateAll(State, Rule, Figures);
        }
    });
}

template <typename Rules>
bool ListsNothingAfterStep(const RulesState& State, int AllMoves, int Index, int From, int To) {
    const Rules Rule(State);
    if (AllMoves > 0 || (AllMoves == 0 && !Rule.Is.CapRequired)) {
        return false;
    }
    return PossibleCapturers(State, Rule, Field(State, Index, From, To)).None();
}

} // namespace

void GenerateMoves(RulesState& State, int AllMoves) {
    GenerateBy<LiveRules>(State, AllMoves, "GenerateMoves");
}
void GenerateLegalMoves(RulesState& State) {
    GenerateBothBy<LiveRules>(State, "GenerateMoves");
}

template <KnownRules Id>
constexpr Generator FoldedGenerator() {
    using Rules = FoldedRules<FoldedFlags(Id)>;
    return {KnownRuleSetOf(Id).Generator,
            [](RulesState& State, int AllMoves) { GenerateBy<Rules>(State, AllMoves, KnownRuleSetOf(Id).Generator); },
            [](RulesState& State) { GenerateBothBy<Rules>(State, KnownRuleSetOf(Id).Generator); },
            ListsNothingAfterStep<Rules>};
}

const Generator& GeneratorOf(KnownRules Id) {
    static constexpr base::CheckedArray<Generator, 5> Generators = {
        {{"GenerateMoves", GenerateMoves, GenerateLegalMoves, ListsNothingAfterStep<LiveRules>},
         FoldedGenerator<KnownRules::American>(),
         FoldedGenerator<KnownRules::Italian>(),
         FoldedGenerator<KnownRules::German>(),
         FoldedGenerator<KnownRules::Russian>()}};
    return Generators[static_cast<int>(Id)];
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
        const bool Plain = AllMoves > 0 || (AllMoves == 0 && !Rule.Is.CapRequired);
        const Field Here(State);
        const CellSet Own = Here.Pieces;
        const CellSet Capturers = PossibleCapturers(State, Rule, Here);
        CaptureTable Table; // of its own: the test runs inside searches, whose generators' rows must stay
        CaptureRowList Rows(Table);
        CaptureWalk Walk(State, Rule, Rows);
        CellSet Cells = Plain && Rule.Is.Entries ? PlayingCells : Own;
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
            if (Plain && Rule.Is.Entries && MayEnter<10>(State, Cell)) {
                Writer.RegisterMove(FromHand, Cell);
                Writer.FinishLoose();
            }
        }
        // `LastCap` clears the texts of the state's own table here, so in this test it drops no row. Wanted.
        return Rows.Filter(Rule, State.CaptureRow, [](const CaptureRowFields&) { return true; });
    });
}

} // namespace zonterbrook::rules
