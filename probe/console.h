// The console's commands: rules, engine and variant files by text, one command a line.
//
// A command that fails changes nothing; a malformed line is answered and never ends the console. The random term of the
// evaluation is off at all times, so that every answer can be had again.
#pragma once

#include "control/state.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::probe {

/// A world in which no time passes for others, chance always answers alike, nobody reads what is said and every
/// question is answered with Yes.
class StillWorld final : public control::Platform {
public:
    double Seconds() override;
    double Random() override { return 0; }
    void Message(std::string_view /*Title*/, std::string_view /*Text*/, control::Icon /*Sign*/) override {}
    bool Ask(std::string_view /*Title*/, std::string_view /*Text*/) override { return true; }
    void PlaySound(std::string_view /*File*/) override {}
    void Wait(double /*Seconds*/) override {}
    void Refresh() override {}
    std::string Date() override { return {}; }
    std::string Time() override { return {}; }
    void SeedRandom() override {}
    std::filesystem::path ApplicationDirectory() const override { return {}; }
    bool OpenLog() override { return false; }
    void AppendLog(std::string_view /*Text*/) override {}
    void CloseLog() override {}
    control::CommandId ShowPopup(control::CommandId /*Menu*/) override { return control::CommandId::None; }
    void OpenDocument(std::string_view /*Target*/) override {}
    void CloseWindow() override {}
    void EndProgram() override {}

protected:
    void TakeTurn() override {}
};

/// A game state that is talked to.
class Console {
public:
    Console();

    /// The whole answer to one line, line ends included: any lines and "ok", or one line that begins with "error: ".
    std::string Execute(std::string_view Line);

    /// True once the command to quit has been given.
    bool HasQuit() const { return Quit; }

private:
    /// A move played, with the figures of the root before it.
    struct Step {
        rules::PlayedMove Move;
        std::int32_t Material;
        std::int32_t TotalMaterial;
    };
    using Words = std::vector<std::string_view>;

    std::string Run(std::string_view Command, std::string_view Rest);

    std::string Variant(std::string_view File);
    std::string Rule(std::string_view Assignment);
    std::string Board(const Words& Arguments);
    std::string Show() const;
    std::string Key(std::string_view Name) const;
    std::string Moves(const Words& Arguments);
    std::string Generate(const Words& Arguments);
    std::string Exists(const Words& Arguments);
    std::string Perft(const Words& Arguments);
    std::string Play(const Words& Arguments);
    std::string Undo();
    std::string Eval(const Words& Arguments);
    std::string Set(const Words& Arguments);
    std::string Search(const Words& Arguments);
    std::string Think(const Words& Arguments);
    std::string Bench(const Words& Arguments) const;

    std::string ListMoves() const;
    void ForgetMoves();

    StillWorld World;
    std::unique_ptr<control::GameState> State;
    std::vector<Step> Played;
    /// The answer to the last `moves`, as long as the position stays.
    std::vector<rules::MoveRecord> Listed;
    bool HasList = false;
    bool Quit = false;
};

} // namespace zonterbrook::probe
