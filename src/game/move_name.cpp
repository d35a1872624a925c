// Names of moves.
#include "game/move_name.h"

#include "base/text.h"
#include "rules/state.h"

#include <algorithm>

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

std::string RawMove(rules::Notation Names, const NamedMove& Move) {
    return rules::SquareNotation(Names, Move.Source, rules::Padding::Zero) +
           rules::SquareNotation(Names, Move.Dest, rules::Padding::Zero);
}

MoveEnds ReadRawMove(const rules::RulesState& State, std::string_view Raw) {
    constexpr std::size_t NameLength = 2;
    const std::string Text = base::ToUpper(Raw.substr(0, 2 * NameLength));
    const std::string_view Names = Text;
    const int Source = rules::SquareNumber(State, Names.substr(0, NameLength));
    if (base::Trim(Names.substr(std::min(NameLength, Names.size()))).empty()) {
        return {Source, Source};
    }
    return {Source, rules::SquareNumber(State, Names.substr(NameLength))};
}

MoveEnds ReadTypedMove(const rules::RulesState& State, std::string_view Text) {
    constexpr std::string_view Joints = "-X: ";
    const std::string Move = base::ToUpper(base::Trim(Text));
    const std::size_t Joint = std::min(Move.find_first_of(Joints), Move.size());
    const std::size_t Split = Joint < Move.size() ? Joint : std::min<std::size_t>(2, Move.size());
    std::string Rest = Move.substr(Split);
    std::erase_if(Rest, [&](char C) { return Joints.find(C) != std::string_view::npos; });
    const int Source = rules::SquareNumber(State, Move.substr(0, Split));
    return {Source, Rest.empty() ? Source : rules::SquareNumber(State, Rest)};
}

} // namespace zonterbrook::game
