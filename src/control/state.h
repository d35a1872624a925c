// The whole state of a run: the control's slice, with the game's record, its flags and what the mouse is doing, over
// the slices of rules, engine and view.
//
// There is one `GameState`, owned by the main window and passed by reference.
#pragma once

#include "control/platform.h"
#include "rules/moves.h"
#include "view/state.h"

#include <cstdint>
#include <string>

namespace zonterbrook::control {

inline constexpr int GameRows = 501;

/// Who made a half-move, as the rows keep it.
inline constexpr std::string_view MovedByComputer = "1";
inline constexpr std::string_view MovedByPerson = "2";
inline constexpr std::string_view MovedByFile = "3";

/// Two half-moves of the record. A move's text is its squares in four characters (two for a piece that enters), a
/// blank, and what the list shows.
struct GameMoveRowFields {
    std::string FirstMove;
    std::string SecondMove;
    std::string FirstSource; ///< who made it
    std::string SecondSource;
    std::string Level; ///< the strength in force
};

/// The state of the game.
struct GameState : view::ViewState {
    // --- program: written at start-up ------------------------------------------------------------------------------
    Platform* Outside = nullptr;
    std::int16_t Rating = 1200;
    std::int32_t HandlerDepth = 0; ///< event handlers at work, one inside the other while a search lets events run
    std::int32_t ClosePending = 0; ///< 1: close the window as soon as the running search has unwound
    std::int32_t Ending = 0;       ///< 1: the program is on its way out
    std::int32_t LogOpen = 0;

    // --- which position a new game keeps: cleared by `StartNewGame`
    // ------------------------------------------------------
    std::int32_t KeepBoard = 0;
    std::int32_t KeepBoardFromFile = 0;

    // --- game: cleared by `NewGame` ----------------------------------------------------------------------------------
    std::int32_t MoveCount = 0; ///< half-moves in the record, at least `GameMoves`
    /// By half-move from 1; the entry behind the last one has source 0.
    rules::ByGameMove<rules::PlayedMove> PlayedMoves{};
    rules::ByGameMove<std::int16_t> MaterialAt{}; ///< after the half-move; the start position at 0
    rules::ByGameMove<std::int32_t> TotalMaterialAt{};
    rules::ByGameMove<std::string> MoveComment{}; ///< the comment to half-move n stands at n
    rules::ByGameMove<std::int16_t> MoveScores{};
    rules::ByGameMove<std::int16_t> MoveDepths{};                  ///< plies that the computer searched for it
    rules::ByGameMove<std::int16_t> MoveChoices{};                 ///< legal moves that the position had
    base::CheckedArray<GameMoveRowFields, GameRows> GameMoveRow{}; ///< row (half-move + 1) / 2
    std::int32_t GameStarted = 0;                                  ///< 1: a move stands in the record
    std::int32_t GameEnded = 0;                                    ///< 1: a result stands, and the board is closed
    std::int32_t GameChanged = 0;                                  ///< 1: a move has been entered since the last save
    std::int32_t Thinking = 0;                                     ///< 1: the computer works; input stays out
    std::int32_t SearchActive = 0;                                 ///< 1: a search runs that Cancel can stop
    std::int32_t RatingAllowed = 1;
    std::string ResultText; ///< "1-0", "0-1", "1/2-1/2" or empty
    std::string RatingSummary;
    std::string StatusText; ///< the computer's last announcement, shown again at the end of the record
    std::string OpeningName;
    std::int32_t BookOpen = 1;
    std::int32_t BookMoveSource = 0;
    std::int32_t BookMoveDest = 0;
    std::int32_t HintSource = 0; ///< the reply that the computer expects; 0 for none
    std::int32_t HintDest = 0;
    std::int32_t ForcedAnnounced = 0;
    std::int32_t ScoreFlatCount = 0;
    std::int32_t LastDrawOffer = 0;

    // --- draw rules: cleared by `NewGame`, written by `DrawRuleCheck` ------------------------------------------------
    std::int32_t DrawCode = 0; ///< 0 none, 1 repetition, 2 move limit, 3 king v king, 4 three kings, 5 two kings
    std::int32_t ThreeKingsStart = 0;
    std::int32_t TwoKingsStart = 0;

    // --- input: cleared by `ClearInput`, the latches of a drag by its end
    // ------------------------------------------------
    std::int32_t SourceCell = -1; ///< cell of the piece in the hand
    std::int32_t RightCell = -1;  ///< cell under the held right button
    std::int32_t HoverSquare = 0; ///< last square under the mouse from which a move starts
    std::int32_t HoverCell = -1;
    std::int32_t DropDx = 0; ///< last place of the mouse within the source cell
    std::int32_t DropDy = 0;
    std::int32_t DragIconSet = 0;
    std::int32_t SourcesShown = 0; ///< 1: the pieces that can move are boxed
    std::int32_t NumbersShown = 0; ///< 1: the numbers of the squares are shown
    std::int32_t SetupLatch = 0;   ///< 1: the next press on an empty square shows no numbers
    std::int32_t PopupLatch = 0;   ///< 1: presses are ignored until the mouse moves
    std::int32_t CycleMove = 0;    ///< 1: a move of the picked piece ends where it starts
    std::int32_t PopupSquare = 0;  ///< the square that the popup menu was opened on

    // --- the move just entered: written by `EnterMove`
    // -------------------------------------------------------------------
    std::int32_t EnteredMover = 0;   ///< what stood on its source cell
    std::int32_t EnteredChoices = 0; ///< how many moves could have been played

    // --- tools
    // ---------------------------------------------------------------------------------------------------------
    std::int32_t Cancel1 = 0; ///< 1: the running tool is to stop
};

} // namespace zonterbrook::control
