// The board played on with the keys: the cursor, and how it does what the mouse would.
#include "support/game_fixture.h"
#include "view/layout.h"

namespace zonterbrook::tests {
namespace {

using control::BoardKey;
using view::Picture;

class Keyboard : public PersonsFixture {
protected:
    void SetUp() override {
        PersonsFixture::SetUp();
        control::c_GotFocus(State, true);
    }

    void Stroke(BoardKey Key) {
        control::c_KeyDown(State, Key);
        control::c_KeyUp(State, Key);
    }

    // Walks there with the arrows.
    void WalkTo(std::string_view Name) {
        for (int Steps = 0; State.CursorCell % 10 != Cell(Name) % 10 && Steps < 10; ++Steps) {
            Stroke(State.CursorCell % 10 < Cell(Name) % 10 ? BoardKey::Right : BoardKey::Left);
        }
        for (int Steps = 0; State.CursorCell / 10 != Cell(Name) / 10 && Steps < 10; ++Steps) {
            Stroke(State.CursorCell / 10 < Cell(Name) / 10 ? BoardKey::Down : BoardKey::Up);
        }
        ASSERT_EQ(Cell(Name), State.CursorCell);
    }

    void PickAt(std::string_view Name) {
        WalkTo(Name);
        Stroke(BoardKey::Pick);
    }
};

TEST_F(Keyboard, TheCursorBeginsOnAPieceThatCanMoveAndStopsAtTheEdges) {
    EXPECT_NE(std::string::npos, control::c_Text(State, State.CursorCell).find("can move"));
    for (const auto& [Edge, Outwards] :
         {std::pair("a4", BoardKey::Left), {"j4", BoardKey::Right}, {"d0", BoardKey::Up}, {"d1", BoardKey::Down}}) {
        WalkTo(Edge);
        Stroke(Outwards);
        EXPECT_EQ(Cell(Edge), State.CursorCell);
    }
    Run(TurnBoard);
    EXPECT_EQ(Cell("d1"), State.CursorCell) << "the square stays behind when the board is turned";
}

// Whatever a cell measures, the cursor's cell is the one that the piece falls on.
TEST_F(Keyboard, WaysEndOnTheCursorsSquare) {
    // Size, density, and whether the board is turned; a skin that tells no size is the last.
    constexpr std::tuple<int, int, int> Rows[] = {{0, 15, 0}, {0, 12, 0}, {2, 15, 0},
                                                  {2, 12, 0}, {2, 12, 1}, {4, 15, 0}};
    for (const auto& [SizeClass, Twips, Turned] : Rows) {
        State.SizeClass = SizeClass;
        State.TwipsPerPixel = Twips;
        State.BoardTurned = Turned;
        view::LayoutWindow(State);
        Lay("W a1, B j2");
        PickAt("a1");
        PickAt("i9");
        EXPECT_EQ(2, PieceOn("i9")) << SizeClass << ' ' << Twips;
        PickAt("j2");
        PickAt("b0");
        EXPECT_EQ(-2, PieceOn("b0")) << SizeClass << ' ' << Twips;
    }
}

TEST_F(Keyboard, PickedTwiceOrEscapedThePieceIsPutBack) {
    PickAt("d4");
    Stroke(BoardKey::Pick);
    EXPECT_EQ(-1, State.SourceCell);
    EXPECT_EQ(Picture::dark_white_man, CellOn("d4").Shows);
    PickAt("d4");
    WalkTo("e5");
    control::PutBackPiece(State);
    EXPECT_EQ(Picture::None, CellOn("d4").Pointer);
    EXPECT_EQ(Cell("e5"), State.CursorCell);
    control::c_KeyDown(State, BoardKey::Pick); // an empty square again
    EXPECT_EQ(28, CellOn("e5").Number);
    control::c_LostFocus(State, false); // the release goes elsewhere
    EXPECT_EQ(0, CellOn("e5").Number);
    control::c_Choose(State, Cell("e5"));
    EXPECT_FALSE(State.NumbersShown) << "nothing holds the key";
    EXPECT_EQ(0, State.GameMoves);
}

TEST_F(Keyboard, TheEditorOpensOnTheCursorsSquare) {
    WalkTo("e5");
    World.ExpectPopup(WhiteKing);
    Stroke(BoardKey::Menu);
    EXPECT_EQ(2, PieceOn("e5"));
    PickAt("e5"); // at once, without a touch of the mouse
    EXPECT_EQ(Cell("e5"), State.SourceCell);
}

TEST_F(Keyboard, TheMouseHidesTheCursorAndSetsItsPlace) {
    Drag("d4", "e5");
    EXPECT_EQ(-1, State.CursorCell);
    Stroke(BoardKey::Right); // comes back where the mouse was pressed, without a step
    EXPECT_EQ(Cell("d4"), State.CursorCell);
    EXPECT_EQ(view::Highlight::Dark, CellOn("c7").Box) << "what can move is boxed, as by the mouse";
    Stroke(BoardKey::Right);
    EXPECT_EQ(Cell("e4"), State.CursorCell);
}

TEST_F(Keyboard, WordsSayWhatCanMoveOnlyWhenItMay) {
    for (const control::TurnState Closed : {control::TurnState::Thinking, control::TurnState::Over}) {
        PretendTurn(Closed);
        PickAt("d4"); // the cursor walks all the same
        EXPECT_EQ(-1, State.SourceCell);
        EXPECT_EQ("d4, White man", control::c_Text(State, Cell("d4")));
        PretendTurn(control::TurnState::Resting);
    }
    EXPECT_EQ("d4, White man, can move", control::c_Text(State, Cell("d4")));
}

} // namespace
} // namespace zonterbrook::tests
