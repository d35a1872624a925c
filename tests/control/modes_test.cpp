// The three modes: names, ticks and commands, the computer against itself to the end of its games, and Cancel.
#include "control/game_document.h"
#include "control/modes.h"
#include "control/pdn_game.h"
#include "formats/variant_file.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

class Modes : public ThinkingFixture {
protected:
    void ExpectMode(view::GameMode Mode, CommandId Ticked) {
        EXPECT_EQ(Mode, State.PlayMode);
        for (const CommandId Id : {ComputerPlayer, PlayerPlayer, ComputerComputer}) {
            EXPECT_EQ(Id == Ticked, control::IsTicked(State, Id)) << control::RowOf(Id).Name;
        }
    }
    void ExpectPersonToMove() {
        const bool WhiteMoves = State.Side == rules::White;
        EXPECT_EQ(WhiteMoves ? "Player" : "Computer", State.WhitePlayerName);
        EXPECT_EQ(WhiteMoves ? "Computer" : "Player", State.BlackPlayerName);
        const bool UpperIsPerson = WhiteMoves == (State.RuleSet.BlackStarts == 0);
        EXPECT_EQ(UpperIsPerson ? "Player" : "Computer", State.UpperName.Text);
    }
};

TEST_F(Modes, APersonGetsTheSideToMove) {
    for (const std::int32_t Starts : {rules::White, rules::Black}) {
        for (const int Moves : {0, 1}) {
            Run(PlayerPlayer);
            Lay("w c3, w e3, b d8, b f8", Starts);
            EXPECT_EQ("PlayerPlayer", State.WhitePlayerName + State.BlackPlayerName);
            if (Moves == 1) {
                DoubleClickMove(State.ChoiceList.Lines.at(0));
            }
            Run(ComputerPlayer);
            ExpectPersonToMove();
            EXPECT_EQ(Moves, State.GameMoves) << "the game stays as it is";
        }
    }
}

TEST_F(Modes, APersonAgainstAPersonNeitherResignsNorOffers) {
    BetweenPersons();
    ExpectMode(view::GameMode::PlayerPlayer, PlayerPlayer);
    ExpectCan(false, {OfferDraw, Resign});
    EXPECT_EQ("Player-Player mode", Status());
    Run(ComputerPlayer);
    ExpectMode(view::GameMode::ComputerPlayer, ComputerPlayer);
    ExpectCan(true, {OfferDraw, Resign});
    EXPECT_EQ("Computer-Player mode", Status());
}

struct ColourCase {
    const char* Name;
    std::int32_t Starts;
    CommandId Chosen;
    int Moves; ///< that the computer makes at once
};

using Colours = RowsOf<Modes, ColourCase>;

TEST_P(Colours, AreChosenAtOnceAndRemembered) {
    const ColourCase& Row = GetParam();
    const bool White = Row.Chosen == PlayWhite;
    const auto ExpectColour = [&](int Moves) {
        EXPECT_EQ(Moves, State.GameMoves);
        EXPECT_EQ(White ? rules::White : rules::Black, State.Side) << "the person is to move";
        ExpectPersonToMove();
        EXPECT_TRUE(control::IsTicked(State, Row.Chosen));
        EXPECT_EQ(view::SideMovesText(State.Side), Status());
    };
    Lay("w c3, w e3, w g3, b d8, b f8, b h8", Row.Starts);
    Run(Row.Chosen);
    ExpectColour(Row.Moves);
    EXPECT_EQ(White ? 0 : 1, State.BoardTurned) << "the person's side stands at the bottom";
    Run(Row.Chosen);
    ExpectColour(Row.Moves); // a second time there is nothing to do
    Run(PlayerPlayer);
    Run(Row.Chosen);
    ExpectMode(view::GameMode::ComputerPlayer, ComputerPlayer);
    State.GameChanged = false;
    Run(NewGame);
    ExpectColour(White ? 0 : 1);
}

constexpr ColourCase ColourRows[] = {{"white_begins", rules::White, PlayWhite, 0},
                                     {"white_against_black_that_begins", rules::Black, PlayWhite, 1},
                                     {"black_against_white_that_begins", rules::White, PlayBlack, 1},
                                     {"black_begins", rules::Black, PlayBlack, 0}};
INSTANTIATE_TEST_SUITE_P(Rows, Colours, testing::ValuesIn(ColourRows), RowName);

TEST_F(Modes, AtTheStartTheComputerBeginsAgainstBlackAlone) {
    control::Form_Activate(State);
    EXPECT_EQ(0, State.GameMoves) << "no colour has been chosen";
    State.OwnSettings.PlayColour = static_cast<std::int32_t>(view::PersonColour::Black);
    State.GameChanged = true;
    control::Form_Activate(State);
    EXPECT_EQ(0, State.GameMoves) << "a game of the last run waits";
    State.GameChanged = false;
    control::Form_Activate(State);
    EXPECT_EQ(1, State.GameMoves);
    ExpectPersonToMove();
}

TEST_F(Modes, ASecondPersonHasANameWhereOneIsGiven) {
    State.OwnSettings.SecondName = "Ann";
    Run(PlayerPlayer);
    EXPECT_EQ("Player", State.UpperName.Text);
    EXPECT_EQ("Ann", State.LowerName.Text);
    World.OnOptions = [](auto&) {};
    Run(Options);
    EXPECT_EQ("Ann", State.LowerName.Text) << "the names after the options";
    EXPECT_NE(std::string::npos, control::PdnText(State).find("[Black \"Ann\"]"));
    State.Details.Black = "Eva";
    EXPECT_EQ("Eva", control::DocumentOf(State).Details.Black) << "what has been entered goes first";
    EXPECT_EQ("Player", control::DocumentOf(State).Details.White);
    State.OwnSettings.PlayColour = static_cast<std::int32_t>(view::PersonColour::Black);
    State.GameChanged = false;
    Run(NewGame);
    EXPECT_EQ("AnnPlayer", State.WhitePlayerName + State.BlackPlayerName);
    Run(ComputerPlayer);
    ExpectPersonToMove();
}

// --- the computer against itself ---------------------------------------------------------------------------------

struct StopCase {
    const char* Name;
    int InMove; ///< of the game, from 0
    bool InWait;
    int Moves; ///< that have been made when it is over
};

using OwnPlayStops = RowsOf<Modes, StopCase>;

TEST_P(OwnPlayStops, WhenAsked) {
    const StopCase& Row = GetParam();
    State.SearchDepth = 4;
    State.CancelRequested = rules::StopRequest::Person; // of an earlier search
    int Asked = 0;
    const auto Stop = [&] {
        EXPECT_EQ("ComputerComputer", State.WhitePlayerName + State.BlackPlayerName);
        EXPECT_TRUE(control::IsTicked(State, ComputerComputer));
        EXPECT_TRUE(State.ChoiceList.Lines.empty() && State.RootList.Lines.empty());
        if (State.GameMoves != Row.InMove || Asked++ > 0) {
            return;
        }
        EXPECT_EQ(control::TurnState::Thinking, State.Turn);
        ExpectCan(true, {Cancel});
        Run(Cancel);
    };
    if (Row.InWait) {
        World.OnWait = Stop;
    } else {
        // A search is under way: nodes are made at plies below the root, and the root's move counts.
        World.OnNode = [&] {
            if (State.Ply == 2 && State.GameMoves - 2 == Row.InMove && Asked++ == 0) {
                Run(Cancel);
            }
        };
    }
    Run(ComputerComputer);
    EXPECT_LT(0, Asked);
    EXPECT_EQ(Row.Moves, State.GameMoves);
    ExpectMode(view::GameMode::ComputerPlayer, ComputerPlayer);
    EXPECT_EQ(rules::StopRequest::None, State.CancelRequested);
    EXPECT_FALSE(State.RatingAllowed) << "such a game must not be rated";
    ExpectPersonToMove();
    EXPECT_EQ(static_cast<std::size_t>(rules::MoveCountOfPly(State)), State.ChoiceList.Lines.size());
    EXPECT_EQ("", control::CheckRest(State));
}

constexpr StopCase StopRows[] = {{"in_the_third_search", 2, false, 3},
                                 // In the wait before a search the move is still made.
                                 {"before_the_first_search", 0, true, 1},
                                 {"between_two_moves", 3, true, 3}};
INSTANTIATE_TEST_SUITE_P(Rows, OwnPlayStops, testing::ValuesIn(StopRows), RowName);

TEST_F(Modes, TheClockDoesNotEndOwnPlay) {
    State.FixedDepth = 0;
    State.TimeLimit = 1;
    Lay("W c1, W g1, B b0, B h0"); // nor is a draw offered to anybody
    State.AskForDraw = 1;
    State.LastDrawOffer = -40;
    World.Chances.assign(9, 0);
    World.OnNode = [&] { World.Clock += 0.01; };
    World.OnWait = [&] {
        State.CancelRequested = State.GameMoves == 6 ? rules::StopRequest::Person : State.CancelRequested;
    };
    Run(ComputerComputer);
    EXPECT_EQ(6, State.GameMoves);
}

// Whole games over the shipped variants: each ends by a rule, and what is kept beside the board agrees with it.
using OwnGames = RowsOf<GameFixture, std::string>;

TEST_P(OwnGames, EndByARule) {
    World.TakesAnything = true;
    int Said = 0;
    int Waits = 0;
    World.OnMessage = [&] { ++Said; };
    World.OnWait = [&] {
        // Between two moves everything is at rest.
        if (Waits++ % 16 == 0) {
            ExpectConsistent();
        }
    };
    for (const std::uint8_t Depth : {std::uint8_t{1}, std::uint8_t{2}}) {
        Said = 0;
        State.SearchDepth = Depth;
        PlayVariant(GetParam());
        const std::string Start = rules::SetupText(State.Board);
        for (rules::CellSet Men = rules::AllPieces(State); Men.Any();) {
            EXPECT_TRUE(rules::IsPlayingSquare(State, Men.TakeFirst()) || State.RuleSet.PiecesOnBlack == 2);
        }
        Run(ComputerComputer);
        EXPECT_FALSE(World.Ended);
        EXPECT_TRUE(control::IsOver(State)) << "stopped at half-move " << State.GameMoves;
        EXPECT_EQ(1, Said);
        EXPECT_TRUE(World.LastSaid == "Computer wins!" || World.LastSaid.starts_with("It's a draw!"));
        EXPECT_EQ(State.GameMoves, State.Record.Count);
        const bool BlackMoves = (State.GameMoves % 2 == 1) == (State.RuleSet.BlackStarts == 0);
        EXPECT_EQ(BlackMoves ? rules::Black : rules::White, State.Side);
        EXPECT_EQ("", control::CheckRest(State));
        // The way back leads to the start.
        Run(First);
        ExpectConsistent();
        EXPECT_EQ(Start, rules::SetupText(State.Board));
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, OwnGames,
                         testing::ValuesIn(formats::ListVariants(formats::VariantFolder(ZONTERBROOK_DATA_DIR, false))),
                         TextName);

} // namespace
} // namespace zonterbrook::tests
