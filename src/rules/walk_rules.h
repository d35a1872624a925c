// The rules that a capture walk and its filters consult, as yes or no.
//
// There is one provider for the live rule set, read at the start of a generator call, and one for each of the four
// recognised rule sets, where every answer is a constant and the compiler folds the test away. They stand here side by
// side because their differences are the whole difference between the generators.
#pragma once

#include "rules/state.h"

namespace zonterbrook::rules {

/// The live rule set. Where a rule's values above 1 are treated differently by two tests, there are two answers.
struct LiveRules {
    explicit LiveRules(const RulesState& State)
        : LongKings(State.RuleSet.LongKings == 1), KingFirst(State.RuleSet.KingFirst == 1),
          RemovePieces(State.RuleSet.RemovePieces == 1), CapReverse(State.RuleSet.CapReverse == 1),
          ManCapKing(State.RuleSet.ManCapKing == 1), ManCapMoveKing(State.RuleSet.ManCapMoveKing == 1),
          ContinuesOnPromotion(State.RuleSet.ManContJump != 0), CrownsAtEnd(State.RuleSet.ManContJump == 1),
          CrownsOnTheWay(State.RuleSet.ManContJumpCrowned == 1), EveryPrefix(State.RuleSet.MulJumps == 0),
          ComparesSets(State.SetCaptures == 1), DropsShorterSets(State.RuleSet.MaxCapMove == 1),
          LastCap(State.RuleSet.LastCap == 1), MaxCapMove(State.RuleSet.MaxCapMove != 0),
          MaxCapMoveKings(State.RuleSet.MaxCapMove != 0 && State.RuleSet.MaxCapMoveKings != 0),
          KingsFinish(State.RuleSet.LongKings == 1 && State.RuleSet.MaxCapMoveK == 1 && State.RuleSet.MulJumps == 1),
          KingsLengthCounts(State.RuleSet.KingCapMove == 1),
          // With both rules at 1 the longest capture and its kings decide, and men may tie with a king.
          KingFirstOnly(State.RuleSet.KingCapMove != 0 &&
                        !(State.RuleSet.KingCapMove == 1 && State.RuleSet.MaxCapMoveKings == 1)),
          CapRequired(State.RuleSet.CapRequired != 0), JumpFriend(State.RuleSet.JumpFriend == 1),
          Entries(State.RuleSet.canContract == 1), Promotion(State.PromotionSet) {}

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
    bool CapRequired;
    bool JumpFriend;
    bool Entries;
    const base::CheckedArray<CellSet, 2>& Promotion; ///< by colour
    static constexpr bool RegistersAtOnce = false;
};

/// What the four recognised rule sets share. Five promotion squares a side are all they have.
struct FoldedRules {
    explicit FoldedRules(const RulesState& State) : Promotion(State.ShortPromotionSet) {}

    const base::CheckedArray<CellSet, 2>& Promotion;
    static constexpr bool LongKings = false;
    static constexpr bool KingFirst = false;
    static constexpr bool RemovePieces = false;
    static constexpr bool CapReverse = false;
    static constexpr bool ManCapKing = true;
    static constexpr bool ManCapMoveKing = false;
    static constexpr bool ContinuesOnPromotion = false;
    static constexpr bool CrownsAtEnd = false;
    static constexpr bool CrownsOnTheWay = false;
    static constexpr bool EveryPrefix = false;
    static constexpr bool ComparesSets = false;
    static constexpr bool DropsShorterSets = false;
    static constexpr bool LastCap = false;
    static constexpr bool MaxCapMove = false;
    static constexpr bool MaxCapMoveKings = false;
    static constexpr bool KingsFinish = false;
    static constexpr bool KingsLengthCounts = false;
    static constexpr bool KingFirstOnly = false;
    static constexpr bool CapRequired = true;
    static constexpr bool JumpFriend = false;
    static constexpr bool Entries = false;
    static constexpr bool RegistersAtOnce = false;
};

/// No filter looks at more than one path, so a capture goes straight to the stack and no row is kept.
struct AmericanRules : FoldedRules {
    using FoldedRules::FoldedRules;
    static constexpr bool RegistersAtOnce = true;
};

/// Unlike the generic generator this one never lets a man's capture tie with a king's.
struct ItalianRules : FoldedRules {
    using FoldedRules::FoldedRules;
    static constexpr bool ManCapKing = false;
    static constexpr bool MaxCapMove = true;
    static constexpr bool MaxCapMoveKings = true;
    static constexpr bool KingsLengthCounts = true;
    static constexpr bool KingFirstOnly = true;
};

struct GermanRules : FoldedRules {
    using FoldedRules::FoldedRules;
    static constexpr bool LongKings = true;
    static constexpr bool RemovePieces = true;
    static constexpr bool ContinuesOnPromotion = true;
    static constexpr bool CrownsAtEnd = true;
    static constexpr bool MaxCapMove = true;
    static constexpr bool KingsFinish = true;
};

struct RussianRules : FoldedRules {
    using FoldedRules::FoldedRules;
    static constexpr bool LongKings = true;
    static constexpr bool RemovePieces = true;
    static constexpr bool ContinuesOnPromotion = true;
    static constexpr bool CrownsAtEnd = true;
    static constexpr bool CrownsOnTheWay = true;
    static constexpr bool KingsFinish = true;
};

} // namespace zonterbrook::rules
