// The slice of the game's state that the rules work on: the position, the move stack, the rule set and what derives
// from it.
//
// It is plain data. The engine's, the view's and the game's slices derive from it, so that one object holds everything
// and a routine's first parameter says how far its hands reach. It is trivially copyable: a test takes it before, takes
// it after, and compares.
#pragma once

#include "base/checked_array.h"
#include "base/fixed_text.h"
#include "rules/cells.h"
#include "rules/known_rules.h"
#include "rules/rule_set.h"
#include "rules/walked_states.h"

#include <cstdint>
#include <type_traits>

namespace zonterbrook::rules {

inline constexpr int MaxPly = 100;
inline constexpr int PlyEntries = MaxPly + 1;
inline constexpr int MaxGameMoves = 1000;
/// A search goes on from the last moves of the longest game, too.
inline constexpr int GameMoveEntries = MaxGameMoves + MaxPly + 1;
inline constexpr int StackEntries = 1001;
/// `StackTop` stays here once the stack is full; the record at this index is then overwritten by each further move.
inline constexpr int StackFull = StackEntries - 1;
inline constexpr int MaxCaptures = 18;
inline constexpr int CaptureLevels = 21;
inline constexpr int CaptureRows = 2001;
inline constexpr std::int16_t DirectionSentinel = -99;
inline constexpr int DirectionEntries = 9;

/// One captured piece: where it stood and its worth in men, 1 or 2.
struct CaptureGroup {
    std::uint8_t Cell;
    std::uint8_t Weight;

    bool operator==(const CaptureGroup&) const = default;
};

/// The pieces that a move captures, in the order in which they are jumped. What lies beyond `Count` is no value.
struct CapturePath {
    std::uint8_t Count;
    std::uint8_t Kings; ///< how many of them are kings
    CaptureGroup Groups[CaptureLevels];

    /// The worth of all of them, in men.
    int Weight() const { return Count + Kings; }

    void Append(int Cell, bool King) {
        Groups[Count] = {static_cast<std::uint8_t>(Cell), static_cast<std::uint8_t>(King ? 2 : 1)};
        ++Count;
        Kings = static_cast<std::uint8_t>(Kings + (King ? 1 : 0));
    }

    void RemoveLast() {
        --Count;
        Kings = static_cast<std::uint8_t>(Kings - (Groups[Count].Weight - 1));
    }

    void Clear() {
        Count = 0;
        Kings = 0;
    }

    bool operator==(const CapturePath& Other) const {
        if (Count != Other.Count) {
            return false;
        }
        for (int I = 0; I < Count; ++I) {
            if (Groups[I] != Other.Groups[I]) {
                return false;
            }
        }
        return true;
    }
};

/// A move as the generators list it. Its size is a power of two: the stack is indexed all the time.
struct alignas(16) MoveRecord {
    std::int32_t Source;  ///< cell, or `FromHand`
    std::int32_t Dest;    ///< cell
    std::int32_t Kind;    ///< 0 plain, 2 promotes; times `Side` it is the new piece
    std::int32_t Score;   ///< ordering score; -32000 once a `MovePicker` has handed the move out
    std::uint8_t Stepper; ///< 1 and the piece's index if a piece steps and nothing else can happen, else 0
    CapturePath Captures;

    bool operator==(const MoveRecord&) const = default;
};

/// One capture found by a generator, before the filters.
struct CaptureRowFields {
    std::int32_t Source;
    std::int32_t Dest;
    std::int32_t Piece;       ///< the mover's code as it stood before the capture
    std::uint8_t Promotes;    ///< 1: the move ends in promotion
    std::uint8_t LongestPath; ///< pieces in the longest path of this mover when the row was stored
    CapturePath Text;
};

/// The rows of one generator call. They stay until the next one: a refused drop looks its reason up here.
struct CaptureTable {
    std::int32_t Count;
    base::CheckedArray<CaptureRowFields, CaptureRows> Rows;
};

/// One column of step offsets, ended by `DirectionSentinel`.
using DirectionColumn = base::CheckedArray<std::int16_t, DirectionEntries>;
/// Columns 0..3: plain steps by piece index; 4..7: capture steps.
using DirectionTable = base::CheckedArray<DirectionColumn, 8>;

/// What a column of steps amounts to, whatever its order: the usual ones are moved by in sets, with constants.
enum class StepShape : std::uint8_t { Other, FourDiagonals, UpDiagonals, DownDiagonals };

/// Four weights of a piece on a cell, and the four sums of them over the board.
struct alignas(16) CellWeights {
    std::int32_t Lanes[4];

    CellWeights& operator+=(const CellWeights& Other) {
        for (int Lane = 0; Lane < 4; ++Lane) {
            Lanes[Lane] += Other.Lanes[Lane];
        }
        return *this;
    }
    CellWeights& operator-=(const CellWeights& Other) {
        for (int Lane = 0; Lane < 4; ++Lane) {
            Lanes[Lane] -= Other.Lanes[Lane];
        }
        return *this;
    }

    bool operator==(const CellWeights&) const = default;
};

/// A move by its ends; source 0 is none.
struct MoveEnds {
    std::int32_t Source;
    std::int32_t Dest;

    bool operator==(const MoveEnds&) const = default;
};

/// The moves of a ply that are scored up as they are generated, so that they are tried first. A search writes them.
struct WantedMoves {
    MoveEnds MainLine;
    MoveEnds Killers[2];
};

using BoardCellsArray = base::CheckedArray<std::int32_t, BoardCells>;
template <typename T>
using ByPly = base::CheckedArray<T, PlyEntries>;
template <typename T>
using ByGameMove = base::CheckedArray<T, GameMoveEntries>;

/// Who wants a search to stop: nobody, the person (or a full move stack), the clock.
enum class StopRequest : std::int32_t { None, Person, Clock };

/// How squares are named: letter and digit, number, or not at all beside the board; moves are named by number then.
enum class Notation : std::int32_t { Algebraic, Numeric, None };

/// The state of the rules core. Built by `ResetRules`.
struct RulesState {
    // --- position: laid by `LayPosition`, changed by `PerformMove` and `TakeBackMove` -------------------------------
    BoardCellsArray Board;
    /// The same pieces as sets, by piece index: kept by `SetCell` alone.
    base::CheckedArray<CellSet, PieceIndices> Pieces;
    std::int32_t Ply; ///< 0 at the root, 100 at most
    std::int32_t Side;
    std::int32_t GameMoves; ///< moves made on the board, in the game and in a search
    std::int32_t PiecesInHandWhite;
    std::int32_t PiecesInHandBlack;

    // --- by ply ----------------------------------------------------------------------------------------------------
    ByPly<std::int32_t> Material;      ///< hundredths of a man, from the side to move
    ByPly<std::int32_t> TotalMaterial; ///< both sides together
    ByPly<CellWeights> WeightSums;     ///< of all pieces where they stand; what they mean is the engine's business
    ByPly<std::int32_t> PlyIrreversible;
    ByPly<std::int32_t> PlyDest;
    ByPly<WantedMoves> Wanted;

    // --- by performed move -----------------------------------------------------------------------------------------
    ByGameMove<std::int16_t> MoveDest;
    ByGameMove<std::int16_t> MoveKingDemoted;
    ByGameMove<std::int16_t> MoveLastManCrowned;

    // --- move stack: filled by the generators ----------------------------------------------------------------------
    /// One entry more than plies, so that a generator may run at the last ply.
    base::CheckedArray<std::int32_t, PlyEntries + 1> StackLimit;
    std::int32_t StackTop;
    base::CheckedArray<MoveRecord, StackEntries> MoveStack;
    CaptureTable CaptureRow;
    /// 1 while moves are generated for the game's own position, whatever `Ply` says: the rule `LastCap` binds there.
    std::int32_t AtGamePosition;
    StopRequest CancelRequested;
    /// Asked now and then by a long capture walk, with the board in the middle of a capture: gives the world its turn,
    /// and says whether the walk is wanted no longer. Null but during a search.
    bool (*Interrupts)(RulesState& State);
    WalkedStates Walked; ///< of the capture walk at work

    // --- input -----------------------------------------------------------------------------------------------------
    std::int32_t TouchMove;     ///< the option: the piece first touched must move
    std::int32_t TouchedSquare; ///< 0: none

    // --- notation --------------------------------------------------------------------------------------------------
    Notation NotationMode;
    char CaptureChar; ///< 'x' or ':'

    // --- rule set: derived figures are written by `InstallRuleSet` --------------------------------------------------
    RuleSetFields RuleSet;
    RuleSetFields LoadedRuleSet;
    BoardCellsArray BoardTemplate;
    BoardCellsArray StartBoard;
    DirectionTable MoveDirections;
    DirectionTable LoadedMoveDirections;
    base::CheckedArray<StepShape, 8> StepShapes; ///< of `MoveDirections`
    /// By cell and piece index; zero until the engine fills it in and calls `RecountPosition`.
    base::CheckedArray<base::CheckedArray<CellWeights, PieceIndices>, BoardCells> PieceWeights;
    KnownRules SpecialRuleSet;
    WalkFlags Walk; ///< the rules of captures as yes or no
    std::int32_t SetCaptures;
    std::int32_t SidewaysOnly;
    std::int32_t WidenDropsPattern;
    std::int32_t StartMenWhite; ///< men in the start position
    std::int32_t StartMenBlack;
    std::int32_t TotalMen; ///< weight of all its pieces, in men
    /// The squares of each column of the promotion table as a set: from all rows, from the first twelve, which jumps
    /// over friends look at, and from the first five, which the specialised generators look at.
    base::CheckedArray<CellSet, 2> PromotionSet;
    base::CheckedArray<CellSet, 2> JumpPromotionSet;
    base::CheckedArray<CellSet, 2> ShortPromotionSet;
    /// The cells from which a man's step may lead to a promotion square, by colour.
    base::CheckedArray<CellSet, 2> BeforePromotion;
};

static_assert(std::is_trivially_copyable_v<RulesState>);

} // namespace zonterbrook::rules
