// The whole state of a run: the control's slice, with the game's record, its flags and what the mouse is doing, over
// the slices of rules, engine and view.
//
// There is one `GameState`, owned by the main window and passed by reference.
#pragma once

#include "control/platform.h"
#include "game/details.h"
#include "game/game_record.h"
#include "view/state.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace zonterbrook::control {

/// Where a turn stands; turn_state.h tells what may follow and what holds in each.
enum class TurnState : std::uint8_t { Resting, Thinking, Replaying, Ending, Over, Hinting, Measuring };

/// The rule by which a game may be drawn. Which of them is in force is another question.
enum class DrawRule : std::uint8_t {
    None,
    Repetition,
    MoveLimit,
    KingAgainstKing,
    ThreeKingsAgainstOne,
    TwoKingsAgainstOne
};

struct BookIndex;

/// A position that has been thought about.
struct CalculatedPosition {
    engine::PositionKey Key;
    std::int32_t Side = 0;

    bool operator==(const CalculatedPosition&) const = default;
};

/// What a new game forgets: it assigns the struct anew.
struct GameFields {
    game::GameRecord Record;
    TurnState Turn = TurnState::Resting; ///< written through `EnterTurn`
    bool IsEdited = false;    ///< its start position has been edited on the board, and no game has replaced it
    bool GameChanged = false; ///< a move has been made since the last save
    game::Result Result = game::Result::None;
    game::Details Details;
    std::filesystem::path File; ///< that the game was opened from or saved to; empty if there is none
    std::string RatingSummary;
    std::string EndText;    ///< how the game ended, in words; empty while it goes on
    std::string StatusText; ///< the last announcement, shown again at the end of the record
    std::string OpeningName;
    std::shared_ptr<const BookIndex> Book; ///< what the opening book has for this game; nothing until it is asked
    bool BookOpen = true;
    std::int32_t BookMoveSource = 0; ///< the book's move; 0 for none
    std::int32_t BookMoveDest = 0;
    std::optional<CalculatedPosition> CalculatedFor; ///< whose moves `RootMoves` holds; nothing before the first one
    std::int32_t HintSource = 0;                     ///< the reply that the computer expects; 0 for none
    std::int32_t HintDest = 0;
    bool ForcedAnnounced = false;       ///< the computer has said that it wins or loses
    std::int32_t ScoreFlatCount = 0;    ///< moves of the computer at which its score was as long before
    std::int32_t LastDrawOffer = 0;     ///< half-moves made when the computer offered one
    DrawRule DrawCode = DrawRule::None; ///< written by `DrawRuleCheck`, as the two below
    std::int32_t ThreeKingsStart = 0;   ///< half-moves made when the ending arose; 0 while it does not stand
    std::int32_t TwoKingsStart = 0;
};

/// A game that another one has replaced, whole.
struct ReplacedGame {
    GameFields Game;
    std::string VariantName;
    std::string Title; ///< of the variant
    std::int32_t UseClassic = 1;
    rules::RuleSetFields Rules;
    rules::RuleSetFields RulesOfFile;
    std::optional<std::uint8_t> BlackStartsByRules;
    std::string Setup;
    std::string HelpText;
    std::string HelpLink;
    std::string QuickHelpLink;
    std::string WhiteName; ///< beside the board
    std::string BlackName;
    bool RatingAllowed = true;
};

/// What the mouse is doing. `ClearInput` assigns it anew.
struct InputFields {
    std::int32_t SourceCell = -1; ///< cell of the piece in the hand
    std::int32_t RightCell = -1;  ///< cell under the held right button
    std::int32_t HoverSquare = 0; ///< last square under the mouse from which a move starts
    std::int32_t HoverCell = -1;
    std::int32_t HandSide = 0; ///< side whose piece from off the board is being dragged; 0 for none
    bool DragIconSet = false;
    bool SourcesShown = false; ///< the pieces that can move are boxed
    bool NumbersShown = false; ///< the numbers of the squares are shown
    bool SetupLatch = false;   ///< the next press on an empty square shows no numbers
    bool PopupLatch = false;   ///< presses are ignored until the mouse moves
    bool CycleMove = false;    ///< a move of the picked piece ends where it starts
    bool RefusalShown = false; ///< a refused move has left the boxes of what can move
    bool WasPicked = false;    ///< the piece in the hand had been picked by a click before
};

/// The half-move that the board has shown last.
struct ShownMove {
    std::int32_t Cursor = 0;
    std::int32_t Count = 0;
    rules::PlayedMove Played{};
};

/// The rating of a player who has not played yet.
inline constexpr std::int16_t FirstRating = 1200;

/// The state of the game.
struct GameState : view::ViewState, GameFields, InputFields {
    explicit GameState(Platform& Outside) { World = &Outside; }

    /// The world outside. It is stored once, where the engine finds it, and is the platform that made this state.
    Platform& Outside() const { return static_cast<Platform&>(*World); }

    // --- program: written at start-up ------------------------------------------------------------------------------
    std::int16_t Rating = FirstRating;
    std::int32_t HandlersAtWork = 0; ///< event handlers, one inside the other while a search lets events run
    bool CloseWanted = false;        ///< the person has agreed: the window closes when what is at work has unwound
    bool ProgramEnds = false;        ///< the program is on its way out
    bool LogOpen = false;
    std::shared_ptr<const ReplacedGame> Replaced; ///< what Restore Previous Game brings back; nothing if there is none
    bool AutosaveComplained = false;              ///< that the game can't be saved by itself has been said once
    std::filesystem::path BookFolder;             ///< in place of the program's; empty: the program's
    std::optional<std::string> OwnName;           ///< the player's name in the settings, while a file has lent another

    // --- variant: written by `StartVariant` and whoever changes the position by hand -------------------------------
    bool RatingAllowed = true;
    /// What `BlackStarts` was before a position was edited: the next game of the variant takes it again.
    std::optional<std::uint8_t> BlackStartsByRules;

    // --- the last move on the board: written by `TraceLastMove` ------------------------------------------------------
    ShownMove MoveShown;
    bool DroppedByHand = false;         ///< the move that comes next has been dragged there: it need not slide
    std::vector<std::int32_t> WayMoves; ///< on the stack, as `Ways` shows them

    // --- the square that the popup menu was opened on --------------------------------------------------------------
    std::int32_t PopupSquare = 0;
};

} // namespace zonterbrook::control
