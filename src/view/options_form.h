// The form of the options dialog: every setting of a person in a box of its own.
#pragma once

#include "base/checked_array.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zonterbrook::view {

enum class OptionsTab : std::uint8_t { Computer, Board, Engine, Misc };
inline constexpr int OptionsTabCount = 4;

inline constexpr int StrongestSlider = 10;
inline constexpr int DeepestSlider = 20;
inline constexpr int LongestSlider = 180;

struct OptionsForm {
    // Computer
    std::int32_t Strength = 9; ///< 1 to 10
    bool ByDepth = false;      ///< the search is limited by depth, else by time
    std::int32_t Depth = 2;    ///< half-moves, 1 to 20
    std::int32_t Time = 2;     ///< seconds, 1 to 180
    // Board
    bool ShowAvailableMoves = true;
    bool CapitalNotation = false;
    bool ColonCapture = false;
    std::string SkinName;
    std::int32_t DarkHighlight = -1; ///< colours as in `LookFields`; -1: the skin's
    std::int32_t LightHighlight = -1;
    // Engine
    bool ExtendedSearch = true;
    std::string Plys;
    std::string Balance;
    bool BruteForce = false;
    std::string PlyValueDepth;
    bool ChessDrawRules = true;
    std::int32_t MoveLimitChoice = 1;
    bool AskForDraw = false;
    bool KingVersusKing = false;
    // Misc
    bool UseBook = false;
    bool BookFallback = false;
    bool ChooseOpening = false;
    bool RandomOpening = false;
    std::string PlayerName;
    std::string SecondName; ///< of the second of two persons; empty: the same
    bool UseRating = true;
    bool SaveAlgebraic = false;
    bool ConfirmExit = true;
    bool AutoSave = false;
    bool UseSound = false;
    std::int32_t Volume = 80; ///< 0 to 100
    bool TouchMove = false;

    bool operator==(const OptionsForm&) const = default;
};

/// A check box of the dialog.
struct OptionTick {
    std::string_view Name;
    OptionsTab Tab;
    std::string_view Frame;
    std::string_view Caption;
    bool OptionsForm::*Field;
    bool (*Enabled)(const OptionsForm& Form); ///< nullptr: always
    std::string_view Tip;
};
std::span<const OptionTick> OptionTicks();

/// A limit of the rule of fifty moves: its button, what it says, and the code that stands for it.
struct MoveLimitRow {
    std::string_view Name;
    std::string_view Caption;
    std::int32_t Code;
};
std::span<const MoveLimitRow> MoveLimitRows();

/// A number typed into a box, within its limits; what is no number is 0 before them.
std::int32_t ReadWithin(std::string_view Typed, std::int32_t Lowest, std::int32_t Highest);

} // namespace zonterbrook::view
