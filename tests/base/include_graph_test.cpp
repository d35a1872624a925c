// Holds the folders to their order: every #include of the tree is compared with the list of what its folder may use.
// A header that reaches upwards only for a type or a constant would build; this test is what sees it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Folders = std::set<std::string>;

// Each folder with the folders whose headers it may include, its own among them.
const std::map<std::string, Folders>& AllowedFolders() {
    static const std::map<std::string, Folders> Allowed = {
        {"src/base", {"base"}},
        {"src/rules", {"base", "rules"}},
        {"src/engine", {"base", "rules", "engine"}},
        {"src/game", {"base", "rules", "game"}},
        {"src/formats", {"base", "rules", "game", "formats"}},
        {"src/view", {"base", "rules", "engine", "game", "formats", "view"}},
        {"src/control", {"base", "rules", "engine", "game", "formats", "view", "control"}},
        {"src/ui", {"base", "rules", "engine", "game", "formats", "view", "control", "ui"}},
        {"src/app", {"base", "rules", "engine", "game", "formats", "view", "control", "ui", "app"}},
        {"probe", {"base", "rules", "engine", "game", "formats", "view", "control", "probe"}},
    };
    return Allowed;
}

const Folders QtFolders = {"src/ui", "src/app"};

struct IncludeLine {
    int Line;
    std::string Header;
    bool Quoted;
};

std::vector<IncludeLine> ReadIncludes(const fs::path& File) {
    static const std::regex Pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    std::vector<IncludeLine> Includes;
    std::ifstream Stream(File);
    std::string Text;
    for (int Line = 1; std::getline(Stream, Text); ++Line) {
        std::smatch Match;
        if (std::regex_search(Text, Match, Pattern)) {
            Includes.push_back({Line, Match[2].str(), Match[1].str() == "\""});
        }
    }
    return Includes;
}

std::vector<fs::path> SourceFiles(const fs::path& Folder) {
    std::vector<fs::path> Files;
    for (const auto& Entry : fs::recursive_directory_iterator(Folder)) {
        const std::string Extension = Entry.path().extension().string();
        if (Entry.is_regular_file() && (Extension == ".h" || Extension == ".cpp")) {
            Files.push_back(Entry.path());
        }
    }
    std::sort(Files.begin(), Files.end());
    return Files;
}

// A Qt header begins with Q and a capital letter, or stands under a QtModule folder.
bool IsQtHeader(const std::string& Header) {
    return Header.size() > 1 && Header[0] == 'Q' &&
           (std::isupper(static_cast<unsigned char>(Header[1])) || Header[1] == 't');
}

// What is wrong with one #include of a folder, or an empty text.
std::string IncludeComplaint(const std::string& Folder, const Folders& Allowed, const IncludeLine& Include) {
    if (!Include.Quoted) {
        return IsQtHeader(Include.Header) && QtFolders.count(Folder) == 0 ? "Qt is for the window's folders alone" : "";
    }
    const auto Slash = Include.Header.find('/');
    if (Slash == std::string::npos) {
        // The include root is src/: a folder beside it has its own headers by their bare names, and so has everybody
        // what the build generates for one file.
        return !Folder.starts_with("src/") || Include.Header.ends_with(".moc")
                   ? ""
                   : "a header is named from the include root, with its folder";
    }
    return Allowed.count(Include.Header.substr(0, Slash)) != 0 ? "" : "this folder may not use that one";
}

TEST(IncludeGraph, EveryIncludeKeepsTheOrderOfTheFolders) {
    const fs::path Root = ZONTERBROOK_SOURCE_DIR;
    int Read = 0;
    for (const auto& [Folder, Allowed] : AllowedFolders()) {
        for (const fs::path& File : SourceFiles(Root / Folder)) {
            for (const IncludeLine& Include : ReadIncludes(File)) {
                ++Read;
                EXPECT_EQ("", IncludeComplaint(Folder, Allowed, Include))
                    << fs::relative(File, Root).string() << ":" << Include.Line << " includes " << Include.Header;
            }
        }
    }
    EXPECT_GT(Read, 0) << "no #include was found under " << Root;
}

// The files of src/control/ from the bottom up: each includes only what stands before it. What a move sets off is so
// said above the record, and nothing calls upward.
constexpr const char* ControlOrder[] = {
    "command_id",  "platform",      "still_world", "state",         "turn_state",  "log",           "trap",
    "input_state", "settings",      "skin",        "game_document", "kept_game",   "book",          "record",
    "rating",      "ending",        "turn",        "calculation",   "thinking",    "computer_move", "analysis",
    "hint",        "variant_start", "colour",      "crew",          "survey_game", "survey",        "variant_editor",
    "replay",      "last_move",     "loaded_game", "pdn_game",      "open_game",   "clipboard",     "details",
    "saved_game",  "new_game",      "person_move", "setup",         "input",       "keyboard",      "navigation",
    "annotation",  "ply_values",    "problems",    "restored_game", "draw_offer",  "modes",         "notation",
    "options",     "diagram",       "help",        "program",       "commands",    "events"};

TEST(IncludeGraph, ControlKeepsTheOrderOfItsFiles) {
    const fs::path Folder = fs::path(ZONTERBROOK_SOURCE_DIR) / "src/control";
    const auto PlaceOf = [](const std::string& Name) {
        return std::find(std::begin(ControlOrder), std::end(ControlOrder), Name) - std::begin(ControlOrder);
    };
    for (const fs::path& File : SourceFiles(Folder)) {
        const std::string Own = File.stem().string();
        ASSERT_NE(std::ssize(ControlOrder), PlaceOf(Own)) << Own << " has no place";
        for (const IncludeLine& Include : ReadIncludes(File)) {
            if (Include.Header.starts_with("control/") && fs::path(Include.Header).stem() != Own) {
                EXPECT_LT(PlaceOf(fs::path(Include.Header).stem().string()), PlaceOf(Own))
                    << File.filename().string() << ":" << Include.Line << " includes " << Include.Header;
            }
        }
    }
}

TEST(IncludeGraph, EveryFolderOfTheSourceTreeHasItsRow) {
    const fs::path Root = ZONTERBROOK_SOURCE_DIR;
    for (const auto& Entry : fs::directory_iterator(Root / "src")) {
        if (Entry.is_directory()) {
            EXPECT_EQ(1u, AllowedFolders().count("src/" + Entry.path().filename().string())) << Entry.path();
        }
    }
}

// The test above passes on a clean tree whatever it looks for; these rows show that it would speak up.
TEST(IncludeGraph, WhatBreaksTheOrderIsSaid) {
    constexpr std::tuple<const char*, const char*, bool> Rows[] = {
        {"src/rules", "#include \"rules/state.h\"", false},
        {"src/rules", "#include \"engine/search.h\"", true},
        {"src/formats", "#include \"engine/search.h\"", true},
        {"src/base", "  #  include \"rules/state.h\"", true},
        {"src/view", "#include <QString>", true},
        {"src/control", "#include <QtGlobal>", true},
        {"src/ui", "#include <QWidget>", false},
        {"src/rules", "#include \"state.h\"", true},
        {"probe", "#include \"console.h\"", false},
        {"probe", "#include \"ui/board.h\"", true}};
    const fs::path File = fs::path(testing::TempDir()) / "include_graph.cpp";
    for (const auto& [Folder, Line, Refused] : Rows) {
        std::ofstream(File) << "// a comment first\n" << Line << "\n";
        const auto Includes = ReadIncludes(File);
        ASSERT_EQ(1u, Includes.size()) << Line;
        EXPECT_EQ(Refused, !IncludeComplaint(Folder, AllowedFolders().at(Folder), Includes[0]).empty()) << Line;
    }
    fs::remove(File);
}

} // namespace
