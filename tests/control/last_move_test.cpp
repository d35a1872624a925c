// The last move's marks on the board, and what slides.
#include "control/commands.h"
#include "control/last_move.h"
#include "control/navigation.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

using view::Trace;

class LastMove : public PersonsFixture {
protected:
    void SetUp() override {
        PersonsFixture::SetUp();
        Lay("w c3, b d4, b d6, b j0", rules::White);
        control::TraceLastMove(State);
    }
    std::string Marks() {
        std::string Found;
        for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
            if (State.Cells[Cell].Left != Trace::None) {
                Found += rules::SquareNotation(rules::Notation::Algebraic, view::SquareOfCell(State, Cell),
                                               rules::Padding::None) +
                         ".SPCT"[static_cast<int>(State.Cells[Cell].Left)] + " ";
            }
        }
        return Found;
    }
    int Slides() {
        control::TraceLastMove(State);
        return State.Slide.Number;
    }
};

TEST_F(LastMove, IsMarkedWhereverTheCursorIs) {
    EXPECT_EQ("", Marks());
    Type("c3xc7");
    const int Typed = Slides();
    EXPECT_EQ("c7T d6C e5P d4C c3S ", Marks());
    EXPECT_EQ(1, Typed);
    EXPECT_EQ(3U, State.Slide.Path.size());
    EXPECT_EQ(2U, State.Slide.Taken.size());
    control::RunCommand(State, control::CommandId::TurnBoard);
    EXPECT_EQ(Typed, Slides()) << "nothing has moved";
    EXPECT_EQ("c3S d4C e5P d6C c7T ", Marks());
    control::NavigateMoves(State, 1);
    EXPECT_EQ(Typed + 1, Slides());
    EXPECT_EQ("", Marks());
    EXPECT_TRUE(State.Slide.Taken.empty());
    control::NavigateMoves(State, -1);
    EXPECT_EQ(Typed + 2, Slides());
    State.OwnSettings.MarkLastMove = 0;
    State.OwnSettings.SlideMoves = 0;
    control::NavigateMoves(State, 1);
    EXPECT_EQ(Typed + 2, Slides());
}

TEST_F(LastMove, DoesNotSlideThatWasMadeByHandOrOverMoreThanOneMove) {
    Drag("c3", "c7");
    EXPECT_EQ(0, Slides());
    Type("j0-i9");
    EXPECT_EQ(1, Slides());
    control::NavigateMoves(State, 2);
    EXPECT_EQ(1, Slides());
}

} // namespace
} // namespace zonterbrook::tests
