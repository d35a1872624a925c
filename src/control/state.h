// The whole state of a run: the control's slice, with the game's record, its flags and what the mouse is doing, over
// the slices of rules, engine and view.
//
// There is one `GameState`, owned by the main window and passed by reference.
#pragma once

#include "control/platform.h"
#include "game/game_record.h"
#include "view/state.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zonterbrook::control {

/// Where a turn stands; turn_state.h tells what may follow and what holds in each.
enum class TurnState : std::uint8_t { Resting, Thinking, Replaying, Ending, Over };

/// The rule by which a game may be drawn. Which of them is in force is another question.
enum class DrawRule : std::uint8_t {
    None,
    Repetition,
    MoveLimit,
    KingAgainstKing,
    ThreeKingsAgainstOne,
    TwoKingsAgainstOne
};

/// What a new game forgets: it assigns the struct anew.
struct GameFields {
    game::GameRecord Record;
    TurnState Turn = TurnState::Resting; ///< written through `EnterTurn`
    bool GameChanged = false;            ///< a move has been made since the last save
    game::Result Result = game::Result::None;
    std::string RatingSummary;
    std::string EndText;    ///< how the game ended, in words; empty while it goes on
    std::string StatusText; ///< the last announcement, shown again at the end of the record
    std::string OpeningName;
    bool BookOpen = true;
    std::int32_t BookMoveSource = 0; ///< the book's move; 0 for none
    std::int32_t BookMoveDest = 0;
    std::int32_t HintSource = 0; ///< the reply that the computer expects; 0 for none
    std::int32_t HintDest = 0;
    bool ForcedAnnounced = false;       ///< the computer has said that it wins or loses
    std::int32_t ScoreFlatCount = 0;    ///< moves of the computer at which its score was as long before
    std::int32_t LastDrawOffer = 0;     ///< half-moves made when the computer offered one
    DrawRule DrawCode = DrawRule::None; ///< written by `DrawRuleCheck`, as the two below
    std::int32_t ThreeKingsStart = 0;   ///< half-moves made when the ending arose; 0 while it does not stand
    std::int32_t TwoKingsStart = 0;
};

/// What the mouse is doing. `ClearInput` assigns it anew.
struct InputFields {
    std::int32_t SourceCell = -1; ///< cell of the piece in the hand
    std::int32_t RightCell = -1;  ///< cell under the held right button
    std::int32_t HoverSquare = 0; ///< last square under the mouse from which a move starts
    std::int32_t HoverCell = -1;
    bool DragIconSet = false;
    bool SourcesShown = false; ///< the pieces that can move are boxed
    bool NumbersShown = false; ///< the numbers of the squares are shown
    bool SetupLatch = false;   ///< the next press on an empty square shows no numbers
    bool PopupLatch = false;   ///< presses are ignored until the mouse moves
    bool CycleMove = false;    ///< a move of the picked piece ends where it starts
};

/// The state of the game.
struct GameState : view::ViewState, GameFields, InputFields {
    explicit GameState(Platform& Outside) { World = &Outside; }

    /// The world outside. It is stored once, where the engine finds it, and is the platform that made this state.
    Platform& Outside() const { return static_cast<Platform&>(*World); }

    // --- program: written at start-up ------------------------------------------------------------------------------
    std::int16_t Rating = 1200;
    std::int32_t HandlersAtWork = 0; ///< event handlers, one inside the other while a search lets events run
    bool CloseWanted = false;        ///< the person has agreed: the window closes when what is at work has unwound
    bool ProgramEnds = false;        ///< the program is on its way out
    bool LogOpen = false;

    // --- variant: written by `StartVariant` and whoever changes the position by hand -------------------------------
    bool RatingAllowed = true;
    /// What `BlackStarts` was before a position was edited: the next game of the variant takes it again.
    std::optional<std::uint8_t> BlackStartsByRules;

    // --- the square that the popup menu was opened on --------------------------------------------------------------
    std::int32_t PopupSquare = 0;
};

} // namespace zonterbrook::control
