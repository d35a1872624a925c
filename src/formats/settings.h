// The settings file and the file of the player's rating.
//
// The settings are a list of values without names, one a line, in an order that never changes; with them come back the
// options of a person and the whole rule set that was in force. docs/file-formats.md lists the lines.
#pragma once

#include "rules/rule_set.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zonterbrook::formats {

/// What the settings file says; the defaults are those of a first start.
struct Settings {
    std::int32_t PlayMode = 0; ///< 0 computer and player, 1 two players, 2 computer alone
    std::uint8_t Strength = 1; ///< 0 to 9; shown as 10 less this
    std::uint8_t SearchDepth = 2;
    std::uint8_t NotationMode = 0;
    std::int32_t BoardTurned = 1; ///< 1: White's side at the bottom
    std::uint8_t ShowAvailableMoves = 1;
    std::string VariantName = "International Checkers";
    std::int16_t TimeLimit = 2;
    std::uint8_t FixedDepth = 0;
    std::uint8_t ChessDrawRules = 1;
    std::string PlayerName = "Player";
    std::uint8_t CapitalNotation = 0;
    std::int32_t ConfirmExit = 1;
    std::int32_t AskForDraw = 0;
    std::uint8_t ExtendedSearch = 1;
    std::uint8_t UseBook = 0;
    std::uint8_t MoveLimitChoice = 1;
    std::int32_t ShowCalculation = 1;
    std::int32_t BookFallback = 0;
    std::uint8_t BruteForce = 0;
    std::uint8_t ColonCapture = 0;
    std::uint8_t Plys = 3;
    std::int16_t Balance = 150;
    std::uint8_t ChooseOpening = 0;
    std::uint8_t RandomOpening = 0;
    std::uint8_t UseRating = 1;
    std::int32_t SizeClass = 2;
    std::int32_t AutoSave = 0;
    std::uint8_t UseSound = 0;
    std::string SkinName = "Classic Medium";
    std::uint8_t KingVersusKing = 0;
    std::uint8_t SaveAlgebraic = 0;
    std::uint8_t PlyValueDepth = 5;
    std::int32_t UseClassic = 1;
    std::int32_t TouchMove = 0;
    rules::RuleSetFields Rules;

    bool operator==(const Settings&) const = default;
};

inline constexpr int SettingsRows = 83;

/// Reads the text of a settings file. Nothing where its first line is another one or lines are missing: then the
/// defaults hold. The mode of the computer alone is read as that of computer and player, a depth of 0
/// as 2. Throws a `base::Fault` where a number does not fit its field.
std::optional<Settings> ReadSettings(std::string_view Text);

/// The text of the file, lines ended as in all files of the program.
std::string WriteSettings(const Settings& Values);

/// The 83 values as the file has them, a line each, without the first line.
std::string WriteSettingValues(const Settings& Values, std::string_view LineEnd);

/// The characters that stand for the digits 0 to 9 in the file of the rating. It keeps nobody from reading it, but from
/// changing it in passing.
inline constexpr std::string_view RatingDigits = "CQZ4T8MWKA";

/// Each digit by its character, and back. A character that stands for none becomes "/", at which a number ends.
std::string EncodeRatingText(std::string_view Table, std::string_view Text);
std::string DecodeRatingText(std::string_view Table, std::string_view Text);

} // namespace zonterbrook::formats
