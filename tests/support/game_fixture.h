// A program that has started, with a scripted world around it, and a person's hands on mouse and keyboard.
#pragma once

#include "base/text.h"
#include "control/events.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "rules/generate.h"
#include "support/position_text.h"
#include "support/rows.h"
#include "support/scripted_platform.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

namespace zonterbrook::tests {

using control::CommandId;
using enum control::CommandId;

class GameFixture : public testing::Test {
protected:
    ScriptedPlatform World{ZONTERBROOK_DATA_DIR};
    std::unique_ptr<control::GameState> Owned = std::make_unique<control::GameState>(World);
    control::GameState& State = *Owned;

    void SetUp() override {
        control::Form_Load(State);
        // The computer answers at once.
        State.FixedDepth = 1;
        State.SearchDepth = 1;
    }

    /// Two persons at the board, so that no reply comes.
    void BetweenPersons() { control::RunCommand(State, PlayerPlayer); }

    static int Square(std::string_view Name) { return rules::AlgebraicCell(base::ToUpper(Name)); }
    int Cell(std::string_view Name) const { return view::CellOfSquare(State, Square(Name)); }

    /// A game from a position: pieces as "w c3", "B d6" (capital: a king), separated by commas.
    void Lay(std::string_view Pieces, std::int32_t Side = rules::White) {
        for (int Cell = rules::FirstCell; Cell <= rules::LastCell; ++Cell) {
            if (rules::IsOnBoard(Cell)) {
                State.Board[Cell] = rules::Empty;
            }
        }
        for (const std::string& Entry : Split(Pieces, ',')) {
            const std::string_view Piece = base::Trim(Entry);
            const char Code = Piece[0];
            const std::int32_t Value = (Code == 'w' || Code == 'W' ? 1 : -1) * (Code == 'W' || Code == 'B' ? 2 : 1);
            State.Board[Square(Piece.substr(2))] = Value;
        }
        State.Side = Side;
        control::StartPosition(State);
    }

    /// A game of a shipped variant, with its rules.
    void PlayVariant(std::string_view Name) {
        State.VariantName = Name;
        control::StartVariant(State, control::ReadChosenVariant(State), control::RulesFrom::File);
    }

    /// As if something were at work, or nothing.
    void PretendTurn(control::TurnState Turn) {
        State.Turn = Turn;
        State.HandlersAtWork = control::IsBusy(State) ? 1 : 0;
    }

    void Run(CommandId Id) { control::RunCommand(State, Id); }

    void Press(std::string_view From) {
        const int Index = Cell(From);
        control::c_MouseMove(State, Index);
        control::c_MouseDown(State, Index, control::LeftButton);
    }

    /// Lets go over the middle of a square, as the window tells it: in twips from the cell that was pressed.
    void Release(std::string_view From, std::string_view To) {
        const int Pressed = Cell(From);
        const int Target = Cell(To);
        const int Pitch = State.Layout.DragPitch;
        const int X = (Target % 10 - Pressed % 10) * Pitch + Pitch / 2;
        const int Y = (Target / 10 - Pressed / 10) * Pitch + Pitch / 2;
        control::c_MouseMove(State, Pressed);
        control::c_MouseUp(State, Pressed, control::LeftButton, X, Y);
    }

    void Drag(std::string_view From, std::string_view To) {
        Press(From);
        Release(From, To);
    }

    void Type(std::string_view Move) {
        State.TypedText = Move;
        control::Text2_KeyUp(State, control::EnterKey);
    }

    /// Types moves, each of which must be taken.
    void Play(std::string_view Moves) {
        for (const std::string& Move : Split(Moves, ' ')) {
            const int Before = State.GameMoves;
            Type(Move);
            ASSERT_EQ(Before + 1, State.GameMoves) << Move;
        }
    }

    /// Plays four moves over and over, by which both sides go back and forth, until so many half-moves have been made
    /// or the game is over.
    void Shuffle(std::initializer_list<std::string_view> Moves, int HalfMoves) {
        while (State.GameMoves < HalfMoves && !control::IsOver(State) && !HasFatalFailure()) {
            Play(Moves.begin()[State.GameMoves % 4]);
        }
    }

    void DoubleClickMove(std::string_view Line) {
        const auto& Lines = State.ChoiceList.Lines;
        const auto At = std::find(Lines.begin(), Lines.end(), Line);
        ASSERT_NE(At, Lines.end()) << Line << " can't be played";
        State.ChoiceList.Selected = static_cast<std::int32_t>(At - Lines.begin());
        control::List2_DblClick(State);
    }

    std::int32_t PieceOn(std::string_view Name) const { return State.Board[Square(Name)]; }
    const view::BoardCell& CellOn(std::string_view Name) const { return State.Cells[Cell(Name)]; }

    std::string Status() const { return State.StatusPanels[view::StatusPanel]; }

    void ExpectCan(bool Can, std::initializer_list<CommandId> Ids) const {
        for (const CommandId Id : Ids) {
            EXPECT_EQ(Can, control::IsEnabled(State, Id)) << control::RowOf(Id).Name;
        }
    }

    void ExpectCongratulation(std::string_view Text) { World.ExpectMessage("Congratulations", Text); }

    /// The game is over, with this in the status bar.
    void ExpectOver(std::string_view Text, std::string_view Result) const {
        EXPECT_TRUE(control::IsOver(State));
        EXPECT_EQ(Text, Status());
        EXPECT_EQ(Result, game::ResultText(State.Result));
        ExpectConsistent();
    }

    /// The window shows what there is to show: to paint and to write it anew changes nothing.
    void ExpectShown() {
        const view::WindowContents Before = State;
        view::ShowPlayers(State);
        view::WriteCalculation(State);
        if (State.SourceCell < 0 && !State.NumbersShown) {
            view::DrawBoard(State, 0);
        }
        // Boxes go with the mouse; but what is told to be boxed is.
        for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
            State.Cells[Cell].Box = Before.Cells[Cell].Box;
        }
        for (int I = State.StackLimit[State.Ply]; State.SourcesShown && I < State.StackLimit[State.Ply + 1]; ++I) {
            const int Source = State.MoveStack[I].Source;
            const bool Boxed = Source == rules::FromHand ||
                               State.Cells[view::CellOfSquare(State, Source)].Box != view::Highlight::None;
            EXPECT_TRUE(Boxed || State.SourceCell >= 0 || State.PickedSquare != 0)
                << "a piece that can move is not boxed";
        }
        if (control::TakesMoves(State)) {
            view::RefreshMoveChoices(State);
            State.ChoiceList.Selected = Before.ChoiceList.Selected;
        }
        EXPECT_TRUE(Before == static_cast<const view::WindowContents&>(State)) << "something old stands in the window";
    }

    void ExpectConsistent() const { EXPECT_EQ("", rules::CheckPosition(State)); }
};

/// The computer plays without noise.
class ThinkingFixture : public GameFixture {
protected:
    void SetUp() override {
        GameFixture::SetUp();
        State.Strength = 0;
    }
};

/// The same between two persons.
class PersonsFixture : public GameFixture {
protected:
    void SetUp() override {
        GameFixture::SetUp();
        BetweenPersons();
    }
};

} // namespace zonterbrook::tests
