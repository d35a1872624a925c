// The lists of moves, and the texts that say variant, strength and status.
#include "view/move_lists.h"

#include "base/text.h"
#include "formats/variant_file.h"
#include "rules/generate.h"
#include "view/time_text.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::view {

namespace {

constexpr std::size_t PairNumberWidth = 4;
constexpr std::size_t ScoreWidth = 7;
constexpr std::size_t RootMoveWidth = 6;
constexpr std::string_view EditedMark = " (M)";

void ShowTitle(ViewState& State) {
    State.VariantLine.Text = State.VariantTitle;
    State.Caption = " " + std::string(ProductName) + " - " + State.VariantTitle;
    if (!State.FileName.empty()) {
        State.Caption += " - " + State.FileName;
    }
}

} // namespace

void RefreshMoveChoices(ViewState& State) {
    if (rules::MoveCountOfPly(State) <= 0) {
        rules::GenerateGameMoves(State);
    }
    State.ChoiceList.Lines.clear();
    State.ChoiceList.Selected = -1;
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        const rules::MoveRecord& Move = State.MoveStack[I];
        std::string Line = game::MoveName(State, game::NamedMoveOf(Move));
        if (std::ranges::find(State.BookMoves, std::pair(Move.Source, Move.Dest)) != State.BookMoves.end()) {
            Line += 'b';
        }
        State.ChoiceList.Lines.push_back(std::move(Line));
    }
}

void ShowRootMoves(ViewState& State) {
    State.RootList = {};
    for (const engine::RootMove& Move : State.RootMoves) {
        if (Move.Source == engine::UnsetScore) {
            continue;
        }
        std::string Line = game::MoveName(State, {Move.Source, Move.Dest, Move.Captures, Move.Promotes});
        Line.resize(std::max(Line.size(), RootMoveWidth), ' ');
        if (Move.Score != engine::UnsetScore) {
            Line += base::PadLeft(std::to_string(Move.Score), ScoreWidth);
        }
        State.RootList.Lines.push_back(std::move(Line));
    }
}

std::string HalfMoveText(const rules::RulesState& State, const game::HalfMove& Made) {
    const std::string Name = game::MoveName(State, game::NamedMoveOf(Made.Played.Record));
    return Made.FromBook ? Name + 'b' : Name;
}

std::string GameLine(const rules::RulesState& State, const game::GameRecord& Record, int Number) {
    std::string Line;
    if (Number % 2 == 1) {
        Line = base::PadLeft(std::to_string((Number + 1) / 2), PairNumberWidth) + ". ";
    } else {
        Line.assign(PairNumberWidth + 2, ' ');
    }
    return Line + HalfMoveText(State, Record.HalfMoves[Number]);
}

void ListGame(ViewState& State, const game::GameRecord& Record, int First) {
    State.GameList.Lines.resize(static_cast<std::size_t>(First - 1));
    for (int Number = First; Number <= Record.Count; ++Number) {
        State.GameList.Lines.push_back(GameLine(State, Record, Number));
    }
    State.GameList.Selected = Record.Cursor - 1;
}

std::string LineText(const rules::RulesState& State, const CalculationFields& Found) {
    std::string Text;
    for (int I = 0; I < Found.LineLength; ++I) {
        Text += game::MoveName(State, Found.Line[I]) + ' ';
    }
    return Text;
}

void WriteCalculation(ViewState& State) {
    const CalculationFields& Found = State.Calculated;
    std::string& Text = State.Calculation.Text;
    switch (Found.Stands) {
    case CalculationFields::Stage::None:
        Text = NoCalculation;
        return;
    case CalculationFields::Stage::Begun:
        Text.clear();
        break;
    case CalculationFields::Stage::Found:
        Text = "Depth:" + SignedText(Found.Depth) + "   Best: " + game::MoveName(State, Found.Best) +
               "   Score:" + SignedText(Found.Score);
        Text += Found.FromBook ? "\nBook" : "\nMain: " + LineText(State, Found);
        break;
    }
    if (Found.Seconds >= 0) {
        Text += "\nTime: " + TimeString(Found.Seconds);
    }
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
        State.VariantTitle += EditedMark;
    }
    ShowTitle(State);
}

void ShowFileName(ViewState& State, std::string_view Name) {
    State.FileName = Name;
    ShowTitle(State);
}

void MarkTitle(ViewState& State) {
    if (!State.VariantTitle.ends_with(EditedMark)) {
        State.VariantTitle += EditedMark;
        ShowTitle(State);
    }
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
