// The board played on with the keys: every road of the mouse, from the cursor.
#include "support/game_fixture.h"
#include "view/layout.h"

namespace zonterbrook::tests {
namespace {

using control::BoardKey;
using view::Highlight;
using view::Picture;

class Keyboard : public PersonsFixture {
protected:
    void SetUp() override {
        PersonsFixture::SetUp();
        control::c_GotFocus(State, true);
    }

    void Down(BoardKey Key) { control::c_KeyDown(State, Key); }
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

TEST_F(Keyboard, TheCursorBeginsOnAPieceThatCanMove) {
    EXPECT_NE(std::string::npos, control::c_Text(State, State.CursorCell).find("can move"));
}

TEST_F(Keyboard, APieceIsPickedCarriedAndDropped) {
    PickAt("d4");
    EXPECT_EQ(Picture::dark_square, CellOn("d4").Shows);
    EXPECT_EQ(Picture::white_man_ico, CellOn("d4").Pointer);
    EXPECT_EQ(Highlight::Dark, CellOn("e5").Box);
    PickAt("e5");
    EXPECT_EQ(1, PieceOn("e5"));
    EXPECT_EQ(1, State.GameMoves);
}

// Whatever a cell measures, the cursor's cell is the one that the piece falls on.
TEST_F(Keyboard, WaysEndOnTheCursorsSquare) {
    // Size, density, and whether the board is turned; a skin that tells no size is the last.
    constexpr std::tuple<int, int, int> Rows[] = {{0, 15, 0}, {0, 12, 0}, {2, 15, 0},
                                                  {2, 12, 0}, {2, 12, 1}, {4, 15, 0}};
    for (const auto& [SizeClass, Twips, Turned] : Rows) {
        State.SizeClass = SizeClass;
        State.TwipsPerPixel = Twips;
        State.BoardCustomSize = -1;
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
    Stroke(BoardKey::Pick); // an empty square again
    EXPECT_EQ(0, State.GameMoves);
}

TEST_F(Keyboard, RefusalsAreThoseOfTheMouse) {
    World.ExpectMessage("Error", "White moves");
    PickAt("b8");
    World.ExpectMessage("Error", "Illegal move: that square is not empty");
    PickAt("d4");
    PickAt("c3");
    PickAt("d4");
    PickAt("d5"); // a light square puts it back in silence
    EXPECT_EQ(-1, State.SourceCell);
    EXPECT_EQ(0, State.GameMoves);
}

TEST_F(Keyboard, NumbersShowWhileTheKeyIsHeldOnAnEmptySquare) {
    WalkTo("e5");
    Down(BoardKey::Pick);
    EXPECT_EQ(28, CellOn("e5").Number);
    control::c_KeyUp(State, BoardKey::Pick);
    EXPECT_EQ(0, CellOn("e5").Number);
    Down(BoardKey::Pick);
    control::c_LostFocus(State, false); // the release goes elsewhere
    EXPECT_EQ(0, CellOn("e5").Number);
}

TEST_F(Keyboard, TheFirstStepBoxesWhatCanMove) {
    view::DrawBoard(State, 0);
    Stroke(BoardKey::Right);
    EXPECT_EQ(Highlight::Dark, CellOn("d4").Box);
    EXPECT_EQ(Highlight::None, CellOn("c3").Box);
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
    Stroke(BoardKey::Right);
    EXPECT_EQ(Cell("e4"), State.CursorCell);
}

TEST_F(Keyboard, TheCursorIsShownWhereTheKeysAre) {
    const int Before = State.CursorCell;
    control::c_LostFocus(State, false);
    EXPECT_EQ(-1, State.CursorCell);
    control::c_GotFocus(State, false); // a message box has closed
    EXPECT_EQ(Before, State.CursorCell);
    control::c_LostFocus(State, true);
    control::c_GotFocus(State, false); // the list that the person went to is closed while the computer thinks
    EXPECT_EQ(-1, State.CursorCell);
    control::c_GotFocus(State, true);
    Press("d4");
    control::c_LostFocus(State, false);
    control::c_GotFocus(State, false); // the mouse plays
    EXPECT_EQ(-1, State.CursorCell);
    control::c_GotFocus(State, true);
    EXPECT_EQ(Cell("d4"), State.CursorCell);
}

TEST_F(Keyboard, NothingMovesWhileTheComputerThinksOrAfterTheEnd) {
    const int Before = State.CursorCell;
    for (const control::TurnState Closed : {control::TurnState::Thinking, control::TurnState::Over}) {
        PretendTurn(Closed);
        PickAt("d4");
        EXPECT_EQ(-1, State.SourceCell);
        EXPECT_EQ("d4, White man", control::c_Text(State, Cell("d4")));
        PretendTurn(control::TurnState::Resting);
    }
    EXPECT_NE(Before, State.CursorCell); // but the cursor walks
    EXPECT_EQ("d4, White man, can move", control::c_Text(State, Cell("d4")));
}

TEST_F(Keyboard, AChosenCellPicksAndDrops) {
    control::c_Choose(State, Cell("d4"));
    EXPECT_EQ(Cell("d4"), State.SourceCell);
    EXPECT_EQ("e5, empty, target", control::c_Text(State, Cell("e5")));
    control::c_Choose(State, Cell("e5"));
    EXPECT_EQ(1, PieceOn("e5"));
    control::c_Choose(State, Cell("d6"));
    EXPECT_FALSE(State.NumbersShown); // nothing holds the key
}

} // namespace
} // namespace zonterbrook::tests
