// The rule tags.
#include "formats/rule_tags.h"

#include "base/fault.h"
#include "formats/pdn_characters.h"
#include "formats/variant_file.h"
#include "rules/known_rules.h"
#include "rules/position.h"

#include <cstddef>
#include <optional>

namespace zonterbrook::formats {

namespace {

constexpr char NameMark = '*';
constexpr char EntryEnd = '|';
constexpr std::string_view TwoBlanks = "  ";
constexpr std::string_view HandKey = "canContract";
constexpr std::string_view VariantKey = "Variant=";

/// The values between the set-up and the movement strings, in their order.
constexpr std::string_view ListedKeys[] = {
    "MulJumps",     "MaxCapMove",      "BlackStarts", "PromoW",         "PromoB",      "PiecesOnBlack", "AntiMode",
    "WinAtPromo",   "MaxCapMoveKings", "ManCapKing",  "KingCapMove",    "ManContJump", "LongKings",     "RemovePieces",
    "KingFirst",    "ManCapMoveKing",  "KingWin",     "MaxCapMoveK",    "CapRequired", "NoLegalDraw",   "RemoveMen",
    "NumberMen",    "DoMoves",         "NumberMoves", "LastCap",        "ManKing",     "KingMan",       "ChangeSide",
    "ThreeKings",   "NumberKings",     "CapReverse",  "RndColor",       "JumpFriend",  "NumberFriends", "TwoKings",
    "NumberKings2", "NumberPieces",    HandKey,       "ContractNumber", "ContractW1",  "ContractW2",    "ContractB1",
    "ContractB2"};
constexpr std::string_view LastKey = "ManContJumpCrowned";

std::string ValueOf(const rules::RuleSetFields& Rules, std::string_view Key) {
    return rules::RuleText(Rules, Key).value_or(std::string());
}

/// Takes values off the front of a text. Throws a `base::Fault` where there is none.
class ValueReader {
public:
    explicit ValueReader(std::string_view InText) : Rest(InText) {}

    /// The text up to `Delimiter`, of which `Taken` characters go with it.
    std::string_view Take(std::string_view Delimiter, std::size_t Taken) {
        const std::size_t End = Rest.find(Delimiter);
        if (End == std::string_view::npos) {
            throw base::Fault("a value is missing");
        }
        const std::string_view Value = Rest.substr(0, End);
        Rest.remove_prefix(End + Taken);
        return Value;
    }

    std::string_view TakeRest() const { return Rest; }

private:
    std::string_view Rest;
};

void ReadFields(ValueReader& Reader, RuleTagDocument& Document) {
    // 1. Name and set-up.
    Reader.Take({&NameMark, 1}, 1);
    Document.Variant = Reader.Take({&NameMark, 1}, 1);
    Reader.Take(" ", 1);
    const std::string_view Setup = Reader.Take(" ", 1);
    if (!rules::IsSetupText(Setup)) {
        throw base::Fault("the set-up is none");
    }
    Document.Setup = Setup;
    // 2. Values, a blank behind each. The pieces in hand are looked for as if they were a movement string, and take
    // all up to the end of the first one; the second blank behind it is left over. Wanted.
    for (const std::string_view Key : ListedKeys) {
        rules::WriteRule(Document.Rules, Key, Reader.Take(Key == HandKey ? TwoBlanks : " ", 1));
    }
    // 3. Movement strings, two blanks behind each: the third finds none any more.
    for (const std::string_view Key : rules::MovementKeys) {
        rules::WriteRule(Document.Rules, Key, Reader.Take(TwoBlanks, 2));
    }
    rules::WriteRule(Document.Rules, LastKey, Reader.TakeRest());
}

/// One entry of the rule set tag; the sign that parts entries is doubled inside one.
void AppendEntry(std::string& Text, std::string_view Key, std::string_view Value) {
    if (!Text.empty()) {
        Text += EntryEnd;
    }
    Text.append(Key);
    for (const char C : Value) {
        Text.append(C == EntryEnd ? 2 : 1, C);
    }
}

/// The entries of a rule set tag as the lines of a variant file, behind its title. What is no entry is left out: it
/// might look like the line that ends such a file.
std::string EntriesAsLines(std::string_view Text) {
    std::string Lines = "\n";
    std::string Entry;
    const auto EndEntry = [&] {
        if (Entry.find('=') != std::string::npos) {
            Lines.append(Entry).append("\n");
        }
        Entry.clear();
    };
    for (std::size_t At = 0; At < Text.size(); ++At) {
        const bool Doubled = Text.substr(At, 2) == "||";
        if (Text[At] == EntryEnd && !Doubled) {
            EndEntry();
        } else {
            Entry += IsPdnLineEnd(Text[At]) ? ' ' : Text[At];
        }
        At += Doubled ? 1 : 0;
    }
    EndEntry();
    return Lines;
}

} // namespace

bool NeedsRuleTag(const RuleTagDocument& Document) {
    return Document.Setup != rules::DefaultSetup ||
           Document.Rules != rules::KnownRuleSetOf(rules::KnownRules::American).Rules;
}

std::string WriteRuleTag(const RuleTagDocument& Document) {
    std::string Text = NameMark + Document.Variant + NameMark + " " + Document.Setup + " ";
    for (const std::string_view Key : ListedKeys) {
        std::string Value = ValueOf(Document.Rules, Key);
        // A square that is not there has no place among those that are.
        for (std::size_t Hole = Value.find("--"); Hole != std::string::npos; Hole = Value.find("--")) {
            Value.erase(Hole, 2);
        }
        Text += Value + " ";
    }
    for (const std::string_view Key : rules::MovementKeys) {
        Text += ValueOf(Document.Rules, Key).append(TwoBlanks);
    }
    return Text + ValueOf(Document.Rules, LastKey);
}

std::string RuleTagVariant(std::string_view Text) {
    const std::size_t First = Text.find(NameMark);
    const std::size_t Second = First == Text.npos ? Text.npos : Text.find(NameMark, First + 1);
    return Second == Text.npos ? std::string() : std::string(Text.substr(First + 1, Second - First - 1));
}

RuleTagReading ReadRuleTag(std::string_view Text, const rules::RuleSetFields& Before) {
    RuleTagReading Reading;
    Reading.Document.Rules = Before;
    try {
        ValueReader Reader(Text);
        ReadFields(Reader, Reading.Document);
    } catch (const base::Fault&) {
        Reading.Failed = true;
    }
    return Reading;
}

std::string WriteRuleSetTag(const RuleTagDocument& Document) {
    std::string Text;
    const auto AppendRule = [&](std::string_view Key) {
        AppendEntry(Text, std::string(Key) + "=", ValueOf(Document.Rules, Key));
    };
    AppendEntry(Text, VariantKey, Document.Variant);
    for (const rules::RuleKey& Key : rules::RuleKeys()) {
        AppendRule(Key.Name);
    }
    if (!Document.Setup.empty()) {
        AppendEntry(Text, "Setup=", Document.Setup);
    }
    for (const std::string_view Key : rules::PromotionKeys) {
        AppendRule(Key);
    }
    for (const std::string_view Key : rules::MovementKeys) {
        AppendRule(Key);
    }
    return Text;
}

ReadResult<RuleTagDocument> ReadRuleSetTag(std::string_view Text) {
    const std::string Lines = EntriesAsLines(Text);
    ReadResult<VariantDocument> Read = ReadVariant(Lines + "END\n", rules::RuleSetFields{});
    if (!Read.Document) {
        return {std::nullopt, {0, Read.Error.Sentence}};
    }
    RuleTagDocument Document{{}, std::move(Read.Document->Setup), Read.Document->Rules};
    const std::size_t Name = Lines.find(std::string("\n").append(VariantKey));
    if (Name != std::string::npos) {
        const std::size_t Start = Name + 1 + VariantKey.size();
        Document.Variant = Lines.substr(Start, Lines.find('\n', Start) - Start);
    }
    return {std::move(Document), {}};
}

} // namespace zonterbrook::formats
