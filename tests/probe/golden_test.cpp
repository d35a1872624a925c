// The golden tables: leaf counts of every shipped variant, and what searches, evaluations and move lists have always
// answered. Both are text files under tests/data, whose first lines say where their figures come from.
#include "base/text.h"
#include "console.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace zonterbrook::probe {
namespace {

const std::string Variants = std::string(ZONTERBROOK_DATA_DIR) + "/variants/";

std::vector<std::string> Lines(const std::string& File) {
    std::ifstream Stream(std::string(ZONTERBROOK_TEST_DATA_DIR) + "/" + File, std::ios::binary);
    std::ostringstream Text;
    Text << Stream.rdbuf();
    EXPECT_TRUE(Stream) << File;
    return base::SplitLines(Text.str());
}

TEST(Golden, LeavesOfEveryShippedVariant) {
    std::map<std::string, std::vector<std::string>> Table;
    for (const std::string& Line : Lines("perft.txt")) {
        const std::size_t Colon = Line.find(": ");
        if (!Line.starts_with('#') && Colon != std::string::npos) {
            std::istringstream Counts(Line.substr(Colon));
            std::string Count;
            Counts >> Count;
            while (Counts >> Count) {
                Table[Line.substr(0, Colon)].push_back(Count);
            }
        }
    }
    int Shipped = 0;
    for (const auto& Entry : std::filesystem::directory_iterator(Variants)) {
        const std::string Name = Entry.path().stem().string();
        ++Shipped;
        ASSERT_TRUE(Table.contains(Name)) << "a variant without counts: " << Name;
        Console Probe(ZONTERBROOK_DATA_DIR);
        ASSERT_EQ("ok\n", Probe.Execute("variant " + Entry.path().string()));
        const bool Special = Probe.Execute("show").find("special 0") == std::string::npos;
        for (std::size_t Depth = 1; Depth <= Table[Name].size(); ++Depth) {
            const std::string Wanted = "nodes " + Table[Name][Depth - 1] + "\nok\n";
            const std::string Command = "perft " + std::to_string(Depth);
            EXPECT_EQ(Wanted, Probe.Execute(Command)) << Name << ", depth " << Depth;
            if (Special) {
                EXPECT_EQ(Wanted, Probe.Execute(Command + " special")) << Name << ", depth " << Depth;
            }
        }
    }
    EXPECT_EQ(Table.size(), static_cast<std::size_t>(Shipped)) << "counts of a variant that is not shipped";
}

struct Section {
    std::string Name;
    std::vector<std::pair<std::string, std::string>> Talk; ///< command and answer
};

std::vector<Section> Sections(const std::string& File) {
    std::vector<Section> Found;
    for (const std::string& Line : Lines(File)) {
        if (Line.starts_with("# ")) {
            Found.push_back({Line.substr(2), {}});
        } else if (Line.starts_with("> ")) {
            std::string Command = Line.substr(2);
            const std::size_t At = Command.find('@');
            if (At != std::string::npos) {
                Command.replace(At, 1, Variants);
            }
            Found.back().Talk.emplace_back(Command, "");
        } else if (!Line.empty() && !Found.back().Talk.empty()) {
            Found.back().Talk.back().second += Line + '\n';
        }
    }
    std::erase_if(Found, [](const Section& S) { return S.Talk.empty(); }); // the remarks at the head of the file
    return Found;
}

class GoldenTalk : public testing::TestWithParam<Section> {};

TEST_P(GoldenTalk, IsAnsweredAsEver) {
    Console Probe(ZONTERBROOK_DATA_DIR);
    for (const auto& [Command, Answer] : GetParam().Talk) {
        EXPECT_EQ(Answer + "ok\n", Probe.Execute(Command)) << Command;
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, GoldenTalk, testing::ValuesIn(Sections("search.txt")), [](const auto& Info) {
    std::string Name = Info.param.Name;
    std::erase_if(Name, [](char C) { return std::isalnum(static_cast<unsigned char>(C)) == 0; });
    return Name;
});

} // namespace
} // namespace zonterbrook::probe
