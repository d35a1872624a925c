// The view's slice of the game's state: the settings in force, and what the window shows, as data.
//
// The window paints `WindowContents` and decides nothing. It keeps a copy of what it painted last and compares: there
// are no flags that a writer could forget to raise, and a comparison of the whole costs some microseconds. What a
// person changes in the window (typed text, a selected line) the window writes here before it calls a handler.
#pragma once

#include "base/checked_array.h"
#include "engine/state.h"
#include "game/move_name.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zonterbrook::view {

inline constexpr int BoardPictures = 100;

/// The fourteen pictures of a set: what a cell shows, and the four drag pointers.
enum class Picture : std::uint8_t {
    dark_square,
    light_square,
    dark_white_man,
    dark_black_man,
    dark_white_king,
    dark_black_king,
    light_white_man,
    light_black_man,
    light_white_king,
    light_black_king,
    white_man_ico,
    black_man_ico,
    white_king_ico,
    black_king_ico,
    None, ///< no drag pointer: the usual one
};
inline constexpr int PictureCount = 14;

/// The highlight on a cell: none, or one of the two colours of a picture set.
enum class Highlight : std::uint8_t { None, Dark, Light };

/// What the last move has left to be seen on a cell.
enum class Trace : std::uint8_t { None, Source, Path, Captured, Target };

/// One of the hundred cells `c`.
struct BoardCell {
    Picture Shows = Picture::dark_square;
    Picture Pointer = Picture::None; ///< the mouse pointer while the mouse is held on it
    Highlight Box = Highlight::None;
    std::int32_t Number = 0; ///< printed on it; 0 for none
    bool Hinted = false;     ///< one of the two squares of a hint
    bool Lifted = false;     ///< its piece has been picked by a click
    Trace Left = Trace::None;

    bool operator==(const BoardCell&) const = default;
};

/// A place in the window or in a cell, in twips.
struct Rectangle {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Width = 0;
    std::int32_t Height = 0;

    bool operator==(const Rectangle&) const = default;
};

/// A text printed on the window beside the board; its upper left corner in twips.
struct EdgeLabel {
    std::string Text;
    std::int32_t X = 0;
    std::int32_t Y = 0;

    bool operator==(const EdgeLabel&) const = default;
};

struct ListFields {
    std::vector<std::string> Lines;
    std::int32_t Selected = -1; ///< from 0; -1 for none
    std::int32_t Marked = -1;   ///< the line of the move that was played; -1 for none

    bool operator==(const ListFields&) const = default;
};

/// The colours of a label: the window's own, or those of the two player names.
enum class LabelColours : std::uint8_t { Usual, WhiteOnRed, RedOnWhite };

struct LabelFields {
    std::string Text;
    LabelColours Colours = LabelColours::Usual;
    bool Visible = true;

    bool operator==(const LabelFields&) const = default;
};

struct ProgressFields {
    double Value = 0;
    double Maximum = 1;

    bool operator==(const ProgressFields&) const = default;
};

/// The controls that `LayoutWindow` places.
enum class Control : std::uint8_t {
    UpperName,
    LowerName,
    UpperColour,
    LowerColour,
    UpperMaterial,
    LowerMaterial,
    StrengthLine,
    VariantLine,
    Calculation,
    ExtraHeading,
    ExtraBlackName,
    ExtraBlackCount,
    ExtraWhiteName,
    ExtraWhiteCount,
    GameList,
    ChoiceList,
    RootList,
    CommentBox,
    MoveBox,
    Progress,
};
inline constexpr int ControlCount = static_cast<int>(Control::Progress) + 1;

/// Where everything stands: written by `LayoutWindow`. All figures are in twips of the window's inner area, below
/// menu bar and toolbar and above the status bar.
struct LayoutFields {
    bool Medium = false;       ///< which of the two picture sizes the cells have
    std::int32_t CellSize = 0; ///< width and height of a cell
    std::int32_t Pitch = 0;    ///< from one cell's left edge to the next, and from one top edge to the next
    std::int32_t BoardLeft = 0;
    std::int32_t BoardTop = 0;
    Rectangle Box;              ///< the highlight inside a cell
    std::int32_t DragPitch = 0; ///< by which a drop is turned into a number of cells
    base::CheckedArray<Rectangle, ControlCount> Places{};
    std::int32_t Width = 0; ///< of the inner area
    std::int32_t Height = 0;

    const Rectangle& PlaceOf(Control Which) const { return Places[static_cast<int>(Which)]; }
    Rectangle& PlaceOf(Control Which) { return Places[static_cast<int>(Which)]; }
    bool operator==(const LayoutFields&) const = default;
};

/// The usual colours of the highlights: the lowest byte red, the next one green, then blue.
inline constexpr std::int32_t UsualDarkHighlight = 65535;
inline constexpr std::int32_t UsualLightHighlight = 0x8080;

/// What the board and the pieces look like.
struct LookFields {
    bool OwnPictures = false; ///< those of a skin's files, in place of the program's
    std::int32_t Loads = 0;   ///< how many times pictures have been loaded
    std::int32_t DarkHighlight = UsualDarkHighlight;
    std::int32_t LightHighlight = UsualLightHighlight;

    bool operator==(const LookFields&) const = default;
};

/// A move that slides over the board. A new number begins one; the cells show the position after it all the while.
struct SlideFields {
    std::int32_t Number = 0;
    Picture Piece = Picture::None;
    std::vector<std::int32_t> Path;                      ///< cells, from the first to the last
    std::vector<std::pair<std::int32_t, Picture>> Taken; ///< cells and pieces that fade

    bool operator==(const SlideFields&) const = default;
};

/// One of several captures between the same two squares, to be chosen from.
struct WayFields {
    std::vector<std::int32_t> Path; ///< cells
    std::int32_t Badge = 0;         ///< cell that bears its number: no other way has it, if there is such a cell

    bool operator==(const WayFields&) const = default;
};

inline constexpr int ProductPanel = 0;
inline constexpr int StatusPanel = 1;
inline constexpr int OpeningPanel = 2;
inline constexpr int StatusPanelCount = 3;

/// What the window shows.
struct WindowContents {
    std::string Caption;
    base::CheckedArray<BoardCell, BoardPictures> Cells{};
    std::int32_t CursorCell = -1; ///< with the keyboard's frame; -1 while it is hidden
    LookFields Look;
    std::vector<EdgeLabel> EdgeLabels;
    bool FrameShown = false;
    Rectangle BoardFrame;
    LayoutFields Layout;
    ListFields GameList;       ///< the game's moves
    ListFields ChoiceList;     ///< the moves that may be played
    ListFields RootList;       ///< the root moves of the last calculation
    std::string CommentText;   ///< in the box of comments
    std::string TypedText;     ///< in the box of typed moves
    LabelFields UpperName;     ///< name of the upper player
    LabelFields LowerName;     ///< of the lower one
    LabelFields UpperColour;   ///< colour of the upper player
    LabelFields LowerColour;   ///< of the lower one
    LabelFields UpperMaterial; ///< material of the upper player
    LabelFields LowerMaterial; ///< of the lower one
    LabelFields StrengthLine;  ///< strength, and depth or time
    LabelFields VariantLine;   ///< the variant's name
    LabelFields Calculation;   ///< the calculation
    LabelFields ExtraHeading;  ///< "Extra Pieces:", and what belongs to it
    LabelFields ExtraBlackName;
    LabelFields ExtraBlackCount; ///< pieces of Black still off the board
    LabelFields ExtraWhiteName;
    LabelFields ExtraWhiteCount; ///< of White
    ProgressFields Progress;
    std::vector<std::string> RecentFiles; ///< opened or saved lately, the last one first
    base::CheckedArray<std::string, StatusPanelCount> StatusPanels{};
    std::string DrawCounter; ///< how far a draw rule has counted; empty: nothing to tell
    SlideFields Slide;
    std::vector<WayFields> Ways; ///< that the person is asked to choose from; none: nothing is asked
    bool FullScreen = false;
    bool operator==(const WindowContents&) const = default;
};

/// The labels by number, `UpperName` at 0.
inline constexpr LabelFields WindowContents::*Labels[] = {
    &WindowContents::UpperName,      &WindowContents::LowerName,      &WindowContents::UpperColour,
    &WindowContents::LowerColour,    &WindowContents::UpperMaterial,  &WindowContents::LowerMaterial,
    &WindowContents::StrengthLine,   &WindowContents::VariantLine,    &WindowContents::Calculation,
    &WindowContents::ExtraHeading,   &WindowContents::ExtraBlackName, &WindowContents::ExtraBlackCount,
    &WindowContents::ExtraWhiteName, &WindowContents::ExtraWhiteCount};

/// Who plays: a person and the computer, two persons, the computer alone.
enum class GameMode : std::int32_t { ComputerPlayer, PlayerPlayer, ComputerComputer };

/// What the label of the calculation tells, from which its text is made.
struct CalculationFields {
    enum class Stage : std::uint8_t { None, Begun, Found };
    static constexpr int LongestLine = 20;

    Stage Stands = Stage::None;
    std::int32_t Depth = 0;
    game::NamedMove Best{};
    std::int32_t Score = 0;
    bool FromBook = false;
    std::int32_t LineLength = 0; ///< moves of `Line`
    base::CheckedArray<game::NamedMove, LongestLine> Line{};
    double Seconds = -1; ///< what the whole calculation took; below 0 while it goes on
};

/// The settings that neither rules nor engine read. The rest of them: `TouchMove` and `NotationMode` in the rules'
/// slice, strength and search in the engine's.
struct SettingsFields {
    GameMode PlayMode = GameMode::ComputerPlayer;
    std::int32_t BoardTurned = 0; ///< 1: Black's side at the bottom
    std::uint8_t ShowAvailableMoves = 1;
    std::string VariantName = "International Checkers"; ///< the file's name
    std::uint8_t ChessDrawRules = 1;
    std::string PlayerName = "Player";
    std::uint8_t CapitalNotation = 0;
    std::int32_t ConfirmExit = 1;
    std::int32_t AskForDraw = 0;
    std::uint8_t UseBook = 0;
    std::uint8_t MoveLimitChoice = 1;
    std::int32_t ShowCalculation = 1;
    std::int32_t BookFallback = 0;
    std::uint8_t ColonCapture = 0;
    std::uint8_t ChooseOpening = 0;
    std::uint8_t RandomOpening = 0;
    std::uint8_t UseRating = 1;
    std::int32_t SizeClass = 2; ///< 0 small, 2 medium, 4 a skin of its own
    std::int32_t AutoSave = 0;
    std::uint8_t UseSound = 0;
    std::string SkinName = "Classic Medium";
    std::uint8_t KingVersusKing = 0;
    std::uint8_t SaveAlgebraic = 0;
    std::uint8_t PlyValueDepth = 5;
    std::int32_t UseClassic = 1; ///< 1: the variant is one of the program's, 0: one of the user's own
};

/// The colour that the person has chosen to play against the computer.
enum class PersonColour : std::int32_t { NotChosen, White, Black };

/// Settings that stand in a file of their own.
struct OwnSettingsFields {
    std::int32_t Volume = 80;        ///< of the sounds, 0 to 100
    std::int32_t DarkHighlight = -1; ///< the person's own colours of the highlights; -1: those of the skin
    std::int32_t LightHighlight = -1;
    std::int32_t MarkLastMove = 1; ///< 1: the last move is marked on the board
    std::int32_t SlideMoves = 1;   ///< 1: moves that are not made by hand slide
    std::int32_t PlayColour = 0;   ///< a `PersonColour`
    std::string SecondName;        ///< of the second of two persons; empty: the first one's
    std::string WindowPlace;       ///< size, place and screen of the window, as the window writes it; empty: none yet

    bool operator==(const OwnSettingsFields&) const = default;
};

/// The state of the view: settings in force and contents of the window, over the engine's state.
struct ViewState : engine::EngineState, SettingsFields, WindowContents {
    OwnSettingsFields OwnSettings;

    // --- program: written at start-up and by `LoadSkin` --------------------------------------------------------------
    std::int32_t TwipsPerPixel = 15;   ///< 12 on a desktop of 120 dots an inch
    std::int32_t BoardCustomSize = -1; ///< of a skin of its own: 0 small, 2 medium, -1 not told
    std::int32_t SkinDarkHighlight = UsualDarkHighlight;
    std::int32_t SkinLightHighlight = UsualLightHighlight;

    // --- variant: written when its file is read ----------------------------------------------------------------------
    std::string VariantTitle; ///< the variant's name as a person sees it
    std::string HelpText;
    std::string HelpLink;
    std::string QuickHelpLink;

    // --- game -------------------------------------------------------------------------------------------------------
    std::string WhitePlayerName;
    std::string BlackPlayerName;
    CalculationFields Calculated;
    std::string FileName; ///< of the file that holds the game, without its folder; empty for none

    std::int32_t HintedSquares[2] = {0, 0}; ///< of the move that a hint has told; 0 for none. Until the next click

    std::int32_t PickedSquare = 0; ///< of the piece that a click has picked; 0 for none

    std::vector<std::pair<std::int32_t, std::int32_t>>
        BookMoves; ///< ends of the moves that the opening book recommends

    // --- written by `DrawBoard` -------------------------------------------------------------------------------------
    std::int32_t WhiteMaterial = 0; ///< men, a king counting two
    std::int32_t BlackMaterial = 0;
    std::int32_t AnyMan = 0;
    std::int32_t KingsOnlyEqual = 0; ///< 1: equal material and no man on the board

    // --- the keyboard's cursor: written through board_cursor.h ------------------------------------------------------
    std::int32_t CursorSquare = 0; ///< 0 until it is first needed
    bool CursorShown = false;
    bool KeysOnBoard = false; ///< the person plays on the board with the keys; the mouse ends it

    ViewState() : engine::EngineState() {}
};

} // namespace zonterbrook::view
