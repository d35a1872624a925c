// Rule sets by lot. The order of the draws is kept: a seed that somebody has told to others has to give the same set.
#include "rules/random_rules.h"

namespace zonterbrook::rules {

namespace {

using R = RuleSetFields;

constexpr std::uint8_t R::*FlipsOfThePlay[] = {
    &R::WinAtPromo,   &R::KingWin,     &R::MaxCapMoveKings, &R::MaxCapMoveK, &R::ManCapKing,
    &R::CapRequired,  &R::KingCapMove, &R::ManContJump,     &R::LongKings,   &R::ManContJumpCrowned,
    &R::RemovePieces, &R::KingFirst,   &R::ManCapMoveKing,  &R::NoLegalDraw, &R::RemoveMen,
    &R::LastCap,      &R::ManKing,     &R::KingMan,         &R::CapReverse};

} // namespace

void DrawRules(RuleSetFields& Rules, bool WithColour, const std::function<double()>& Random) {
    const auto Flip = [&] { return static_cast<std::uint8_t>(2 * Random()); };
    const auto Count = [&](int Most) { return static_cast<std::uint8_t>(Random() * Most + 1); };

    for (const auto Field : {&R::MaxCapMove, &R::MulJumps, &R::BlackStarts, &R::RndColor}) {
        Rules.*Field = Flip();
    }
    if (WithColour) {
        Rules.PiecesOnBlack = Flip();
    }
    Rules.AntiMode = Flip();
    for (const auto Field : FlipsOfThePlay) {
        Rules.*Field = Flip();
    }
    Rules.NumberMen = Count(10);
    Rules.DoMoves = Flip();
    Rules.NumberMoves = Count(10);
    Rules.JumpFriend = Flip();
    Rules.ChangeSide = Flip();
    Rules.ThreeKings = Flip();
    Rules.NumberKings = Count(20);
}

} // namespace zonterbrook::rules
