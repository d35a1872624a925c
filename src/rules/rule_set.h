// The rule set: every rule of a variant as one named field with its default beside it.
//
// A variant is data. The generators, make and unmake, the evaluation and the end of the game consult these fields and
// nothing else; what derives from them is derived once, when a set is installed (see install.h). The table `RuleKeys`
// lists each numeric rule once, and everyone who reads, writes, compares or shows rules walks it.
#pragma once

#include "base/checked_array.h"
#include "base/fixed_text.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zonterbrook::rules {

inline constexpr int PromotionRows = 16;
inline constexpr std::int32_t NoSquare = -1;

/// [row][0 White, 1 Black]: the cell, or -1 where the row is not used.
using PromotionTable = base::CheckedArray<base::CheckedArray<std::int32_t, 2>, PromotionRows>;
using MovementText = base::FixedText<127>;

constexpr PromotionTable DefaultPromotionSquares() {
    PromotionTable Table{};
    for (auto& Row : Table) {
        Row.Fill(NoSquare);
    }
    for (int Row = 0; Row < 5; ++Row) {
        Table[Row][0] = 134 + 2 * Row;
        Table[Row][1] = 25 + 2 * Row;
    }
    return Table;
}

inline constexpr std::string_view DefaultManMovement = "NW;NE NW;NE;SE;SW";
inline constexpr std::string_view DefaultKingMovement = "NW;NE;SE;SW NW;NE;SE;SW";

/// The rules of a variant. The defaults are those of International Checkers.
struct RuleSetFields {
    // Captures
    std::uint8_t MaxCapMove = 1;      ///< only captures of the most pieces stand
    std::uint8_t MaxCapMoveKings = 0; ///< among those, only captures of the most kings
    std::uint8_t MaxCapMoveK = 1;     ///< a flying king's capture is carried to the end of its path
    std::uint8_t KingCapMove = 0;     ///< if a king can capture, men may not
    std::uint8_t ManCapKing = 1;      ///< men may jump kings
    std::uint8_t CapRequired = 1;     ///< captures are mandatory
    std::uint8_t MulJumps = 1;        ///< 0: every prefix of a capture is a move of its own
    std::uint8_t LastCap = 0;         ///< the piece that moved last is to be taken if it can be
    std::int32_t JumpFriend = 0;      ///< plain jumps over a straight run of own pieces
    std::int32_t NumberFriends = 0;   ///< the length of such a run; -1: any
    std::uint8_t RemovePieces = 1;    ///< 1: a jumped piece blocks until the move ends
    // Promotion in mid-capture
    std::uint8_t ManContJump = 1;        ///< a man goes on jumping past a promotion square
    std::uint8_t ManContJumpCrowned = 0; ///< and does so as a flying king
    // Kings
    std::uint8_t LongKings = 1;      ///< kings fly
    std::uint8_t KingFirst = 0;      ///< a flying capture lands directly behind the piece
    std::uint8_t ManCapMoveKing = 0; ///< men capture at a distance
    std::uint8_t CapReverse = 0;     ///< a flying capture may turn straight back
    std::uint8_t KingMan = 0;        ///< a king becomes a man by capturing
    std::uint8_t ManKing = 0;        ///< a side's last man is crowned at once
    std::uint8_t ChangeSide = 0;     ///< a new king changes colour
    // End of the game
    std::int32_t AntiMode = 0;     ///< who loses all wins
    std::uint8_t WinAtPromo = 0;   ///< a king that comes back wins
    std::uint8_t KingWin = 0;      ///< the first king wins
    std::uint8_t NoLegalDraw = 0;  ///< pieces but no move: a draw
    std::int32_t NumberPieces = 0; ///< a side with this many pieces or fewer has lost
    std::uint8_t ThreeKings = 0;   ///< three kings against one are drawn
    std::uint8_t NumberKings = 0;  ///< after this many moves
    std::int32_t TwoKings = 0;     ///< two kings against one are drawn
    std::int32_t NumberKings2 = 0; ///< after this many moves
    // The start
    std::uint8_t PiecesOnBlack = 1; ///< 1: row plus column odd; 0: even; 2: every square is played on
    std::uint8_t BlackStarts = 0;   ///< Black moves first
    std::uint8_t RndColor = 0;      ///< who moves first is drawn
    std::uint8_t RemoveMen = 0;     ///< each side loses `NumberMen` men by lot
    std::uint8_t NumberMen = 0;
    std::uint8_t DoMoves = 0; ///< `NumberMoves` random moves are played first
    std::uint8_t NumberMoves = 0;
    std::int32_t canContract = 0;    ///< pieces may enter from off the board
    std::int32_t ContractNumber = 0; ///< pieces in hand for each side
    std::int32_t ContractW1 = 0;     ///< mailbox row on which White enters
    std::int32_t ContractW2 = 0;     ///< mailbox row that must be free for it
    std::int32_t ContractB1 = 0;
    std::int32_t ContractB2 = 0;

    PromotionTable PromotionSquares = DefaultPromotionSquares();
    /// White man, Black man, White king, Black king: "plain steps capture steps", words joined by ";".
    base::CheckedArray<MovementText, 4> MovementStrings = {
        base::MakeFixedText<127>(DefaultManMovement), base::MakeFixedText<127>(DefaultManMovement),
        base::MakeFixedText<127>(DefaultKingMovement), base::MakeFixedText<127>(DefaultKingMovement)};

    bool operator==(const RuleSetFields&) const = default;
};

/// One numeric rule: the name of its key and the field, which is either 8 bits wide or 32.
struct RuleKey {
    std::string_view Name;
    std::uint8_t RuleSetFields::*Byte = nullptr;
    std::int32_t RuleSetFields::*Wide = nullptr;

    constexpr std::int64_t Lowest() const { return Byte != nullptr ? 0 : INT32_MIN; }
    constexpr std::int64_t Highest() const { return Byte != nullptr ? UINT8_MAX : INT32_MAX; }
    std::int32_t Read(const RuleSetFields& Rules) const { return Byte != nullptr ? Rules.*Byte : Rules.*Wide; }
    /// Sets the field; throws a `base::Fault`, and sets nothing, when the value does not fit.
    void Write(RuleSetFields& Rules, std::int64_t Value) const;
};

/// Every numeric rule, once, in the order in which a game file lists them.
std::span<const RuleKey> RuleKeys();

/// The row with exactly this name, case included, or nullptr.
const RuleKey* FindRuleKey(std::string_view Name);

/// The keys of the four movement strings, in the order of `MovementStrings`.
inline constexpr std::string_view MovementKeys[4] = {"WhiteManMovement", "BlackManMovement", "WhiteKingMovement",
                                                     "BlackKingMovement"};
/// The keys of the two columns of `PromotionSquares`.
inline constexpr std::string_view PromotionKeys[2] = {"PromoW", "PromoB"};

/// The squares of a promotion column, upper-case names of two characters joined; rows without a square are left out.
std::string PromotionNames(const PromotionTable& Table, int Column);

/// Sets the movement string or promotion column that `Key` names; false when it names none.
/// A promotion text holds up to sixteen two-character squares; what names no square leaves -1.
bool WriteTextRule(RuleSetFields& Rules, std::string_view Key, std::string_view Value);

/// The value of any rule as a variant file shows it, or nothing for an unknown key.
std::optional<std::string> RuleText(const RuleSetFields& Rules, std::string_view Key);

/// Sets any rule, numeric or text, in the grammar of a variant file; false for an unknown key. Throws a `base::Fault`,
/// and sets nothing, when a value does not fit its field.
bool WriteRule(RuleSetFields& Rules, std::string_view Key, std::string_view Value);

} // namespace zonterbrook::rules
