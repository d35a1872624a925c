// The commands of the main window by name. What each is called, when it is enabled and what it runs stands in
// commands.h.
#pragma once

#include <cstdint>

namespace zonterbrook::control {

/// Every menu and entry.
enum class CommandId : std::uint8_t {
    None, ///< no command; the parent of the menus of the bar
    GameMenu,
    NewGame,
    NewVariant,
    Open,
    Save,
    SaveAs,
    RestorePrevious,
    RecentMenu,
    CopyPosition,
    CopyGame,
    Paste,
    SearchProblems,
    Details,
    Exit,
    PlayMenu,
    Compute,
    Cancel,
    First,
    Back,
    Forward,
    Last,
    OfferDraw,
    Resign,
    Hint,
    ComputerPlayer,
    PlayerPlayer,
    ComputerComputer,
    Options,
    Analyze,
    BoardMenu,
    TurnBoard,
    NotationMenu,
    NoNotation,
    Algebraic,
    Numeric,
    CreateDiagram,
    CopyDiagram,
    SaveDiagram,
    PrintDiagram,
    ViewMenu,
    Calculation,
    MarkLastMove,
    SlideMoves,
    FullScreen,
    Rating,
    ExtraMenu,
    PlyValueTable,
    HelpMenu,
    Contents,
    QuickRules,
    Rules,
    About,
    SetupMenu,
    PopupMenu,
    ClearBoard,
    EmptySquare,
    BlackMan,
    BlackKing,
    WhiteMan,
    WhiteKing,
    BlackMoves,
    WhiteMoves,
};
inline constexpr int CommandCount = static_cast<int>(CommandId::WhiteMoves) + 1;

} // namespace zonterbrook::control
