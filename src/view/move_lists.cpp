// The lists of moves, and the texts that say variant, strength and status.
#include "view/move_lists.h"

#include "base/text.h"
#include "formats/variant_file.h"
#include "rules/generate.h"
#include "rules/square_names.h"

namespace zonterbrook::view {

namespace {

constexpr std::size_t RowNumberWidth = 4;
constexpr std::size_t ScoreWidth = 7;
constexpr std::size_t RootMoveWidth = 6;

} // namespace

void RefreshMoveChoices(ViewState& State) {
    if (rules::MoveCountOfPly(State) <= 0) {
        rules::GenerateGameMoves(State);
    }
    State.ChoiceList.Lines.clear();
    State.ChoiceList.Selected = -1;
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        rules::DisplayMove(State, I);
        State.ChoiceList.Lines.emplace_back(State.MoveText.View());
    }
}

void ShowRootMoves(ViewState& State) {
    State.RootList.Lines.clear();
    State.RootList.Selected = -1;
    for (const engine::RootMove& Move : State.RootMoves) {
        if (Move.Source == engine::UnsetScore) {
            continue;
        }
        std::string Line = rules::SquareNotation(State, Move.Source, rules::Padding::None);
        if (!Line.empty()) {
            Line += '-';
        }
        Line += rules::SquareNotation(State, Move.Dest, rules::Padding::None);
        Line.resize(std::max(Line.size(), RootMoveWidth), ' ');
        if (Move.Score != engine::UnsetScore) {
            Line += base::PadLeft(std::to_string(Move.Score), ScoreWidth);
        }
        State.RootList.Lines.push_back(std::move(Line));
    }
}

std::string MoveListLine(int HalfMove, std::string_view DisplayText) {
    std::string Line;
    if (HalfMove % 2 == 1) {
        Line = base::PadLeft(std::to_string((HalfMove + 1) / 2), RowNumberWidth) + ". ";
    } else {
        Line.assign(RowNumberWidth + 2, ' ');
    }
    return Line.append(DisplayText);
}

std::string StrengthText(const ViewState& State) {
    std::string Text = "Strength:" + std::to_string(10 - State.Strength);
    if (State.FixedDepth == 1) {
        return Text + "   Depth:" + std::to_string(State.SearchDepth) + " ply";
    }
    return Text + "   Time:" + std::to_string(State.TimeLimit) + " sec";
}

void ShowStrength(ViewState& State) {
    State.StrengthLine.Text = StrengthText(State);
}

void ShowVariantTitle(ViewState& State) {
    State.VariantTitle = formats::VariantDisplayName(State.VariantName);
    if (!(State.RuleSet == State.LoadedRuleSet)) {
        State.VariantTitle += " (M)";
    }
    ShowTitle(State);
}

void ShowTitle(ViewState& State) {
    State.VariantLine.Text = State.VariantTitle;
    State.Caption = " " + std::string(ProductName) + " - " + State.VariantTitle;
}

void SetStatus(ViewState& State, std::string_view Text) {
    State.StatusPanels[StatusPanel] = Text;
}

std::string_view SideMovesText(std::int32_t Side) {
    return Side == rules::Black ? "Black moves" : "White moves";
}

std::string SignedText(std::int64_t Value) {
    return (Value < 0 ? "" : " ") + std::to_string(Value);
}

} // namespace zonterbrook::view
