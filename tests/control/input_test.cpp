// Mouse, typing and double clicks: every latch, every refusal in its words.
#include "control/input.h"
#include "support/game_fixture.h"
#include "view/layout.h"

#include <gtest/gtest.h>

#include <string>

namespace zonterbrook::tests {
namespace {

using control::LeftButton;
using control::RightButton;
using view::Highlight;
using view::Picture;

class Input : public GameFixture {
protected:
    void SetUp() override {
        GameFixture::SetUp();
        BetweenPersons();
    }
    void ExpectNothingPlayed(std::string_view Square, std::int32_t Piece) {
        EXPECT_EQ(0, State.GameMoves);
        EXPECT_EQ(Piece, PieceOn(Square));
        EXPECT_EQ(-1, State.SourceCell);
        EXPECT_TRUE(State.List1.Lines.empty());
        ExpectConsistent();
    }
};

TEST_F(Input, ADragPlaysTheMove) {
    Drag("d4", "e5");
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(rules::WhiteMan, PieceOn("e5"));
    EXPECT_EQ(Picture::dark_white_man, CellOn("e5").Shows);
    EXPECT_EQ(Picture::dark_square, CellOn("d4").Shows);
    EXPECT_EQ(Picture::None, CellOn("d4").Pointer);
    ExpectConsistent();
}

struct RefusalCase {
    const char* Name;
    const char* Pieces;
    std::int32_t Side;
    const char* From;
    const char* To;
    const char* Text; ///< empty: put back in silence
};

class Refusals : public Input, public testing::WithParamInterface<RefusalCase> {};

TEST_P(Refusals, SayWhyAndChangeNothing) {
    const RefusalCase& Row = GetParam();
    Lay(Row.Pieces, Row.Side);
    const std::int32_t Piece = PieceOn(Row.From);
    const view::Picture Shown = CellOn(Row.From).Shows;
    if (*Row.Text != '\0') {
        World.ExpectMessage("Error", Row.Text);
    }
    Drag(Row.From, Row.To);
    EXPECT_TRUE(World.ScriptIsDone());
    ExpectNothingPlayed(Row.From, Piece);
    EXPECT_EQ(Shown, CellOn(Row.From).Shows) << "the piece is not shown where it stands";
    for (int Index = 0; Index < view::BoardPictures; ++Index) {
        const view::BoardCell& Shows = State.Cells[Index];
        EXPECT_EQ(Picture::None, Shows.Pointer) << "a drag pointer is left";
        if (State.Board[view::SquareOfCell(State, Index)] == rules::Empty) {
            EXPECT_EQ(Highlight::None, Shows.Box) << "the box of a target is left";
        }
    }
}

// Two captures from c3: a long one over d4 and f6, a short one over b4.
constexpr const char* TwoCaptures = "w c3, w i1, b d4, b f6, b b4, b j0";

INSTANTIATE_TEST_SUITE_P(
    Rows, Refusals,
    testing::Values(
        RefusalCase{"blocked_man", "w c3, w b4, w d4, b j0", 1, "c3", "d4", "You cannot move that piece"},
        RefusalCase{"blacks_piece_on_whites_turn", "w c3, b j0", 1, "j0", "i9", "White moves"},
        RefusalCase{"whites_piece_on_blacks_turn", "w c3, b f6", -1, "c3", "d4", "Black moves"},
        RefusalCase{"no_such_step", "w c3, b j0", 1, "c3", "e5", "Illegal move"},
        RefusalCase{"backwards", "w c3, b j0", 1, "c3", "b2", "Illegal move"},
        RefusalCase{"onto_a_piece", "w c3, w d4, b j0", 1, "c3", "d4", "Illegal move: that square is not empty"},
        RefusalCase{"another_piece_must_jump", TwoCaptures, 1, "i1", "h2", "You cannot move that piece"},
        RefusalCase{"plain_step_of_a_jumper", "w c3, b d4, b j0", 1, "c3", "b4", "Illegal move: you need to jump"},
        RefusalCase{"the_shorter_capture", TwoCaptures, 1, "c3", "a5", "Illegal move: you cannot jump that way"},
        RefusalCase{"jump_pending_and_target_taken", "w c3, b d4, b b4, w a5, b j0", 1, "c3", "a5",
                    "Illegal move: you need to jump"},
        RefusalCase{"back_on_its_own_square", "w c3, b j0", 1, "c3", "c3", ""},
        RefusalCase{"a_light_square", "w c3, b j0", 1, "c3", "c4", ""}),
    [](const auto& Info) { return std::string(Info.param.Name); });

struct OutsideCase {
    const char* Name;
    int Cells[2]; ///< right and down from the pressed cell, in cells
};

class Outside : public Input, public testing::WithParamInterface<OutsideCase> {};

TEST_P(Outside, ADropBeyondTheBoardPutsThePieceBack) {
    Lay("w c3, b j0");
    Press("c3");
    EXPECT_EQ(Picture::dark_square, CellOn("c3").Shows) << "the piece is in the hand";
    EXPECT_EQ(Picture::white_man_ico, CellOn("c3").Pointer);
    const int Pitch = State.Layout.DragPitch;
    control::c_MouseUp(State, Cell("c3"), LeftButton, GetParam().Cells[0] * Pitch + 50,
                       GetParam().Cells[1] * Pitch + 50);
    ExpectNothingPlayed("c3", rules::WhiteMan);
    EXPECT_EQ(Picture::dark_white_man, CellOn("c3").Shows);
    // The next drag works.
    Drag("c3", "d4");
    EXPECT_EQ(1, State.GameMoves);
}

INSTANTIATE_TEST_SUITE_P(Rows, Outside,
                         testing::Values(OutsideCase{"left", {-3, -1}}, OutsideCase{"right", {8, 0}},
                                         OutsideCase{"above", {0, -8}}, OutsideCase{"below", {0, 3}},
                                         OutsideCase{"next_row_is_not_meant", {10, 0}},
                                         OutsideCase{"far_away", {500, -500}}),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(Input, ATurnedBoardTurnsTheDrag) {
    control::RunCommand(State, view::CommandId::Turn);
    EXPECT_EQ(1, State.BoardTurned);
    Drag("d4", "e5");
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(rules::WhiteMan, PieceOn("e5"));
    EXPECT_EQ(Picture::dark_white_man, State.Cells[(6 - 2) * 10 + (10 - 5)].Shows);
}

TEST_F(Input, TheDensePitchFallsShortOnALongWay) {
    // Nine cells at 653 twips are 45 twips more than nine cells of 648.
    State.TwipsPerPixel = 12;
    State.SizeClass = 2;
    view::LayoutWindow(State);
    Lay("W a1, b a9");
    Press("a1");
    const int Pressed = Cell("a1");
    control::c_MouseUp(State, Pressed, LeftButton, 9 * 648 + 20, -9 * 648 + 20);
    EXPECT_EQ(0, State.GameMoves) << "i9 is what the pointer's figures say across, j0 what they say up";
    Press("a1");
    control::c_MouseUp(State, Pressed, LeftButton, 9 * 648 + 60, -9 * 648 + 20);
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(rules::WhiteKing, PieceOn("j0"));
}

struct EdgeOfCellCase {
    const char* Name;
    int X;
    int Y;
    const char* Target; ///< of the king on e5; empty: put back
};

class EdgesOfCells : public Input, public testing::WithParamInterface<EdgeOfCellCase> {};

TEST_P(EdgesOfCells, DecideTheSquareOfADrop) {
    Lay("W e5, b a9");
    ASSERT_EQ(808, State.Layout.DragPitch);
    Press("e5");
    control::c_MouseUp(State, Cell("e5"), LeftButton, GetParam().X, GetParam().Y);
    EXPECT_EQ(*GetParam().Target == '\0' ? 0 : 1, State.GameMoves);
    if (*GetParam().Target != '\0') {
        EXPECT_EQ(rules::WhiteKing, PieceOn(GetParam().Target));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, EdgesOfCells,
                         testing::Values(EdgeOfCellCase{"within", 807, 0, ""},
                                         EdgeOfCellCase{"one_right_one_up", 808, -1, "f6"},
                                         EdgeOfCellCase{"last_twip_of_the_next_cell", 1615, -807, "f6"},
                                         EdgeOfCellCase{"one_left_one_down", -1, 808, "d4"},
                                         // A coordinate of whole cells to the left or above counts one cell more.
                                         EdgeOfCellCase{"exactly_one_cell_left_counts_two", -808, 1616, "c3"},
                                         EdgeOfCellCase{"exactly_one_cell_up_counts_two", 1616, -808, "g7"}),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(Input, NumbersStayWhileAnEmptySquareIsHeld) {
    control::c_MouseDown(State, Cell("e5"), LeftButton, 10, 10);
    EXPECT_EQ(46, CellOn("a1").Number);
    EXPECT_EQ(28, CellOn("e5").Number);
    control::c_MouseMove(State, Cell("d4"), 0, 10, 10);
    EXPECT_EQ(46, CellOn("a1").Number) << "a movement took the numbers away";
    control::c_MouseUp(State, Cell("e5"), LeftButton, 10, 10);
    EXPECT_EQ(0, CellOn("a1").Number);
    EXPECT_EQ(0, State.GameMoves);
}

TEST_F(Input, MovementBoxesWhatCanMove) {
    control::c_MouseMove(State, Cell("e5"), 0, 10, 10);
    EXPECT_EQ(Highlight::Dark, CellOn("d4").Box);
    EXPECT_EQ(Highlight::None, CellOn("c3").Box) << "c3 is blocked";
    Press("d4");
    EXPECT_EQ(Highlight::Dark, CellOn("e5").Box);
    EXPECT_EQ(Highlight::Dark, CellOn("c5").Box);
    EXPECT_EQ(Highlight::None, CellOn("f4").Box);
    Release("d4", "e5");
    control::c_MouseMove(State, Cell("a5"), 0, 10, 10);
    EXPECT_EQ(Highlight::Dark, CellOn("c7").Box) << "the other side's pieces";
}

TEST_F(Input, WithoutTheOptionNothingIsBoxed) {
    State.ShowAvailableMoves = 0;
    Press("d4");
    for (const view::BoardCell& Cell : State.Cells) {
        EXPECT_EQ(Highlight::None, Cell.Box);
    }
    EXPECT_EQ(0, State.TouchedSquare);
    Release("d4", "e5");
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Input, TheTouchedPieceMustMoveWhereMovesAreShown) {
    State.TouchMove = 1;
    Drag("d4", "d4");
    World.ExpectMessage("Error", "Illegal move");
    Drag("f4", "g5");
    EXPECT_EQ(0, State.GameMoves);
    World.ExpectMessage("Error", "Illegal move");
    control::RunCommand(State, view::CommandId::Turn);
    Drag("f4", "g5");
    EXPECT_EQ(0, State.GameMoves) << "a turn of the board frees nobody";
    Drag("d4", "e5");
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(0, State.TouchedSquare);
}

TEST_F(Input, TheTouchedPieceMayChangeWhereTheyAreNot) {
    State.TouchMove = 1;
    State.ShowAvailableMoves = 0;
    Drag("d4", "d4");
    Drag("f4", "g5");
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Input, ACircularCaptureIsDroppedWhereItBegan) {
    // Round over four men, back to the start.
    Lay("W c3, b d4, b d6, b b6, b b4, b j0");
    Press("c3");
    EXPECT_EQ(1, State.CycleMove);
    Release("c3", "c3");
    EXPECT_EQ(1, State.GameMoves);
    ASSERT_EQ(1U, State.List1.Lines.size());
    EXPECT_EQ("   1. c3xc3", State.List1.Lines[0]);
}

TEST_F(Input, OfTwoCapturesWithTheSameEndsTheFirstIsPlayed) {
    // c3 to c7 round the right or round the left; forward captures alone, so that nobody comes full circle.
    State.RuleSet.MovementStrings[0].Assign("NW;NE NW;NE");
    Lay("w c3, b d4, b d6, b b4, b b6, b j0");
    ASSERT_EQ(2U, State.List2.Lines.size());
    const rules::CapturePath First = State.MoveStack[0].Captures;
    Drag("c3", "c7");
    EXPECT_EQ(First, State.PlayedMoves[1].Record.Captures);
}

TEST_F(Input, PressesAreDeafWhileTheComputerThinks) {
    State.Thinking = 1;
    const view::WindowContents Before = State;
    Drag("d4", "e5");
    Type("d4e5");
    State.List2.Selected = 0;
    control::List2_DblClick(State);
    State.List2.Selected = -1;
    State.Text2.Text.clear();
    EXPECT_EQ(0, State.GameMoves);
    EXPECT_TRUE(Before == static_cast<const view::WindowContents&>(State));
}

TEST_F(Input, AfterTheGamePiecesStay) {
    State.GameEnded = 1;
    Drag("d4", "e5");
    Type("d4e5");
    DoubleClickMove("d4-e5");
    EXPECT_EQ(0, State.GameMoves);
}

TEST_F(Input, ACommandInMidDragPutsThePieceBack) {
    Press("d4");
    control::RunCommand(State, view::CommandId::calculation);
    EXPECT_EQ(Picture::dark_white_man, CellOn("d4").Shows);
    Release("d4", "e5");
    EXPECT_EQ(0, State.GameMoves);
    Drag("f4", "g5");
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Input, APressWithoutReleaseIsOverWithTheNextPress) {
    Press("d4");
    Drag("f4", "g5");
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(rules::WhiteMan, PieceOn("g5"));
    EXPECT_EQ(Picture::dark_white_man, CellOn("d4").Shows);
}

TEST_F(Input, TheTouchedPieceIsForgottenWhenTheComputerMovesInstead) {
    control::RunCommand(State, view::CommandId::Cplayer);
    State.TouchMove = 1;
    Drag("d4", "d4");
    ASSERT_EQ(Square("d4"), State.TouchedSquare);
    control::RunCommand(State, view::CommandId::Compute);
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ(0, State.TouchedSquare);
}

TEST_F(Input, EscapePutsThePieceBack) {
    Press("d4");
    control::PutBackPiece(State);
    EXPECT_EQ(Picture::dark_white_man, CellOn("d4").Shows);
    EXPECT_EQ(-1, State.SourceCell);
    control::c_MouseUp(State, Cell("d4"), LeftButton, 10, 10);
    EXPECT_EQ(0, State.GameMoves);
}

struct TypedCase {
    const char* Name;
    std::int32_t Notation;
    const char* Text;
    const char* Line; ///< of the list; empty: refused
};

class Typed : public Input, public testing::WithParamInterface<TypedCase> {};

TEST_P(Typed, MovesAreReadAsPeopleWriteThem) {
    const TypedCase& Row = GetParam();
    // Besides the jump there is nothing to play; 8 steps to 3 in the other position.
    if (std::string_view(Row.Name).starts_with("digit")) {
        Lay("w e9, b j0");
    } else if (std::string_view(Row.Name).starts_with("jump")) {
        Lay("w c3, b d4, b j0");
    }
    State.NotationMode = Row.Notation;
    if (*Row.Line == '\0') {
        World.ExpectMessage("Error", "Illegal move");
    }
    Type(Row.Text);
    EXPECT_EQ("", State.Text2.Text);
    EXPECT_EQ(*Row.Line == '\0' ? 0 : 1, State.GameMoves);
    if (*Row.Line != '\0') {
        ASSERT_EQ(1U, State.List1.Lines.size());
        EXPECT_EQ(Row.Line, State.List1.Lines[0]);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Typed,
    testing::Values(
        TypedCase{"joined", 0, "d4e5", "   1. d4-e5"}, TypedCase{"with_hyphen", 0, "d4-e5", "   1. d4-e5"},
        TypedCase{"capitals", 0, "D4-E5", "   1. d4-e5"}, TypedCase{"with_blanks_around", 0, " d4-e5 ", "   1. d4-e5"},
        TypedCase{"numbers", 1, "32-28", "   1. 32-28"}, TypedCase{"joined_numbers", 1, "3228", "   1. 32-28"},
        TypedCase{"without_notation_numbers_count", 2, "32-28", "   1. 32-28"},
        TypedCase{"digit_to_digit", 1, "8-3", "   1. 8-3K"},
        TypedCase{"digit_to_digit_with_zeros", 1, "08-03", "   1. 8-3K"}, TypedCase{"jump", 0, "c3xe5", "   1. c3xe5"},
        TypedCase{"jump_in_capitals", 0, "C3XE5", "   1. c3xe5"},
        TypedCase{"jump_with_hyphen", 0, "c3-e5", "   1. c3xe5"}, TypedCase{"jump_step_refused", 0, "c3-b4", ""},
        TypedCase{"nonsense", 0, "hello", ""}, TypedCase{"empty", 0, "", ""}, TypedCase{"one_square", 0, "d4", ""},
        TypedCase{"hyphens_alone", 0, "---", ""}, TypedCase{"numbers_in_letters", 0, "32-28", ""},
        TypedCase{"very_long", 1, "123456789012345678901234567890", ""}),
    [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(Input, OnlyEnterPlaysWhatIsTyped) {
    State.Text2.Text = "d4e5";
    control::Text2_KeyUp(State, 'e');
    EXPECT_EQ(0, State.GameMoves);
    EXPECT_EQ("d4e5", State.Text2.Text);
}

TEST_F(Input, ADoubleClickPlaysItsLine) {
    DoubleClickMove("d4-e5");
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ("no calculation", State.Label9.Text);
}

TEST_F(Input, ALineOfSixCharactersLosesItsMark) {
    State.List2.Lines = {"d4-e5b"};
    State.List2.Selected = 0;
    control::List2_DblClick(State);
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Input, ARefusedLineShutsTheListWhileItIsSaid) {
    State.List2.Lines = {"a1-b2"};
    State.List2.Selected = 0;
    bool EnabledMeanwhile = true;
    World.OnMessage = [&] { EnabledMeanwhile = State.List2.Enabled; };
    World.ExpectMessage("Error", "Illegal move");
    control::List2_DblClick(State);
    EXPECT_FALSE(EnabledMeanwhile);
    EXPECT_TRUE(State.List2.Enabled);
}

TEST_F(Input, ARootMoveIsPlayedByItsPlace) {
    State.RootMoves[3] = {Square("d4"), Square("e5"), 5};
    State.List3.Selected = 3;
    control::List3_DblClick(State);
    EXPECT_EQ(rules::WhiteMan, PieceOn("e5"));
    EXPECT_TRUE(State.List3.Lines.empty());
}

TEST_F(Input, APlaceBeyondTheTableIsSaid) {
    World.ExpectMessage("Error", "List3_DblClick   K= 101");
    State.List3.Selected = 101;
    control::List3_DblClick(State);
    EXPECT_EQ(0, State.GameMoves);
    EXPECT_FALSE(World.Ended);
}

TEST_F(Input, APieceInHandEntersByItsSquareAlone) {
    State.RuleSet.canContract = 1;
    State.RuleSet.ContractNumber = 2;
    State.RuleSet.ContractW1 = 2;
    State.RuleSet.ContractW2 = 2;
    State.RuleSet.ContractB1 = 11;
    State.RuleSet.ContractB2 = 11;
    Lay("w c5, b d0");
    ASSERT_EQ(2, State.PiecesInHandWhite);
    Type("a1");
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ(1, State.PiecesInHandWhite);
    EXPECT_EQ("   1. a1", State.List1.Lines[0]);
    EXPECT_EQ("1", State.Label14.Text);
}

TEST_F(Input, TheRightButtonEditsTheSquare) {
    Lay("w c3, b j0");
    const int Index = Cell("d4");
    World.ExpectPopup(view::CommandId::mnu_PopUp_BlackKing);
    control::c_MouseDown(State, Index, RightButton, 100, 100);
    control::c_MouseUp(State, Index, RightButton, 100, 100);
    EXPECT_EQ(rules::BlackKing, PieceOn("d4"));
    EXPECT_EQ(rules::BlackKing, State.StartBoard[Square("d4")]);
    EXPECT_TRUE(State.Label8.Text.ends_with(" (M)"));
    ExpectConsistent();

    // The press that follows the popup is ignored, and the next one on an empty square shows no numbers.
    control::c_MouseDown(State, Cell("e5"), LeftButton, 10, 10);
    control::c_MouseMove(State, Cell("e5"), 0, 10, 10);
    control::c_MouseDown(State, Cell("e5"), LeftButton, 10, 10);
    EXPECT_EQ(0, CellOn("a1").Number);
    control::c_MouseUp(State, Cell("e5"), LeftButton, 10, 10);
    control::c_MouseDown(State, Cell("e5"), LeftButton, 10, 10);
    EXPECT_EQ(46, CellOn("a1").Number);
}

TEST_F(Input, TheRightButtonIsRefusedInSilence) {
    Lay("w c3, b j0");
    const int Limit = State.Layout.DragPitch + 3;
    control::c_MouseUp(State, Cell("d4"), RightButton, Limit, 10);
    control::c_MouseUp(State, Cell("d4"), RightButton, -1, 10);
    control::c_MouseUp(State, Cell("d5"), RightButton, 10, 10);
    Press("c3");
    control::c_MouseUp(State, Cell("d4"), RightButton, 10, 10);
    EXPECT_EQ(Cell("c3"), State.SourceCell) << "the piece fell out of the hand";
}

TEST_F(Input, AMenuClosedWithoutAChoiceChangesNothing) {
    Drag("d4", "e5");
    World.ExpectPopup(view::CommandId::None);
    control::c_MouseUp(State, Cell("e5"), RightButton, 10, 10);
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Input, AClearedBoardKeepsItsBorder) {
    World.ExpectPopup(view::CommandId::mnu_PopUp_ClearBoard);
    control::c_MouseUp(State, Cell("e5"), RightButton, 10, 10);
    EXPECT_TRUE(rules::AllPieces(State).None());
    EXPECT_EQ(rules::Border, State.Board[24]);
    EXPECT_EQ(rules::Border, State.Board[36]);
    EXPECT_TRUE(State.List2.Lines.empty());
    ExpectConsistent();
}

TEST_F(Input, TheSideToMoveCanBeChosen) {
    World.ExpectPopup(view::CommandId::mnu_PopUp_BlackM);
    control::c_MouseUp(State, Cell("e5"), RightButton, 10, 10);
    EXPECT_EQ(rules::Black, State.Side);
    EXPECT_EQ(1, State.RuleSet.BlackStarts);
    EXPECT_EQ("Black moves", State.StatusPanels[view::StatusPanel]);
    EXPECT_EQ("Black", State.Label3.Text);
    Drag("c7", "b6");
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Input, CellsThatDoNotExistAreIgnored) {
    for (const int Index : {-1, 100, 5000}) {
        control::c_MouseMove(State, Index, 0, 0, 0);
        control::c_MouseDown(State, Index, LeftButton, 0, 0);
        control::c_MouseUp(State, Index, LeftButton, 0, 0);
    }
    EXPECT_FALSE(World.Ended);
}

} // namespace
} // namespace zonterbrook::tests
