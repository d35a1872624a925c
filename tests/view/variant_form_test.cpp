// The forms of the variants: boxes that depend on each other, the way to rules and back, finding a variant by words.
#include "base/text.h"
#include "formats/variant_file.h"
#include "rules/random_rules.h"
#include "support/position_text.h"
#include "support/rows.h"
#include "view/help_text.h"
#include "view/variant_catalogue.h"
#include "view/variant_form.h"

#include <gtest/gtest.h>

namespace zonterbrook::tests {
namespace {

using view::VariantForm;
namespace fs = std::filesystem;

rules::RuleSetFields RulesWith(std::string_view Changes) {
    rules::RuleSetFields Rules;
    for (const std::string& Change : Split(Changes, ',')) {
        const std::string_view Text = base::Trim(Change);
        const std::size_t Equals = Text.find('=');
        EXPECT_TRUE(Text.empty() || rules::WriteRule(Rules, Text.substr(0, Equals), Text.substr(Equals + 1))) << Text;
    }
    return Rules;
}

// --- What depends on what -----------------------------------------------------------------------------------------

struct ClickCase {
    const char* Name;
    const char* Before;
    int Click;
    bool On;
    const char*
        Ticked; ///< the check boxes that are ticked afterwards and were not, "-" before those that no longer are
    const char* Usable; ///< those, and boxes of numbers ("T5"), that can be used and could not; "-" the other way round
};

using Clicks = RowsOf<testing::Test, ClickCase>;

template <typename Boxes, typename Holds>
std::string Changes(const Boxes& Before, const Boxes& After, const std::string& Mark, Holds Is) {
    std::string Text;
    for (std::size_t Number = 1; Number < Boxes::Size(); ++Number) {
        if (Is(Before[Number]) != Is(After[Number])) {
            Text += (Is(After[Number]) ? " " : " -") + Mark + std::to_string(Number);
        }
    }
    return Text;
}

TEST_P(Clicks, MoveTheBoxesThatDependOnThem) {
    const ClickCase& Row = GetParam();
    VariantForm Before;
    view::ShowRules(Before, RulesWith(Row.Before));
    VariantForm After = Before;
    view::SetTick(After, Row.Click, Row.On);
    const auto Ticked = [](const view::TickBox& Box) { return Box.Ticked; };
    const auto Usable = [](const auto& Box) { return Box.Enabled; };
    EXPECT_EQ(Row.Ticked, Changes(Before.Ticks, After.Ticks, "", Ticked));
    EXPECT_EQ(Row.Usable,
              Changes(Before.Ticks, After.Ticks, "", Usable) + Changes(Before.Numbers, After.Numbers, "T", Usable));
}

constexpr ClickCase ClickRows[] = {
    {"most_captures_go_on", "MaxCapMove=0,MulJumps=0", 1, true, " 1 2", " -2 7"},
    {"most_captures_go_off", "MaxCapMoveKings=1", 1, false, " -1 -7", " 2 -7"},
    {"no_jump_past_promotion", "ManContJumpCrowned=1", 10, false, " -10 -12", " -12"},
    {"kings_no_longer_fly", "", 11, false, " -11", " -14 -17"},
    {"first_king_bars_return", "", 16, true, " 16", " -6"},
    {"return_bars_first_king", "", 6, true, " 6", " -16"},
    {"lots_for_the_first_move", "", 28, true, " 28", " -4"},
    {"men_removed", "", 20, true, " 20", " T3"},
    {"moves_drawn", "", 21, true, " 21", " T4"},
    {"three_kings", "", 26, true, " 26", " T5"},
    {"two_kings", "", 31, true, " 31", " T7"},
    {"jumps_over_own", "", 29, true, " 29", " 30 T6"},
    {"of_any_length", "JumpFriend=1", 30, true, " 30", " -T6"},
    {"any_length_without_jumps", "NumberFriends=-1,JumpFriend=1", 29, false, " -29", " -30"},
    {"pieces_in_hand", "", 33, true, " 33", " T9 T10 T11 T12 T13"},
    {"nothing_depends", "", 13, false, " -13", ""},
};
INSTANTIATE_TEST_SUITE_P(Rows, Clicks, testing::ValuesIn(ClickRows), RowName);

TEST(VariantForm, ColourTakesThePromotionSquaresAlong) {
    VariantForm Form;
    view::ShowRules(Form, {});
    view::SetTick(Form, view::TickColour, false);
    EXPECT_EQ("a0 i0 b1 j1", Form.Promotions[0].Text + ' ' + Form.Promotions[4].Text + ' ' + Form.Promotions[16].Text +
                                 ' ' + Form.Promotions[20].Text);
    EXPECT_EQ("", Form.Promotions[5].Text);
    view::ShowRules(Form, RulesWith("PiecesOnBlack=2"));
    EXPECT_FALSE(Form.Ticks[view::TickColour].Enabled);
}

// --- To rules and back --------------------------------------------------------------------------------------------

TEST(VariantForm, AVariantThatIsOnlyLookedAtStaysAsItIs) {
    const fs::path Folder = formats::VariantFolder(ZONTERBROOK_DATA_DIR, false);
    for (const std::string& Name : formats::ListVariants(Folder)) {
        const auto Read = formats::ReadVariantFile(Folder, Name, {});
        ASSERT_TRUE(Read.Document) << Name;
        VariantForm Form;
        view::ShowRules(Form, Read.Document->Rules);
        rules::RuleSetFields Taken = Read.Document->Rules;
        EXPECT_TRUE(view::TakeRules(Form, Taken)) << Name;
        EXPECT_TRUE(Taken == Read.Document->Rules) << Name;
        const auto Again = formats::ReadVariant(formats::WriteVariant(*Read.Document), {});
        ASSERT_TRUE(Again.Document) << Name << Again.Error.Text();
        EXPECT_TRUE(Again.Document->Rules == Read.Document->Rules && Again.Document->Setup == Read.Document->Setup);
        EXPECT_EQ(Read.Document->HelpText, Again.Document->HelpText);
    }
}

struct TakenCase {
    const char* Name;
    const char* Before;
    void (*Type)(VariantForm& Form);
    bool Taken;
    const char* Key;
    const char* Value; ///< of that rule afterwards
};

using Taken = RowsOf<testing::Test, TakenCase>;

TEST_P(Taken, BoxByBox) {
    const TakenCase& Row = GetParam();
    rules::RuleSetFields Rules = RulesWith(Row.Before);
    VariantForm Form;
    view::ShowRules(Form, Rules);
    Row.Type(Form);
    EXPECT_EQ(Row.Taken, view::TakeRules(Form, Rules));
    EXPECT_EQ(Row.Value, rules::RuleText(Rules, Row.Key).value_or("no such key"));
    const auto Marked = [](const auto& Boxes) { return std::ranges::count_if(Boxes, &view::EntryBox::Wrong); };
    EXPECT_EQ(Row.Taken ? 0 : 1, Marked(Form.Numbers) + Marked(Form.Promotions) + Marked(Form.Movements));
}

using Form = VariantForm;
constexpr TakenCase TakenRows[] = {
    {"no_number_is_none", "", [](Form& F) { F.Numbers[8].Text = "many"; }, true, "NumberPieces", "0"},
    {"any_length", "", [](Form& F) { F.Ticks[30].Ticked = true; }, true, "NumberFriends", "-1"},
    {"length_after_any", "NumberFriends=-1", [](Form& F) { F.Ticks[30].Ticked = false; }, true, "NumberFriends", "0"},
    {"too_large_for_its_rule", "", [](Form& F) { F.Numbers[3].Text = "256"; }, false, "NumberMen", "0"},
    {"capital_letters", "", [](Form& F) { F.Promotions[0].Text = "H0"; }, true, "PromoW", "H0D0F0H0J0"},
    {"hole_among_squares", "", [](Form& F) { F.Promotions[1].Text = " "; }, true, "PromoW", "B0--F0H0J0"},
    {"square_off_the_board", "", [](Form& F) { F.Promotions[2].Text = "k1"; }, false, "PromoW", "B0D0F0H0J0"},
    {"square_not_played_on", "", [](Form& F) { F.Promotions[16].Text = "b1"; }, false, "PromoB", "A1C1E1G1I1"},
    {"both_colours_played_on", "PiecesOnBlack=2", [](Form& F) { F.Promotions[16].Text = "b1"; }, true, "PromoB",
     "B1C1E1G1I1"},
    {"played_on_by_the_new_steps", "",
     [](Form& F) {
         F.Promotions[16].Text = "b1";
         F.Movements[0].Text = "NW;E";
     },
     true, "PromoB", "B1C1E1G1I1"},
    {"both_colours_stay", "PiecesOnBlack=2", [](Form& F) { F.Ticks[3].Ticked = false; }, true, "PiecesOnBlack", "2"},
    {"fields_before_the_fault_are_taken", "",
     [](Form& F) {
         F.Ticks[5].Ticked = true;
         F.Promotions[0].Text = "x";
     },
     false, "AntiMode", "1"},
    {"unknown_step", "", [](Form& F) { F.Movements[5].Text = "NW;UP"; }, false, "BlackManMovement",
     "NW;NE NW;NE;SE;SW"},
    {"nine_steps", "", [](Form& F) { F.Movements[2].Text = "N;N;N;N;N;N;N;N;N"; }, false, "WhiteKingMovement",
     "NW;NE;SE;SW NW;NE;SE;SW"},
    {"no_captures", "", [](Form& F) { F.Movements[4].Text.clear(); }, true, "WhiteManMovement", "NW;NE "},
    {"no_captures_as_before", "WhiteManMovement=NW", [](Form&) {}, true, "WhiteManMovement", "NW"},
};
INSTANTIATE_TEST_SUITE_P(Rows, Taken, testing::ValuesIn(TakenRows), RowName);

TEST(RandomRules, EachDrawHasItsRule) {
    // One draw is high, the others are low: the rules that change by it, and to what.
    const char* Told = "MaxCapMove=1 MulJumps=1 BlackStarts=1 RndColor=1 PiecesOnBlack=1 AntiMode=1 WinAtPromo=1 "
                       "KingWin=1 MaxCapMoveKings=1 MaxCapMoveK=1 ManCapKing=1 CapRequired=1 KingCapMove=1 "
                       "ManContJump=1 LongKings=1 ManContJumpCrowned=1 RemovePieces=1 KingFirst=1 ManCapMoveKing=1 "
                       "NoLegalDraw=1 RemoveMen=1 LastCap=1 ManKing=1 KingMan=1 CapReverse=1 NumberMen=10 DoMoves=1 "
                       "NumberMoves=10 JumpFriend=1 ChangeSide=1 ThreeKings=1 NumberKings=20";
    const auto Draw = [](int High, bool WithColour) {
        rules::RuleSetFields Rules;
        int Count = 0;
        rules::DrawRules(Rules, WithColour, [&] { return Count++ == High ? 0.999 : 0.0; });
        EXPECT_EQ(WithColour ? 32 : 31, Count);
        return Rules;
    };
    const rules::RuleSetFields Low = Draw(-1, true);
    std::string Found;
    for (int High = 0; High < 32; ++High) {
        const rules::RuleSetFields Rules = Draw(High, true);
        for (const rules::RuleKey& Key : rules::RuleKeys()) {
            if (Key.Read(Rules) != Key.Read(Low)) {
                Found += (Found.empty() ? "" : " ") + std::string(Key.Name) + '=' + std::to_string(Key.Read(Rules));
            }
        }
    }
    EXPECT_EQ(Told, Found);
    EXPECT_EQ(1, Low.NumberKings);
    EXPECT_EQ(1, Draw(4, false).AntiMode) << "the colour is not drawn";
}

// --- Finding and reading ------------------------------------------------------------------------------------------

TEST(Catalogue, WordsAskForNamesHelpAndRules) {
    const auto All = view::ReadCatalogue(formats::VariantFolder(ZONTERBROOK_DATA_DIR, false));
    const std::tuple<const char*, const char*, bool> Rows[] = {
        {"frisian", "Frisian Draughts", true},
        {"I want to play Frisian draughts", "Frisian Draughts", true},
        {"a losing game with flying kings", "Antidraughts", true},
        {"a losing game with flying kings", "Giveaway Checkers 10x10", false},
        {"anti", "Poddavki 10x10", true},
        {"anti", "International Checkers", false},
        {"10x10 without backward capture", "American Checkers 10x10", true},
        {"10x10 without backward capture", "International Checkers", false},
        {"flying ki", "International Checkers", true},
        {"no majority", "Russian Checkers 10x10", true},
        {"zzz", "Russian Checkers 10x10", false},
    };
    for (const auto& [Words, Name, Found] : Rows) {
        const auto At = std::ranges::find(All, Name, &view::CatalogueEntry::Name);
        ASSERT_NE(All.end(), At) << Name;
        EXPECT_EQ(Found, view::Fits(*At, Words)) << Words << ": " << Name;
    }
}

TEST(HelpText, IsSetInHeadingsParagraphsAndLists) {
    std::string Found;
    for (const view::HelpBlock& Block : view::SetHelp("Origin: Here.\n\nMen step. Kings fly. A. Bee won.\nTwo. Only.\n"
                                                      "- an item\nIn short: you win.\nSource: A. One. Two. Three.")) {
        Found += std::string("HPI").substr(static_cast<std::size_t>(Block.Is), 1) + Block.Text + '|';
    }
    EXPECT_EQ("HOrigin|PHere.|IMen step.|IKings fly.|IA. Bee won.|PTwo. Only.|Ian item|PIn short: you win.|HSource|PA. "
              "One. Two. Three.|",
              Found);
}

} // namespace
} // namespace zonterbrook::tests
