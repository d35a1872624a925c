// Mouse, typing and double clicks: every latch, every refusal in its words.
#include "control/input.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

using control::LeftButton;
using control::RightButton;
using view::Highlight;
using view::Picture;

class Input : public PersonsFixture {
protected:
    void Hover(std::string_view Name) { control::c_MouseMove(State, Cell(Name)); }
    void Down(std::string_view Name) { control::c_MouseDown(State, Cell(Name), LeftButton); }
    void Up(std::string_view Name) { control::c_MouseUp(State, Cell(Name), LeftButton, 10, 10); }
    void UpRight(std::string_view Name, int X = 10) { control::c_MouseUp(State, Cell(Name), RightButton, X, 10); }
    void ExpectNothingPlayed(std::string_view Square, std::int32_t Piece) {
        EXPECT_EQ(0, State.GameMoves);
        EXPECT_EQ(Piece, PieceOn(Square));
        EXPECT_EQ(-1, State.SourceCell);
        EXPECT_TRUE(State.GameList.Lines.empty());
        ExpectConsistent();
    }
};

// --- drags -------------------------------------------------------------------------------------------------------

TEST_F(Input, ADragPlaysTheMoveEitherWayRound) {
    Drag("d4", "e5");
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ(Picture::dark_white_man, CellOn("e5").Shows);
    EXPECT_EQ(Picture::dark_square, CellOn("d4").Shows);
    EXPECT_EQ(Picture::None, CellOn("d4").Pointer);
    Run(TurnBoard);
    Drag("c7", "b6");
    ASSERT_EQ(2, State.GameMoves);
    EXPECT_EQ(Picture::dark_black_man, State.Cells[(7 - 2) * 10 + (10 - 2)].Shows);
    ExpectConsistent();
}

struct RefusalCase {
    const char *Name, *Pieces;
    std::int32_t Side;
    const char *From, *To;
    const char* Text; ///< empty: put back in silence
};

using Refusals = RowsOf<Input, RefusalCase>;

TEST_P(Refusals, SayWhyAndChangeNothing) {
    const RefusalCase& Row = GetParam();
    Lay(Row.Pieces, Row.Side);
    const std::int32_t Piece = PieceOn(Row.From);
    const view::Picture Shown = CellOn(Row.From).Shows;
    if (*Row.Text != '\0') {
        World.ExpectMessage("Error", Row.Text);
    }
    Drag(Row.From, Row.To);
    control::PutBackPiece(State); // let go where it stood, it would stay picked
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
    Hover("a1");
    ExpectShown();
}

// Two captures from c3: a long one over d4 and f6, a short one over b4.
constexpr const char* TwoCaptures = "w c3, w i1, b d4, b f6, b b4, b j0";

constexpr RefusalCase RefusalRows[] = {
    {"blocked_man", "w c3, w b4, w d4, b j0", 1, "c3", "d4", "You cannot move that piece"},
    {"blacks_piece_on_whites_turn", "w c3, b j0", 1, "j0", "i9", "White moves"},
    {"whites_piece_on_blacks_turn", "w c3, b f6", -1, "c3", "d4", "Black moves"},
    {"no_such_step", "w c3, b j0", 1, "c3", "e5", "Illegal move"},
    {"onto_a_piece", "w c3, w d4, b j0", 1, "c3", "d4", "Illegal move: that square is not empty"},
    {"another_piece_must_jump", TwoCaptures, 1, "i1", "h2", "You cannot move that piece"},
    {"plain_step_of_a_jumper", "w c3, b d4, b j0", 1, "c3", "b4", "Illegal move: you need to jump"},
    {"the_shorter_capture", TwoCaptures, 1, "c3", "a5", "Illegal move: you cannot jump that way"},
    {"jump_pending_and_target_taken", "w c3, b d4, b b4, w a5, b j0", 1, "c3", "a5", "Illegal move: you need to jump"},
    {"back_on_its_own_square", "w c3, b j0", 1, "c3", "c3", ""},
    {"a_light_square", "w c3, b j0", 1, "c3", "c4", ""}};
INSTANTIATE_TEST_SUITE_P(Rows, Refusals, testing::ValuesIn(RefusalRows), RowName);

struct DropCase {
    const char* Name;
    int X, Y;
    const char* Target; ///< of the king on e5; empty: put back
};

using Drops = RowsOf<Input, DropCase>;

TEST_P(Drops, DecideTheSquareByTheirPlace) {
    Lay("W e5, b a9");
    ASSERT_EQ(808, State.Layout.DragPitch);
    Press("e5");
    EXPECT_EQ(Picture::dark_square, CellOn("e5").Shows) << "the piece is in the hand";
    EXPECT_EQ(Picture::white_king_ico, CellOn("e5").Pointer);
    control::c_MouseUp(State, Cell("e5"), LeftButton, GetParam().X, GetParam().Y);
    if (*GetParam().Target == '\0') {
        ExpectNothingPlayed("e5", rules::WhiteKing);
        EXPECT_EQ(Picture::dark_white_king, CellOn("e5").Shows);
        Drag("e5", "f6"); // the next drag works
        EXPECT_EQ(1, State.GameMoves);
    } else {
        EXPECT_EQ(rules::WhiteKing, PieceOn(GetParam().Target));
    }
}

constexpr DropCase DropRows[] = {{"within", 807, 0, ""},
                                 {"one_right_one_up", 808, -1, "f6"},
                                 {"last_twip_of_the_next_cell", 1615, -807, "f6"},
                                 {"one_left_one_down", -1, 808, "d4"},
                                 // A coordinate of whole cells to the left or above counts one cell more.
                                 {"exactly_one_cell_left_counts_two", -808, 1616, "c3"},
                                 {"exactly_one_cell_up_counts_two", 1616, -808, "g7"},
                                 {"left_of_the_board", -4 * 808 - 50, 50, ""},
                                 {"below", 50, 5 * 808 + 50, ""},
                                 {"next_row_is_not_meant", 13 * 808 + 50, 50, ""}};
INSTANTIATE_TEST_SUITE_P(Rows, Drops, testing::ValuesIn(DropRows), RowName);

TEST_F(Input, NobodyPlaysWhileTheComputerThinksOrAfterTheGame) {
    for (const control::TurnState Closed : {control::TurnState::Thinking, control::TurnState::Over}) {
        PretendTurn(Closed);
        const view::WindowContents Before = State;
        Drag("d4", "e5");
        DoubleClickMove("d4-e5");
        State.ChoiceList.Selected = -1;
        State.RootList.Selected = 0;
        control::List3_DblClick(State);
        State.RootList.Selected = -1;
        EXPECT_EQ(0, State.GameMoves);
        EXPECT_TRUE(Before == static_cast<const view::WindowContents&>(State));
        PretendTurn(control::TurnState::Resting);
    }
}

TEST_F(Input, EveryWayOutOfADragPutsThePieceBack) {
    Press("d4");
    Run(Calculation);
    EXPECT_EQ(Picture::dark_white_man, CellOn("d4").Shows);
    EXPECT_EQ(-1, State.SourceCell);
    Release("d4", "e5");
    EXPECT_EQ(0, State.GameMoves);
    // A press whose release never came is over with the next one.
    Press("d4");
    Drag("f4", "g5");
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(Picture::dark_white_man, CellOn("d4").Shows);
    // A move typed meanwhile is played instead.
    Press("c7");
    Type("e7d6");
    EXPECT_EQ(2, State.GameMoves);
    EXPECT_EQ(Picture::dark_black_man, CellOn("c7").Shows);
    EXPECT_EQ(Picture::None, CellOn("c7").Pointer);
}

// --- numbers, boxes, the touched piece ---------------------------------------------------------------------------

TEST_F(Input, AClickPicksAndAClickPlays) {
    const auto Click = [this](std::string_view Square) { Drag(Square, Square); };
    Lay("w c3, w g3, b j0", rules::White);
    for (const char* Ends : {"c3", "a1", "Escape"}) { // the piece again, a square that is no target, the key
        SCOPED_TRACE(Ends);
        Click("c3");
        EXPECT_TRUE(CellOn("c3").Lifted);
        Hover("a1");
        EXPECT_EQ(Highlight::Dark, CellOn("d4").Box);
        EXPECT_EQ(Highlight::None, CellOn("g3").Box);
        std::string_view(Ends) == "Escape" ? control::PutBackPiece(State) : Click(Ends);
        EXPECT_FALSE(CellOn("c3").Lifted);
        EXPECT_EQ(Highlight::None, CellOn("d4").Box);
    }
    Click("c3");
    Click("g3"); // another piece
    EXPECT_TRUE(CellOn("g3").Lifted && !CellOn("c3").Lifted);
    Click("h4");
    EXPECT_EQ(rules::WhiteMan, PieceOn("h4"));
    EXPECT_EQ(0, State.PickedSquare);
    ExpectConsistent();
}

// From c3 to c7 a man jumps by way of e5 or of a5.
TEST_F(Input, OfSeveralWaysThePersonChooses) {
    struct Choice {
        const char *Name, *Square; // a square is clicked on, a digit is typed
    };
    for (const Choice& Row :
         {Choice{"first", "1"}, {"second", "2"}, {"click", "b6"}, {"shared", "c3"}, {"elsewhere", "j2"}}) {
        SCOPED_TRACE(Row.Name);
        PlayVariant("American Checkers 10x10"); // forward alone, so that no way goes round
        BetweenPersons();
        Lay("w c3, b d4, b d6, b b4, b b6, b j0", rules::White);
        Drag("c3", "c3");
        Drag("c7", "c7");
        ASSERT_EQ(2U, State.Ways.size());
        EXPECT_NE(State.Ways[0].Badge, State.Ways[1].Badge);
        const bool Digit = Row.Square[1] == '\0';
        const int First = State.MoveStack[State.WayMoves[0]].Captures.Groups[0].Cell;
        if (Digit) {
            control::c_ChooseWay(State, 3); // there is none
            control::c_ChooseWay(State, Row.Square[0] - '0');
            EXPECT_EQ(Row.Square[0] == '1', State.Record.Last().Played.Record.Captures.Groups[0].Cell == First);
            continue;
        }
        Drag(Row.Square, Row.Square);
        if (std::string_view(Row.Name) == "click") {
            EXPECT_EQ(rules::Empty, PieceOn("b6"));
        } else {
            EXPECT_EQ(0, State.Record.Count);
            EXPECT_EQ(std::string_view(Row.Name) == "shared", !State.Ways.empty());
        }
        control::PutBackPiece(State);
        EXPECT_TRUE(State.Ways.empty());
    }
}

TEST_F(Input, NumbersStayWhileAnEmptySquareIsHeld) {
    Down("e5");
    EXPECT_EQ(46, CellOn("a1").Number);
    EXPECT_EQ(28, CellOn("e5").Number);
    Hover("d4");
    EXPECT_EQ(46, CellOn("a1").Number) << "a movement took the numbers away";
    Up("e5");
    EXPECT_EQ(0, CellOn("a1").Number);
    EXPECT_EQ(0, State.GameMoves);
}

TEST_F(Input, MovementBoxesWhatCanMove) {
    Hover("e5");
    EXPECT_EQ(Highlight::Dark, CellOn("d4").Box);
    EXPECT_EQ(Highlight::None, CellOn("c3").Box) << "c3 is blocked";
    Press("d4");
    EXPECT_EQ(Highlight::Dark, CellOn("e5").Box);
    EXPECT_EQ(Highlight::Dark, CellOn("c5").Box);
    EXPECT_EQ(Highlight::None, CellOn("f4").Box);
    Release("d4", "e5");
    Hover("a5");
    EXPECT_EQ(Highlight::Dark, CellOn("c7").Box) << "the other side's pieces";
}

TEST_F(Input, TheTouchedPieceMustMoveWhereMovesAreShown) {
    State.TouchMove = 1;
    Drag("d4", "d4");
    World.ExpectMessage("Error", "Illegal move");
    Drag("f4", "g5");
    World.ExpectMessage("Error", "Illegal move");
    Run(TurnBoard);
    Drag("f4", "g5");
    EXPECT_EQ(0, State.GameMoves) << "a turn of the board frees nobody";
    Drag("d4", "e5");
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(0, State.TouchedSquare);
}

TEST_F(Input, TheTouchedPieceMayChangeWhereTheyAreNotOrWhenTheGameHasGoneOn) {
    State.TouchMove = 1;
    State.ShowAvailableMoves = 0;
    Press("d4");
    EXPECT_EQ(Highlight::None, CellOn("e5").Box);
    Release("d4", "d4");
    Drag("f4", "g5");
    EXPECT_EQ(1, State.GameMoves);
    State.ShowAvailableMoves = 1;
    for (const CommandId Other : {Compute, Back, Forward, ComputerComputer}) {
        State.TouchedSquare = Square("e7");
        World.OnWait = [&] { State.StopAutoPlay = 1; };
        World.TakesAnything = true;
        Run(Other);
        EXPECT_EQ(0, State.TouchedSquare) << control::RowOf(Other).Name;
    }
}

// --- typed moves and lists ---------------------------------------------------------------------------------------

struct TypedCase {
    const char* Name;
    const char* Pieces; ///< empty: the start position
    std::int32_t Notation;
    const char* Text;
    const char* Line; ///< of the list; empty: refused
    int Colon = 0;
};

using Typed = RowsOf<Input, TypedCase>;

TEST_P(Typed, MovesAreReadAsPeopleWriteThem) {
    const TypedCase& Row = GetParam();
    State.ColonCapture = static_cast<std::uint8_t>(Row.Colon);
    *Row.Pieces != '\0' ? Lay(Row.Pieces) : Run(NewGame);
    State.NotationMode = static_cast<rules::Notation>(Row.Notation);
    State.TypedText = Row.Text;
    control::Text2_KeyUp(State, 'e');
    EXPECT_EQ(Row.Text, State.TypedText) << "only Enter plays";
    if (*Row.Line == '\0') {
        World.ExpectMessage("Error", "Illegal move");
    }
    control::Text2_KeyUp(State, control::EnterKey);
    EXPECT_EQ("", State.TypedText);
    EXPECT_EQ(Row.Line, State.GameList.Lines.empty() ? "" : State.GameList.Lines[0]);
}

constexpr const char* Jumper = "w c3, b d4, b j0";
constexpr const char* NearCrown = "w e9, b j0"; // its step is from 8 to 3

constexpr TypedCase TypedRows[] = {{"joined", "", 0, "d4e5", "   1. d4-e5"},
                                   {"with_hyphen", "", 0, "d4-e5", "   1. d4-e5"},
                                   {"capitals_and_blanks", "", 0, " D4-E5 ", "   1. d4-e5"},
                                   {"letters_with_a_blank_between", "", 0, "d4 e5", "   1. d4-e5"},
                                   {"numbers_with_a_blank_between", "", 1, "32 28", "   1. 32-28"},
                                   {"numbers", "", 1, "32-28", "   1. 32-28"},
                                   {"without_notation_numbers_count", "", 2, "32-28", "   1. 32-28"},
                                   {"digit_to_digit", NearCrown, 1, "8-3", "   1. 8-3K"},
                                   {"jump", Jumper, 0, "c3xe5", "   1. c3xe5"},
                                   {"jump_by_the_other_sign", Jumper, 0, "C3:e5", "   1. c3xe5"},
                                   {"colon_written_if_so_chosen", Jumper, 0, "c3xe5", "   1. c3:e5", 1},
                                   {"jump_with_hyphen", Jumper, 0, "c3-e5", "   1. c3xe5"},
                                   {"jump_from_a_digit", "W e9, b d8, b j2", 1, "8x17", "   1. 8x17"},
                                   {"no_jump_where_one_waits", Jumper, 0, "c3-b4", ""},
                                   {"one_square", "", 0, "d4", ""},
                                   {"numbers_in_letters", "", 0, "32-28", ""},
                                   {"very_long", "", 1, "123456789012345678901234567890", ""}};
INSTANTIATE_TEST_SUITE_P(Rows, Typed, testing::ValuesIn(TypedRows), RowName);

TEST_F(Input, EnterInAnEmptyBoxAndAMoveAfterTheEndAreNoMistakes) {
    Type("  ");
    Lay("w c3, b d4");
    ExpectCongratulation("White wins!");
    Type("c3e5");
    Run(ComputerPlayer);
    EXPECT_EQ("Computer-Player mode", Status());
    Type("e5f6");
    EXPECT_EQ("", State.TypedText);
    EXPECT_EQ("White wins!", Status());
}

TEST_F(Input, ARootMoveIsPlayedByItsPlace) {
    World.ExpectMessage("Error", "List3_DblClick   K= 101");
    State.RootList.Selected = 101;
    control::List3_DblClick(State);
    EXPECT_EQ(0, State.GameMoves);
    State.RootMoves[3] = {Square("d4"), Square("e5"), 5};
    State.RootList.Selected = 3;
    State.RootList.Lines = {"", "", "", "d4-e5"};
    control::List3_DblClick(State);
    EXPECT_EQ(rules::WhiteMan, PieceOn("e5"));
    EXPECT_TRUE(State.RootList.Lines.empty());
    EXPECT_EQ("no calculation", State.Calculation.Text);
}

TEST_F(Input, TheLastCalculationShowsCapturesAndWhatWasPlayed) {
    Lay("w c3, w g3, b d4, b h8, b j8");
    Run(Analyze);
    ASSERT_FALSE(State.RootList.Lines.empty());
    EXPECT_TRUE(State.RootList.Lines[0].starts_with("c3xe5 ")) << State.RootList.Lines[0];
    EXPECT_EQ(-1, State.RootList.Marked) << "an analysis plays nothing";
    Run(Numeric);
    EXPECT_TRUE(State.RootList.Lines[0].starts_with("37x28")) << State.RootList.Lines[0];
    Run(Algebraic);
    Run(Compute);
    ASSERT_EQ(0, State.RootList.Marked);
    Run(Numeric);
    EXPECT_EQ(0, State.RootList.Marked) << "under another notation";

    // Those were White's moves: no double click plays or complains.
    State.RootList.Selected = 0;
    control::List3_DblClick(State);
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Input, APieceInHandEntersByItsSquareAlone) {
    WriteRules(State, "canContract=1|ContractNumber=2|ContractW1=2|ContractW2=2|ContractB1=11|ContractB2=11");
    Lay("w c5, b d0");
    ASSERT_EQ(2, State.PiecesInHandWhite);
    Type("a1");
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ(1, State.PiecesInHandWhite);
    EXPECT_EQ("   1. a1", State.GameList.Lines[0]);
    EXPECT_EQ("1", State.ExtraWhiteCount.Text);

    // From its counter, too: to a square of its row, and not to another one or beside the board.
    World.ExpectMessage("Error", "Black moves");
    control::ExtraPieces_MouseDown(State, rules::White);
    EXPECT_EQ(0, State.HandSide);
    control::ExtraPieces_MouseDown(State, rules::Black);
    EXPECT_EQ(view::Highlight::Dark, CellOn("f0").Box);
    control::ExtraPieces_MouseUp(State, -1);
    EXPECT_EQ(view::Highlight::None, CellOn("f0").Box);
    control::ExtraPieces_MouseDown(State, rules::Black);
    World.ExpectMessage("Error", "Illegal move");
    control::ExtraPieces_MouseUp(State, Cell("e5"));
    control::ExtraPieces_MouseDown(State, rules::Black);
    control::ExtraPieces_MouseUp(State, Cell("f0"));
    EXPECT_EQ("1", State.ExtraBlackCount.Text);
    ExpectShown();
}

// --- the right button --------------------------------------------------------------------------------------------

TEST_F(Input, TheRightButtonEditsTheSquare) {
    Lay("w c3, b j0");
    World.ExpectPopup(BlackKing);
    control::c_MouseDown(State, Cell("d4"), RightButton);
    UpRight("d4");
    EXPECT_EQ(rules::BlackKing, PieceOn("d4"));
    EXPECT_EQ(rules::BlackKing, State.StartBoard[Square("d4")]);
    EXPECT_TRUE(State.VariantLine.Text.ends_with(" (M)"));
    ExpectConsistent();
    ExpectShown();

    // The press that follows the popup is ignored, and the next one on an empty square shows no numbers.
    Down("e5");
    Hover("e5");
    Down("e5");
    EXPECT_EQ(0, CellOn("a1").Number);
    Up("e5");
    State.SetupLatch = true;
    Drag("c3", "c3"); // a drag lies between
    control::PutBackPiece(State);
    Down("e5");
    EXPECT_EQ(46, CellOn("a1").Number);
}

TEST_F(Input, TheRightButtonIsRefusedInSilence) {
    Drag("d4", "e5");
    UpRight("d4", State.Layout.DragPitch + 3);
    UpRight("d4", -1);
    UpRight("d5");
    Press("c7");
    UpRight("d4");
    EXPECT_EQ(Cell("c7"), State.SourceCell) << "the piece fell out of the hand";
    control::PutBackPiece(State);
    World.ExpectPopup(None);
    UpRight("d4");
    EXPECT_EQ(1, State.GameMoves) << "a menu closed without a choice";
}

TEST_F(Input, TheBoardIsClearedAndTheSideChosen) {
    World.ExpectPopup(BlackMoves);
    UpRight("e5");
    EXPECT_EQ(rules::Black, State.Side);
    EXPECT_EQ(1, State.RuleSet.BlackStarts);
    EXPECT_EQ("Black moves", Status());
    EXPECT_TRUE(control::IsTicked(State, EmptySquare)) << "what stands on the square";
    EXPECT_TRUE(control::IsTicked(State, BlackMoves)) << "who is to move";
    Hover("c7");
    Drag("c7", "b6");
    EXPECT_EQ(1, State.GameMoves);

    World.ExpectQuestion("Confirmation", "Quit current game?", true);
    Run(NewGame);
    EXPECT_EQ("White moves", Status()) << "as the variant has it";

    World.ExpectPopup(ClearBoard);
    UpRight("e5");
    EXPECT_EQ(0, State.GameMoves);
    EXPECT_TRUE(rules::AllPieces(State).None());
    EXPECT_TRUE(State.ChoiceList.Lines.empty());
    ExpectConsistent();
}

} // namespace
} // namespace zonterbrook::tests
