// The settings and the rating between two runs.
#pragma once

#include "control/state.h"
#include "formats/settings.h"

namespace zonterbrook::control {

/// The settings in force as the file has them, the rule set in hand included.
formats::Settings SettingsOf(const GameState& State);

/// Puts settings in force, rules included; neither game nor window follow by themselves. The computer playing itself
/// becomes a person against it, and a depth of 0 the least.
void ApplySettings(GameState& State, const formats::Settings& Values);

/// Reads the file of the last run; where there is none, or none that can be read, the defaults are put in force and
/// written. Throws a `FileFault` where a value in it is impossible.
void LoadSettings(GameState& State);

/// Reads the player's rating, 1200 where there is none.
void LoadRating(GameState& State);

/// Reads what the settings file has no line for: the files that were opened lately.
void LoadOwnSettings(GameState& State);
/// Writes the same, at once when it has changed.
void SaveOwnSettings(const GameState& State);

/// Puts a file at the head of those opened lately.
void NoteRecentFile(GameState& State, const std::filesystem::path& File);

/// Writes settings and rating for the next run, unless another program keeps them. A failure is said.
void SaveSettings(const GameState& State);

} // namespace zonterbrook::control
