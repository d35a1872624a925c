// Random events of mouse, keyboard and commands, with searches that are cancelled at any node: no fault, and after each
// of them a state that is in order.
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

// What the tree of commands offers without opening a dialog, and without ending the run.
constexpr CommandId Choices[] = {Compute,      First,     Last,   OfferDraw,   Resign,     ComputerPlayer,
                                 PlayerPlayer, TurnBoard, Rating, Calculation, NoNotation, NewGame,
                                 Back,         Forward,   Back,   Forward};

class WildEvents : public RowsOf<GameFixture, const char*> {
protected:
    void SetUp() override {
        GameFixture::SetUp();
        World.TakesAnything = true;
        State.SearchDepth = 4;
        World.OnNode = [&] {
            if (Below(200) == 0) {
                Run(Cancel);
            }
        };
    }

    int Below(int Limit) { return static_cast<int>(World.Random() * Limit); }

    // From one cell to another: mostly as a move goes, since events at random hardly ever make one.
    void DragSomething() {
        const int Moves = rules::MoveCountOfPly(State);
        const rules::MoveRecord& Move = State.MoveStack[State.StackLimit[State.Ply] + Below(std::max(Moves, 1))];
        const bool Moving = Moves > 0 && Move.Source != rules::FromHand && Below(4) != 0;
        const int From = Moving ? view::CellOfSquare(State, Move.Source) : Below(100);
        const int To = Moving && Below(4) != 0 ? view::CellOfSquare(State, Move.Dest) : Below(100);
        const int Button = Below(60) == 0 ? control::RightButton : control::LeftButton;
        const int Pitch = State.Layout.DragPitch;
        if (Below(5) != 0) {
            control::c_MouseMove(State, From);
        }
        control::c_MouseDown(State, From, Button);
        if (Below(8) != 0) { // else the release comes in the middle of something else, or never
            control::c_MouseUp(State, From, Button, (To % 10 - From % 10) * Pitch + Below(Pitch),
                               (To / 10 - From / 10) * Pitch + Below(Pitch));
        }
    }

    void Scribble() {
        static constexpr std::string_view Signs = "abcdefghij0123456789-x:K ";
        std::string Text;
        for (int I = Below(8); I >= 0; --I) {
            Text += Signs[static_cast<std::size_t>(Below(static_cast<int>(Signs.size())))];
        }
        if (Below(2) == 0) {
            State.CommentText = Text;
            control::Text1_KeyUp(State);
        } else {
            Type(Text);
        }
    }

    void DoSomething() {
        switch (Below(12)) {
        case 0:
            Run(Choices[Below(static_cast<int>(std::size(Choices)))]);
            break;
        case 1:
            Scribble();
            break;
        case 2:
            State.ChoiceList.Selected = Below(12) - 1;
            control::List2_DblClick(State);
            break;
        case 3:
            State.GameList.Selected = Below(static_cast<int>(State.GameList.Lines.size()) + 2) - 1;
            control::List1_MouseUp(State);
            break;
        case 4:
            State.RootList.Selected = Below(110) - 2;
            control::List3_DblClick(State);
            break;
        case 5:
            Run(Below(2) == 0 ? Algebraic : Numeric);
            break;
        default:
            DragSomething();
        }
    }
};

TEST_P(WildEvents, LeaveTheStateInOrder) {
    PlayVariant(GetParam());
    rules::BoardCellsArray Start = State.Board;
    int MovesSeen = 0;
    for (int Event = 0; Event < 2000; ++Event) {
        DoSomething();
        MovesSeen = std::max(MovesSeen, State.Record.Count);
        ASSERT_FALSE(World.Ended) << World.LastSaid;
        ASSERT_EQ("", control::CheckRest(State))
            << "after event " << Event << ", position " << rules::SetupText(State.Board);
        ASSERT_EQ(State.Record.Last().TotalMaterial, State.TotalMaterial[State.Ply]);
        ExpectShown();
        ASSERT_FALSE(HasFailure()) << "after event " << Event;
        Start = State.Record.Count == 0 ? State.Board : Start;
        if (Event % 20 == 0) {
            Run(First);
            ASSERT_EQ(Start, State.Board) << "the way back from event " << Event;
            Run(Last);
        }
    }
    EXPECT_GT(MovesSeen, 10) << "hardly a move was made";
}

INSTANTIATE_TEST_SUITE_P(Variants, WildEvents,
                         testing::Values("International Checkers", "Russian Checkers 10x10", "Turkish Draughts 10x10",
                                         "Reserves", "Frisian Draughts", "American Checkers 10x10",
                                         "Italian Checkers 10x10", "Giveaway Checkers 10x10", "Breakthrough Draughts",
                                         "Dameo 10x10", "Turncoats"),
                         TextName);

} // namespace
} // namespace zonterbrook::tests
