// Settings and rating: files, and the fields of the state that they stand for.
#include "control/settings.h"

#include "base/checked_number.h"
#include "base/text.h"
#include "control/trap.h"
#include "formats/configuration.h"
#include "formats/text_file.h"

#include <algorithm>
#include <limits>

namespace zonterbrook::control {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view SettingsName = "quavermill.ini";
constexpr std::string_view RatingName = "quavermill.rtg";
constexpr std::string_view OwnSettingsName = "zonterbrook.conf";
constexpr std::string_view RecentKey = "recent";

/// The numbers among the program's own settings.
struct OwnNumber {
    std::string_view Key;
    std::int32_t view::OwnSettingsFields::*Field;
    std::int32_t Lowest;
    std::int32_t Highest;
};
constexpr OwnNumber OwnNumbers[] = {
    {"volume", &view::OwnSettingsFields::Volume, 0, 100},
    {"dark-highlight", &view::OwnSettingsFields::DarkHighlight, -1, 0xFFFFFF},
    {"light-highlight", &view::OwnSettingsFields::LightHighlight, -1, 0xFFFFFF},
    {"mark-last-move", &view::OwnSettingsFields::MarkLastMove, 0, 1},
    {"slide-moves", &view::OwnSettingsFields::SlideMoves, 0, 1},
    {"play-colour", &view::OwnSettingsFields::PlayColour, 0, 2},
};

/// The texts.
struct OwnText {
    std::string_view Key;
    std::string view::OwnSettingsFields::*Field;
};
constexpr OwnText OwnTexts[] = {{"window", &view::OwnSettingsFields::WindowPlace},
                                {"second-name", &view::OwnSettingsFields::SecondName}};
constexpr std::size_t MostRecentFiles = 8;

/// Every setting beside its field in the state: `Do(value of the file, field)`.
template <typename Values, typename State, typename Visit>
void ForEachSetting(Values& File, State& Game, Visit&& Do) {
    Do(File.Strength, Game.Strength);
    Do(File.SearchDepth, Game.SearchDepth);
    Do(File.ShowAvailableMoves, Game.ShowAvailableMoves);
    Do(File.VariantName, Game.VariantName);
    Do(File.TimeLimit, Game.TimeLimit);
    Do(File.FixedDepth, Game.FixedDepth);
    Do(File.ChessDrawRules, Game.ChessDrawRules);
    Do(File.PlayerName, Game.PlayerName);
    Do(File.CapitalNotation, Game.CapitalNotation);
    Do(File.ConfirmExit, Game.ConfirmExit);
    Do(File.AskForDraw, Game.AskForDraw);
    Do(File.ExtendedSearch, Game.ExtendedSearch);
    Do(File.UseBook, Game.UseBook);
    Do(File.MoveLimitChoice, Game.MoveLimitChoice);
    Do(File.ShowCalculation, Game.ShowCalculation);
    Do(File.BookFallback, Game.BookFallback);
    Do(File.BruteForce, Game.BruteForce);
    Do(File.ColonCapture, Game.ColonCapture);
    Do(File.Plys, Game.Plys);
    Do(File.Balance, Game.Balance);
    Do(File.ChooseOpening, Game.ChooseOpening);
    Do(File.RandomOpening, Game.RandomOpening);
    Do(File.UseRating, Game.UseRating);
    Do(File.SizeClass, Game.SizeClass);
    Do(File.AutoSave, Game.AutoSave);
    Do(File.UseSound, Game.UseSound);
    Do(File.SkinName, Game.SkinName);
    Do(File.KingVersusKing, Game.KingVersusKing);
    Do(File.SaveAlgebraic, Game.SaveAlgebraic);
    Do(File.PlyValueDepth, Game.PlyValueDepth);
    Do(File.UseClassic, Game.UseClassic);
    Do(File.TouchMove, Game.TouchMove);
    Do(File.Rules, Game.RuleSet);
}

// The file that the last run has written; beside the program where there is none.
std::optional<fs::path> FindOwnFile(const GameState& State, std::string_view Name) {
    if (auto Found = formats::FindFile(State.Outside().WritableDirectory(), Name)) {
        return Found;
    }
    return formats::FindFile(State.Outside().ApplicationDirectory(), Name);
}

std::optional<std::string> ReadOwnFile(const GameState& State, std::string_view Name) {
    const auto File = FindOwnFile(State, Name);
    return File ? formats::ReadTextFile(*File).Document : std::nullopt;
}

void WriteOwnFile(const GameState& State, std::string_view Name, std::string_view Text) {
    if (const auto Failure = formats::WriteFile(State.Outside().WritableDirectory() / Name, Text)) {
        State.Outside().Message("Error", Failure->Text(), Icon::Exclamation);
    }
}

} // namespace

formats::Settings SettingsOf(const GameState& State) {
    formats::Settings Values;
    ForEachSetting(Values, State, [](auto& Value, const auto& Field) { Value = Field; });
    Values.PlayMode = static_cast<std::int32_t>(State.PlayMode);
    Values.NotationMode = static_cast<std::uint8_t>(State.NotationMode);
    // The file has 1 for the board as a first start shows it.
    Values.BoardTurned = 1 - State.BoardTurned;
    Values.PlayerName = State.OwnName.value_or(State.PlayerName);
    return Values;
}

void ApplySettings(GameState& State, const formats::Settings& Values) {
    ForEachSetting(Values, State, [](const auto& Value, auto& Field) { Field = Value; });
    State.PlayMode = Values.PlayMode == 1 ? view::GameMode::PlayerPlayer : view::GameMode::ComputerPlayer;
    State.NotationMode = static_cast<rules::Notation>(std::min<std::uint8_t>(Values.NotationMode, 2));
    State.BoardTurned = Values.BoardTurned == 0 ? 1 : 0;
    State.OwnName.reset();
}

void LoadSettings(GameState& State) {
    const auto Text = ReadOwnFile(State, SettingsName);
    std::optional<formats::Settings> Values;
    try {
        Values = Text ? formats::ReadSettings(*Text) : std::nullopt;
    } catch (const base::Fault& Failure) {
        throw FileFault(std::string(SettingsName) + ": " + Failure.what());
    }
    ApplySettings(State, Values.value_or(formats::Settings{}));
    if (State.Outside().KeptBy() != FileKeeper::ThisProgram) {
        return;
    }
    formats::RemoveUnfinished(State.Outside().WritableDirectory());
    if (!Values) {
        WriteOwnFile(State, SettingsName, formats::WriteSettings(formats::Settings{}));
    }
}

void LoadRating(GameState& State) {
    const auto Text = ReadOwnFile(State, RatingName);
    if (!Text) {
        State.Rating = FirstRating;
        return;
    }
    const std::vector<std::string> Lines = base::SplitLines(*Text);
    const std::string Digits = Lines.empty() ? "" : formats::DecodeRatingText(formats::RatingDigits, Lines.front());
    using Limits = std::numeric_limits<std::int16_t>;
    State.Rating = static_cast<std::int16_t>(
        std::clamp<std::int64_t>(base::LenientNumber(Digits.substr(0, Digits.find('/'))), 0, Limits::max()));
}

void SaveSettings(const GameState& State) {
    if (State.Outside().KeptBy() != FileKeeper::ThisProgram) {
        return;
    }
    WriteOwnFile(State, SettingsName, formats::WriteSettings(SettingsOf(State)));
    WriteOwnFile(State, RatingName,
                 formats::EncodeRatingText(formats::RatingDigits, std::to_string(State.Rating)) + "\r\n");
}

void LoadOwnSettings(GameState& State) {
    if (const auto Text = ReadOwnFile(State, OwnSettingsName)) {
        const formats::Configuration Values = formats::ReadConfiguration(*Text);
        State.RecentFiles = formats::ValuesOf(Values, RecentKey);
        State.RecentFiles.resize(std::min(State.RecentFiles.size(), MostRecentFiles));
        for (const OwnNumber& Each : OwnNumbers) {
            const auto Read = formats::ValuesOf(Values, Each.Key);
            const std::int64_t Value = Read.empty() ? Each.Lowest - 1 : base::LenientNumber(Read.front());
            if (Value >= Each.Lowest && Value <= Each.Highest) {
                State.OwnSettings.*Each.Field = static_cast<std::int32_t>(Value);
            }
        }
        for (const OwnText& Each : OwnTexts) {
            const auto Read = formats::ValuesOf(Values, Each.Key);
            State.OwnSettings.*Each.Field = Read.empty() ? std::string() : Read.front();
        }
    }
}

void SaveOwnSettings(const GameState& State) {
    if (State.Outside().KeptBy() != FileKeeper::ThisProgram) {
        return;
    }
    formats::Configuration Values;
    for (const std::string& File : State.RecentFiles) {
        Values.emplace_back(RecentKey, File);
    }
    for (const OwnNumber& Each : OwnNumbers) {
        Values.emplace_back(Each.Key, std::to_string(State.OwnSettings.*Each.Field));
    }
    for (const OwnText& Each : OwnTexts) {
        if (!(State.OwnSettings.*Each.Field).empty()) {
            Values.emplace_back(Each.Key, State.OwnSettings.*Each.Field);
        }
    }
    WriteOwnFile(State, OwnSettingsName, formats::WriteConfiguration(Values));
}

void NoteRecentFile(GameState& State, const fs::path& File) {
    std::error_code Error;
    const fs::path Whole = fs::absolute(File, Error);
    const std::string Name = formats::PathText(Error ? File : Whole);
    std::erase(State.RecentFiles, Name);
    State.RecentFiles.insert(State.RecentFiles.begin(), Name);
    State.RecentFiles.resize(std::min(State.RecentFiles.size(), MostRecentFiles));
    SaveOwnSettings(State);
}

} // namespace zonterbrook::control
