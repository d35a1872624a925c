// The console's commands: rules, engine and variant files by text, one command a line.
//
// A command that fails changes nothing; a malformed line is answered and never ends the console. The random term of the
// evaluation is off at all times, so that every answer can be had again.
#pragma once

#include "engine/state.h"
#include "rules/moves.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::probe {

/// A world in which no time passes for others and chance always answers alike.
class StillWorld final : public base::OutsideWorld {
public:
    double Seconds() override;
    double Random() override { return 0; }

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
    std::unique_ptr<engine::EngineState> State;
    std::vector<Step> Played;
    /// The answer to the last `moves`, as long as the position stays.
    std::vector<rules::MoveRecord> Listed;
    bool HasList = false;
    bool Quit = false;
};

} // namespace zonterbrook::probe
