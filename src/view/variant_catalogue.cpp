// The variants of a folder as a person looks for one.
#include "view/variant_catalogue.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace zonterbrook::view {

namespace {

using Rules = rules::RuleSetFields;

// --- What rules are called ------------------------------------------------------------------------------------------

// The capture steps of White's men.
std::string_view MenCaptures(const Rules& Of) {
    const std::string_view Text = Of.MovementStrings[0].View();
    const std::size_t Blank = Text.find(' ');
    return Blank == std::string_view::npos ? std::string_view() : Text.substr(Blank + 1);
}

bool HasWord(std::string_view List, std::string_view Word) {
    const std::string Whole = ';' + std::string(List) + ';';
    return Whole.find(';' + std::string(Word) + ';') != std::string::npos;
}

bool HasAny(std::string_view List, std::initializer_list<std::string_view> Words) {
    return std::ranges::any_of(Words, [&](std::string_view Word) { return HasWord(List, Word); });
}

std::string AllSteps(const Rules& Of) {
    std::string Steps;
    for (const auto& Text : Of.MovementStrings) {
        Steps += std::string(Text.View()) + ';';
    }
    std::ranges::replace(Steps, ' ', ';');
    return Steps;
}

/// A rule that can be asked for: the first phrase is the one it is shown with, the others are what people call it.
struct Trait {
    std::array<std::string_view, 4> Phrases;
    std::string_view Absent; ///< shown where the variant does not have it; empty: nothing is
    bool (*Holds)(const Rules& Of);
};

constexpr Trait Traits[] = {
    {{"losing game", "anti", "giveaway", "misere"}, "", [](const Rules& Of) { return Of.AntiMode != 0; }},
    {{"flying kings", "flying king", "long kings", "long king"},
     "short kings",
     [](const Rules& Of) { return Of.LongKings != 0; }},
    {{"short kings", "short king"}, "", [](const Rules& Of) { return Of.LongKings == 0; }},
    {{"men capture backward", "backward capture", "capture backward", "capture backwards"},
     "men capture forward only",
     [](const Rules& Of) {
         return HasAny(MenCaptures(Of), {"S", "SE", "SW", "SS"});
     }},
    {{"men capture forward", "forward capture"},
     "",
     [](const Rules& Of) {
         return HasAny(MenCaptures(Of), {"N", "NE", "NW", "NN"});
     }},
    {{"men capture sideways", "sideways capture"},
     "",
     [](const Rules& Of) {
         return HasAny(MenCaptures(Of), {"E", "W", "EE", "WW"});
     }},
    {{"compulsory capture", "capture compulsory", "mandatory capture", "capture mandatory"},
     "capturing is a choice",
     [](const Rules& Of) { return Of.CapRequired != 0; }},
    {{"majority capture", "most captures", "most pieces", "majority"},
     "any capture will do",
     [](const Rules& Of) { return Of.MaxCapMove != 0; }},
    {{"men capture kings", "capture kings"},
     "men don't capture kings",
     [](const Rules& Of) { return Of.ManCapKing != 0; }},
    {{"straight and sideways moves", "orthogonal", "straight", "sideways"},
     "",
     [](const Rules& Of) {
         return HasAny(AllSteps(Of), {"N", "S", "E", "W"});
     }},
    {{"diagonal moves", "diagonal"},
     "",
     [](const Rules& Of) {
         return HasAny(AllSteps(Of), {"NE", "NW", "SE", "SW"});
     }},
    {{"crowned in passing", "promotion in passing"},
     "",
     [](const Rules& Of) { return Of.ManContJump != 0 && Of.ManContJumpCrowned != 0; }},
    {{"the first king wins", "first king"}, "", [](const Rules& Of) { return Of.KingWin != 0; }},
    {{"a king that returns wins", "king returns"}, "", [](const Rules& Of) { return Of.WinAtPromo != 0; }},
    {{"opening by lot", "ballot", "random opening", "drawn opening"},
     "",
     [](const Rules& Of) { return Of.DoMoves != 0 || Of.RemoveMen != 0; }},
    {{"pieces off the board", "pieces in hand", "drops", "entering pieces"},
     "",
     [](const Rules& Of) { return Of.canContract != 0 && Of.ContractNumber > 0; }},
    {{"jumps over own pieces", "jump own", "leaps"}, "", [](const Rules& Of) { return Of.JumpFriend != 0; }},
    {{"promoted men change colour", "change color", "change sides"},
     "",
     [](const Rules& Of) { return Of.ChangeSide != 0; }},
    {{"black begins", "black starts"}, "white begins", [](const Rules& Of) { return Of.BlackStarts != 0; }},
    {{"white begins", "white starts"}, "", [](const Rules& Of) { return Of.BlackStarts == 0; }},
};

std::string WordsOf(const CatalogueEntry& Entry) {
    // What every variant is called in one language or another.
    std::string Words = base::ToLower(Entry.Name) + " draughts checkers dama damas dames 10x10 ";
    if (Entry.Document) {
        Words += base::ToLower(Entry.Document->HelpText) + ' ';
        for (const Trait& Each : Traits) {
            for (const std::string_view Phrase : Each.Phrases) {
                Words += Each.Holds(Entry.Document->Rules) && !Phrase.empty() ? std::string(Phrase) + ' ' : "";
            }
        }
    }
    return Words;
}

// --- What is asked for ----------------------------------------------------------------------------------------------

constexpr std::string_view LittleWords[] = {"a",  "an",   "the",  "with", "and", "in", "on",   "of",   "for", "to",
                                            "my", "your", "game", "i",    "or",  "is", "want", "play", "own", "where"};
constexpr std::string_view Denials[] = {"without", "no", "not"};

bool IsOneOf(std::string_view Word, std::span<const std::string_view> List) {
    return std::ranges::find(List, Word) != List.end();
}

std::vector<std::string> SplitWords(std::string_view Text) {
    std::vector<std::string> Words;
    std::string Word;
    for (const char C : base::ToLower(Text) + ' ') {
        if (C != ' ' && C != ',' && C != ';') {
            Word += C;
        } else if (!Word.empty()) {
            Words.push_back(std::exchange(Word, {}));
        }
    }
    return Words;
}

// How many of the words from `At` on a phrase takes up; 0 if they are others.
std::size_t Matches(std::string_view Phrase, std::span<const std::string> Words) {
    const std::vector<std::string> Wanted = SplitWords(Phrase);
    const bool Same =
        !Wanted.empty() && Wanted.size() <= Words.size() && std::equal(Wanted.begin(), Wanted.end(), Words.begin());
    return Same ? Wanted.size() : 0;
}

struct Asked {
    const Trait* For = nullptr;
    std::size_t Words = 0;
};

// The rule that the words begin with, by its longest phrase.
Asked FindTrait(std::span<const std::string> Words) {
    Asked Best;
    for (const Trait& Each : Traits) {
        for (const std::string_view Phrase : Each.Phrases) {
            const std::size_t Length = Matches(Phrase, Words);
            Best = Length > Best.Words ? Asked{&Each, Length} : Best;
        }
    }
    return Best;
}

} // namespace

std::vector<CatalogueEntry> ReadCatalogue(const std::filesystem::path& Folder) {
    std::vector<CatalogueEntry> Entries;
    for (const std::string& Name : formats::ListVariants(Folder)) {
        auto Read = formats::ReadVariantFile(Folder, Name, Rules{});
        Entries.push_back({Name, std::move(Read.Document), Read.Error.Text(), {}});
        Entries.back().Words = WordsOf(Entries.back());
    }
    return Entries;
}

bool Fits(const CatalogueEntry& Entry, std::string_view Words) {
    const std::vector<std::string> All = SplitWords(Words);
    bool Denied = false;
    for (std::size_t At = 0; At < All.size();) {
        if (IsOneOf(All[At], Denials)) {
            Denied = true;
            ++At;
            continue;
        }
        const Asked Rule = FindTrait(std::span(All).subspan(At));
        if (Rule.For != nullptr && Entry.Document) {
            // A word that belongs to a rule may stand in a name as well: "Antidraughts", "Russian Diagonal".
            const bool Named = !Denied && Rule.Words == 1 && Entry.Words.find(All[At]) != std::string::npos;
            if (!Named && Rule.For->Holds(Entry.Document->Rules) == Denied) {
                return false;
            }
            At += Rule.Words;
        } else {
            const bool Little = IsOneOf(All[At], LittleWords);
            if (!Little && (Entry.Words.find(All[At]) != std::string::npos) == Denied) {
                return false;
            }
            ++At;
        }
        Denied = false;
    }
    return true;
}

std::string RulesLine(const Rules& Of) {
    std::string Line;
    for (const Trait& Each : Traits) {
        const std::string_view Says = Each.Holds(Of) ? Each.Phrases.front() : Each.Absent;
        if (!Says.empty() && Line.find(Says) == std::string::npos) {
            Line += (Line.empty() ? "" : ", ") + std::string(Says);
        }
    }
    if (!Line.empty()) {
        Line.front() = base::ToUpper(Line.substr(0, 1)).front();
    }
    return Line;
}

} // namespace zonterbrook::view
