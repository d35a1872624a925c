// The rules that a capture walk and its filters consult, as yes or no: derived from the live rule set once, when it is
// installed.
#pragma once

#include "rules/rule_set.h"

namespace zonterbrook::rules {

/// A structural type: a hard-wired generator has them as its template parameter. Where a rule's values above 1 are
/// treated differently by two tests, there are two answers.
struct WalkFlags {
    bool LongKings;            ///< kings fly
    bool KingFirst;            ///< a flying capture lands directly behind the piece
    bool RemovePieces;         ///< jumped pieces block
    bool CapReverse;           ///< a flying capture may turn straight back
    bool ManCapKing;           ///< men take kings
    bool ManCapMoveKing;       ///< men capture flying
    bool ContinuesOnPromotion; ///< a man's capture goes on from a promotion square
    bool CrownsAtEnd;          ///< a man whose path ends on a promotion square is crowned
    bool CrownsOnTheWay;       ///< a man is crowned on reaching one
    bool EveryPrefix;          ///< every prefix of a path is a move
    bool ComparesSets;         ///< paths that take the same pieces are one capture
    bool DropsShorterSets;     ///< such comparison is spared for paths that are too short anyway
    bool LastCap;              ///< the piece that moved last goes first
    bool MaxCapMove;           ///< the most pieces
    bool MaxCapMoveKings;      ///< among them the most kings
    bool KingsFinish;          ///< a king's path is carried to its end
    bool KingsLengthCounts;    ///< with a king's capture there, its length is the one to reach
    bool KingFirstOnly;        ///< with a king's capture there, men's are dropped
    bool CapRequired;          ///< captures are mandatory
    bool JumpFriend;           ///< plain jumps over own pieces
    bool Entries;              ///< pieces may enter from off the board
};

/// `SetCaptures`: whether captures are compared as sets.
constexpr WalkFlags DeriveWalkFlags(const RuleSetFields& Rules, bool SetCaptures) {
    WalkFlags Flags{};
    Flags.LongKings = Rules.LongKings == 1;
    Flags.KingFirst = Rules.KingFirst == 1;
    Flags.RemovePieces = Rules.RemovePieces == 1;
    Flags.CapReverse = Rules.CapReverse == 1;
    Flags.ManCapKing = Rules.ManCapKing == 1;
    Flags.ManCapMoveKing = Rules.ManCapMoveKing == 1;
    Flags.ContinuesOnPromotion = Rules.ManContJump != 0;
    Flags.CrownsAtEnd = Rules.ManContJump == 1;
    Flags.CrownsOnTheWay = Rules.ManContJumpCrowned == 1;
    Flags.EveryPrefix = Rules.MulJumps == 0;
    Flags.ComparesSets = SetCaptures;
    Flags.DropsShorterSets = Rules.MaxCapMove == 1;
    Flags.LastCap = Rules.LastCap == 1;
    Flags.MaxCapMove = Rules.MaxCapMove != 0;
    Flags.MaxCapMoveKings = Rules.MaxCapMove != 0 && Rules.MaxCapMoveKings != 0;
    Flags.KingsFinish = Rules.LongKings == 1 && Rules.MaxCapMoveK == 1 && Rules.MulJumps == 1;
    Flags.KingsLengthCounts = Rules.KingCapMove == 1;
    // With both rules at 1 the longest capture and its kings decide, and men may tie with a king.
    Flags.KingFirstOnly = Rules.KingCapMove != 0 && !(Rules.KingCapMove == 1 && Rules.MaxCapMoveKings == 1);
    Flags.CapRequired = Rules.CapRequired != 0;
    Flags.JumpFriend = Rules.JumpFriend == 1;
    Flags.Entries = Rules.canContract == 1;
    return Flags;
}

} // namespace zonterbrook::rules
