// The console's commands: rules, engine and variant files by text, one command a line.
//
// A command that fails changes nothing; a malformed line is answered and never ends the console. The random term of the
// evaluation is off at all times, so that every answer can be had again.
#pragma once

#include "control/state.h"
#include "control/still_world.h"
#include "formats/variant_file.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::probe {

/// A game state that is talked to.
class Console {
public:
    /// `Program`: the folder in which the variants lie.
    explicit Console(const std::filesystem::path& Program);

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
    std::string SurveyRules(const Words& Arguments);
    std::string Check(std::string_view File) const;
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

    std::string Seed(const Words& Arguments);
    std::string Replay(std::string_view Rest);
    std::string Save(std::string_view File);
    std::string Game() const;
    std::string GoTo(const Words& Arguments);
    std::string ReadSettings(std::string_view File);
    std::string Annotate(std::string_view Rest);
    std::string SetBookFolder(std::string_view Folder);
    std::string Book();
    std::string Hint(const Words& Arguments);
    std::string Analyze(const Words& Arguments);
    std::string PlyValues(const Words& Arguments);
    std::string Problems(const Words& Arguments);
    std::string Diagram(std::string_view File);
    std::string Compute(const Words& Arguments);
    std::string Enter(const Words& Arguments);
    std::string Why(const Words& Arguments);

    static formats::VariantDocument ReadDocument(std::string_view File);
    void NeedGame();
    std::string TakeMessages();
    std::string ReplayGameFile(const std::filesystem::path& File);
    std::string ReplayPdnFile(const std::filesystem::path& File, std::size_t Game, const std::string& Variant);

    std::string ListMoves() const;
    void ForgetMoves();

    control::StillWorld World;
    std::unique_ptr<control::GameState> State;
    std::vector<Step> Played;
    /// The answer to the last `moves`, as long as the position stays.
    std::vector<rules::MoveRecord> Listed;
    bool HasList = false;
    bool PositionIsNew = false; ///< laid by a command, and no game has been begun from it yet
    bool Quit = false;
};

} // namespace zonterbrook::probe
