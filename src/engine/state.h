// The engine's slice of the game's state: what evaluation and search read and write beside the position.
//
// No window, record, book or file is known here. Of the world the engine sees yield, clock and chance.
#pragma once

#include "base/outside_world.h"
#include "engine/evaluation_memo.h"
#include "rules/state.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace zonterbrook::engine {

using rules::ByGameMove;
using rules::CellSet;

inline constexpr std::int32_t WindowLow = -32000;
inline constexpr std::int32_t WindowHigh = 32000;
/// Scores beyond this, either way, are forced results.
inline constexpr std::int32_t ForcedScore = 31979;
/// Scores beyond this are decided games.
inline constexpr std::int32_t DecidedScore = 30000;
inline constexpr std::int32_t UnsetScore = -32767;
inline constexpr int RootMoveEntries = 101;
/// The margin of the lazy exit when a game begins; verification widens it.
inline constexpr std::int32_t DefaultLazyMargin = 150;

/// A position, exactly: equal positions and only those have equal keys.
struct PositionKey {
    base::CheckedArray<CellSet, rules::PieceIndices> Pieces;

    bool operator==(const PositionKey&) const = default;
};

/// Source, Dest and score of a root move, as the list of the last calculation shows them, and what its name tells.
struct RootMove {
    std::int32_t Source;
    std::int32_t Dest;
    std::int32_t Score;
    bool Captures = false;
    bool Promotes = false;
};

/// Source, Dest and a tag: 1 for a capture, 10 added for a promotion.
struct MainLineMove {
    std::int32_t Source;
    std::int32_t Dest;
    std::int32_t Tag;

    bool operator==(const MainLineMove&) const = default;
};

/// Points by cell, one column for each colour.
using CellValues = base::CheckedArray<base::CheckedArray<std::int32_t, 2>, rules::BoardCells>;

/// Points by piece index and cell, seen from White: all that an evaluator gives a piece for where it stands.
using PieceValueTable = base::CheckedArray<rules::BoardCellsArray, rules::PieceIndices>;

/// Two steps in front of promotion squares, and the squares from which they are looked at.
struct PatternSteps {
    CellSet Squares;
    std::int16_t First;    ///< the first step
    std::int16_t Both;     ///< both steps together
    std::int32_t Straight; ///< 1: the two steps are the same
};

/// The end of the board that holds all that a pattern looks at; `None` if neither does, or the men who defend don't
/// step along two diagonals.
enum class PatternWindow : std::uint8_t { None, Lower, Upper };
/// The lower window begins with cell 25, the upper one this many cells further; either has 64 of them.
inline constexpr int UpperWindowBit = 54;

/// The promotion-row pattern of one colour. A square that the rules list twice counts twice, so steps may recur with
/// other squares: sixteen squares, eight first steps, eight second ones at most.
struct PatternList {
    std::int32_t Count;
    std::int32_t Faults; ///< 1: a square that the pattern needs is not there
    PatternWindow Window;
    /// With a window: its part of the squares, by the first step, 11 or 13 either way, and the second.
    std::uint64_t Diagonals[2][2];
    CellSet LookedAt; ///< the cells on which it hangs
    base::CheckedArray<PatternSteps, std::size_t{rules::PromotionRows} * 64> Steps;

    /// A set as the window shows it.
    std::uint64_t SeenOf(const CellSet& Set) const {
        return Window == PatternWindow::Lower ? Set.Low()
                                              : Set.Low() >> UpperWindowBit | Set.High() << (64 - UpperWindowBit);
    }
};

/// The evaluators, as rows of the tables that are derived for each.
enum class EvaluatorKind { Generic, American, German, Italian };
inline constexpr int EvaluatorKinds = 4;

struct EngineState : rules::RulesState {
    // --- program: settings that feed the engine ----------------------------------------------------------------------
    base::OutsideWorld* World;
    std::uint8_t Strength;       ///< 0 (best) to 9; shown as 10 less this
    std::uint8_t FixedDepth;     ///< 1: play to `SearchDepth`; 0: by time
    std::uint8_t SearchDepth;    ///< plies
    std::int16_t TimeLimit;      ///< seconds a move
    std::uint8_t ExtendedSearch; ///< 1: extend after captures and promotions
    std::uint8_t BruteForce;     ///< 1: no cuts
    std::int16_t Balance;        ///< 1..750, hundredths of a man
    std::uint8_t Plys;           ///< 1..6, extensions beyond the nominal depth

    // --- rule set: written by `InstallEngineRules` ------------------------------------------------------------------
    CellValues SquareValues;
    CellValues ManReachable;
    std::int32_t HasDeadSquares;
    std::int32_t PromotionCountEqual;
    std::int32_t PromotionCountMax;
    std::int32_t DistanceTermEnabled;
    /// Per piece, for the generic evaluator by (White early) + 2 * (Black early): less what the cell would give empty.
    base::CheckedArray<PieceValueTable, 4> GenericValues;
    /// What the empty cells up to and with a cell give, by the same index; the last cell's is the board's.
    base::CheckedArray<rules::BoardCellsArray, 4> EmptyPrefix;
    /// Per piece, for the three others; the generic row is not used.
    base::CheckedArray<PieceValueTable, EvaluatorKinds> SpecialValues;
    base::CheckedArray<PatternList, 2> GenericPattern; ///< by colour
    base::CheckedArray<PatternList, 2> SpecialPattern;
    EvaluationMemo Memo;    ///< of these tables, and of one evaluator at a time
    EvaluatorKind MemoKind; ///< which

    // --- game: cleared by `ResetEngineGame` -------------------------------------------------------------------------
    std::int32_t LazyMargin;
    /// Keys by the number of moves made, those of searched lines included: they stay until overwritten.
    ByGameMove<PositionKey> PositionHistory;
    ByGameMove<std::uint32_t> HistoryFingerprint; ///< of the same keys, to find a candidate quickly

    // --- search: written by the routines that start one -------------------------------------------------------------
    /// The principal variation from each ply on, row by row; kept from one search to the next.
    base::CheckedArray<rules::ByPly<MainLineMove>, rules::PlyEntries> MainVariantTable;
    std::int32_t PatternTermEnabled;
    std::int32_t MenThresholdWhite;
    std::int32_t MenThresholdBlack;
    std::int32_t Noise;
    std::int32_t RootSide;
    std::int32_t DrawPending;
    std::int32_t MaxSearchDepth;
    std::int32_t StopAutoPlay;    ///< 1: the search is unwinding
    std::int32_t StopQuickSearch; ///< 1: a tool has been stopped, and its searches unwind
    std::int32_t SearchBase;      ///< `GameMoves` at the root
    std::int32_t QuietMoves; ///< half-moves without capture or promotion up to the root, as the draw rule counts them
    std::int32_t QuietLimit; ///< how many there may be; 0: no limit
    std::int32_t AspirationWidth;
    std::int32_t BestScore;
    base::CheckedArray<RootMove, RootMoveEntries> RootMoves;
    std::uint64_t NodeCount; ///< calls of search routines since the search began

    // --- output of an evaluation -----------------------------------------------------------------------------------
    std::int32_t SideToMoveLost;
    std::int32_t NoLegalDrawHit;
};

static_assert(std::is_trivially_copyable_v<EngineState>);

/// The engine's part of the first start: settings at their defaults, no rule set derived yet. `World` must outlive the
/// state.
void ResetEngine(EngineState& State, base::OutsideWorld& World);

/// Installs `RuleSet` (rules/install.h) and derives the engine's tables from it.
void InstallEngineRules(EngineState& State);

/// Begins a game by `RuleSet` from `StartBoard`: the position, the tables and all that a new game forgets.
void StartEngineGame(EngineState& State);

/// What a new game forgets: keys, main line, margins.
void ResetEngineGame(EngineState& State);

/// True if two states are at the same place of the same game: board, side, pieces in hand, plies and counters.
bool SameRoot(const EngineState& A, const EngineState& B);

} // namespace zonterbrook::engine
