// Positions, rules and moves as short texts, so that a table of cases can be read and checked on a real board.
//
// A position: side to move, White's pieces, Black's pieces, a K in front of kings: "W:Wc3,Ke5:Bd6,Kf8". The tenth rank
// is written 0. Rules: "Key=value" joined by "|", set on top of the default rules. Moves: in stack order, "c3-d4",
// captures with what they take in the order of the jumps, "c3xg7(d4,Kf6)", "K" for a promotion, "*c1" for an entry.
#pragma once

#include "base/text.h"
#include "rules/install.h"
#include "rules/moves.h"
#include "rules/position.h"
#include "rules/square_names.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::tests {

/// The rule sets that have routines of their own; the default rules are the third.
inline constexpr const char* AmericanRules =
    "WhiteManMovement=NW;NE NW;NE|BlackManMovement=NW;NE NW;NE|LongKings=0|ManContJump=0|MaxCapMove=0|BlackStarts=1|"
    "RemovePieces=0";
inline constexpr const char* ItalianRules =
    "WhiteManMovement=NW;NE NW;NE|BlackManMovement=NW;NE NW;NE|LongKings=0|ManContJump=0|ManCapKing=0|KingCapMove=1|"
    "MaxCapMoveKings=1|PiecesOnBlack=0|RemovePieces=0|PromoW=A0C0E0G0I0|PromoB=B1D1F1H1J1";
inline constexpr const char* RussianRules = "MaxCapMove=0|ManContJumpCrowned=1|ThreeKings=1|NumberKings=15";

/// Chance that falls alike in every run and on every machine.
class Dice {
public:
    explicit Dice(std::uint32_t Seed) : Engine(Seed) {}
    unsigned operator()() { return static_cast<unsigned>(Engine()); }

private:
    std::mt19937 Engine;
};

inline std::vector<std::string> Split(std::string_view Text, char Separator) {
    std::vector<std::string> Parts;
    while (!Text.empty()) {
        const std::size_t End = Text.find(Separator);
        Parts.emplace_back(Text.substr(0, End));
        Text.remove_prefix(End == std::string_view::npos ? Text.size() : End + 1);
    }
    return Parts;
}

/// The cell of a name in lower or upper case; a slip in a table ends the test.
inline int Cell(std::string_view Name) {
    const int Found = rules::AlgebraicCell(base::ToUpper(Name));
    if (Found == 0 || Name.size() != 2) {
        throw std::invalid_argument("no square: " + std::string(Name));
    }
    return Found;
}

/// Changes `RuleSet` alone; installing is the caller's.
inline void WriteRules(rules::RulesState& State, std::string_view Rules) {
    for (const std::string& Rule : Split(Rules, '|')) {
        const std::size_t Equals = Rule.find('=');
        if (Equals == std::string::npos ||
            !rules::WriteRule(State.RuleSet, Rule.substr(0, Equals), Rule.substr(Equals + 1))) {
            throw std::invalid_argument("no rule: " + Rule);
        }
    }
}

/// Lays a position by its text, with nothing played. The start position, which the recognised rule sets and the
/// thresholds go by, stays.
inline void Lay(rules::RulesState& State, std::string_view Text) {
    const std::vector<std::string> Parts = Split(Text, ':');
    State.Board = State.BoardTemplate;
    for (rules::CellSet Cells = rules::PlayingCells; Cells.Any();) {
        State.Board[Cells.TakeFirst()] = rules::Empty;
    }
    for (std::size_t Part = 1; Part < Parts.size(); ++Part) {
        const std::int32_t Side = Parts[Part].at(0) == 'W' ? rules::White : rules::Black;
        for (const std::string& Piece : Split(Parts[Part].substr(1), ',')) {
            const bool King = Piece[0] == 'K';
            State.Board[Cell(Piece.substr(King ? 1 : 0))] = King ? 2 * Side : Side;
        }
    }
    State.Side = Parts.at(0) == "W" ? rules::White : rules::Black;
    rules::ResetMoves(State);
    rules::RecountPosition(State);
}

/// A game under the default rules changed by `Rules`, at the position `Text`, or at the start if that is empty.
inline std::unique_ptr<rules::RulesState> Game(std::string_view Rules, std::string_view Text = "") {
    auto State = std::make_unique<rules::RulesState>();
    rules::ResetRules(*State);
    WriteRules(*State, Rules);
    rules::StartRulesGame(*State);
    if (!Text.empty()) {
        Lay(*State, Text);
    }
    return State;
}

/// The position on the board in the same grammar; what has been jumped or is no piece shows as it is not expected.
inline std::string PositionText(const rules::RulesState& State) {
    std::string Sides[2];
    for (rules::CellSet Cells = rules::PlayingCells; Cells.Any();) {
        const int Square = Cells.TakeFirst();
        const std::int32_t Value = State.Board[Square];
        if (Value != rules::Empty) {
            std::string& Own = Sides[Value > 0 ? 0 : 1];
            Own +=
                (Own.empty() ? "" : ",") + std::string(std::abs(Value) == 2 ? "K" : "") + rules::AlgebraicName(Square);
        }
    }
    return std::string(State.Side == rules::White ? "W" : "B") + ":W" + Sides[0] + ":B" + Sides[1];
}

inline std::string MoveText(const rules::MoveRecord& Move) {
    std::string Text = Move.Source == rules::FromHand ? "*" : rules::AlgebraicName(Move.Source);
    if (Move.Source != rules::FromHand) {
        Text += Move.Captures.Count == 0 ? '-' : 'x';
    }
    Text += rules::AlgebraicName(Move.Dest);
    for (int I = 0; I < Move.Captures.Count; ++I) {
        const rules::CaptureGroup& Group = Move.Captures.Groups[I];
        Text += (I == 0 ? "(" : ",") + std::string(Group.Weight == 2 ? "K" : "") + rules::AlgebraicName(Group.Cell);
    }
    return Text + (Move.Captures.Count == 0 ? "" : ")") + (Move.Kind != 0 ? "K" : "");
}

/// The moves of the present ply.
inline std::vector<std::string> MovesOfPly(const rules::RulesState& State) {
    std::vector<std::string> Moves;
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        Moves.push_back(MoveText(State.MoveStack[I]));
    }
    return Moves;
}

inline std::string Joined(const std::vector<std::string>& Words) {
    std::string Text;
    for (const std::string& Word : Words) {
        Text += (Text.empty() ? "" : " ") + Word;
    }
    return Text;
}

inline std::string MoveList(const rules::RulesState& State) {
    return Joined(MovesOfPly(State));
}

/// The record of the present ply that reads as `Text`.
inline int FindMove(const rules::RulesState& State, std::string_view Text) {
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        if (MoveText(State.MoveStack[I]) == Text) {
            return I;
        }
    }
    throw std::invalid_argument("no move " + std::string(Text) + " among " + MoveList(State));
}

} // namespace zonterbrook::tests
