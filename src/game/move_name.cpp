// Names of moves.
#include "game/move_name.h"

#include "rules/state.h"

namespace zonterbrook::game {

NamedMove NamedMoveOf(const rules::MoveRecord& Move) {
    return {Move.Source, Move.Dest, Move.Captures.Count != 0, Move.Kind != 0};
}

std::string MoveName(rules::Notation Names, char CaptureChar, const NamedMove& Move) {
    std::string Name = rules::SquareNotation(Names, Move.Source, rules::Padding::None);
    if (Move.Source != rules::FromHand) {
        Name += Move.Captures ? CaptureChar : '-';
    }
    Name += rules::SquareNotation(Names, Move.Dest, rules::Padding::None);
    return Move.Promotes ? Name + 'K' : Name;
}

std::string MoveName(const rules::RulesState& State, const NamedMove& Move) {
    return MoveName(State.NotationMode, State.CaptureChar, Move);
}

} // namespace zonterbrook::game
