// The reader and the writer of variant files, and the list of those that are there.
#include "formats/variant_file.h"

#include "base/fault.h"
#include "base/text.h"
#include "rules/position.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

namespace zonterbrook::formats {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Extension = ".ini";
constexpr std::string_view BoardSuffix = " 10x10";
constexpr std::string_view EndLine = "END";
constexpr std::string_view NormalSetup = "normal";
constexpr std::string_view LineBreak = "<br>";

/// Takes one "key=value" into the document. A key that nobody knows is no error: newer files stay readable. Gives what
/// is wrong with the value, or an empty sentence.
std::string ReadEntry(VariantDocument& Document, std::string_view Key, std::string_view Value) {
    if (Key == "Help") {
        Document.HelpText += Value == LineBreak ? "\n" : Value;
    } else if (Key == "HelpLink") {
        Document.HelpLink = Value;
    } else if (Key == "QuickHelpLink") {
        Document.QuickHelpLink = Value;
    } else if (Key == "Setup") {
        if (Value == NormalSetup) {
            return {};
        }
        // One digit is read for each cell, and what follows the last of them is nobody's.
        const std::string_view Cells = Value.substr(0, rules::SetupLength);
        if (!rules::IsSetupText(Cells)) {
            return "Setup= needs a hundred digits from 0 to 4, or the word normal";
        }
        Document.Setup = Cells;
    } else {
        try {
            rules::WriteRule(Document.Rules, Key, Value);
        } catch (const base::Fault&) {
            return "the value of " + std::string(Key) + "= is out of range";
        }
    }
    return {};
}

bool EndsWithIgnoringCase(std::string_view Text, std::string_view LowerCaseEnd) {
    return Text.size() >= LowerCaseEnd.size() &&
           base::ToLower(Text.substr(Text.size() - LowerCaseEnd.size())) == LowerCaseEnd;
}

} // namespace

ReadResult<VariantDocument> ReadVariant(std::string_view Text, const rules::RuleSetFields& Before) {
    VariantDocument Document;
    Document.Rules = Before;
    const std::vector<std::string> Lines = base::SplitLines(Text);
    // The first line is the author's own: a title, a date, whatever it says.
    for (std::size_t Index = 1; Index < Lines.size(); ++Index) {
        const std::string_view Line = Lines[Index];
        if (Line == EndLine) {
            return {std::move(Document), {}};
        }
        const std::size_t Equals = Line.find('=');
        if (Equals == std::string_view::npos) {
            continue;
        }
        std::string Sentence = ReadEntry(Document, Line.substr(0, Equals), Line.substr(Equals + 1));
        if (!Sentence.empty()) {
            return {std::nullopt, {static_cast<int>(Index) + 1, std::move(Sentence)}};
        }
    }
    return {std::nullopt, {static_cast<int>(Lines.size()), "the file ends without the line END"}};
}

ReadResult<VariantDocument> ReadVariantFile(const fs::path& Folder, std::string_view Name,
                                            const rules::RuleSetFields& Before) {
    // A name may come out of a game file: it names a variant of this folder and no other place.
    const bool PlainName = Name.find_first_of("/\\") == std::string_view::npos;
    const std::optional<fs::path> File =
        PlainName ? FindFile(Folder, std::string(Name).append(Extension)) : std::nullopt;
    if (!File) {
        return {std::nullopt, {0, "there is no variant file of this name"}};
    }
    const ReadResult<std::string> Content = ReadTextFile(*File);
    if (!Content.Document) {
        return {std::nullopt, Content.Error};
    }
    ReadResult<VariantDocument> Result = ReadVariant(*Content.Document, Before);
    if (Result.Document) {
        Result.Document->Name = Name;
    }
    return Result;
}

std::string WriteVariant(const VariantDocument& Variant) {
    constexpr std::string_view LineEnd = "\r\n";
    std::string Text = "Zonterbrook variant: " + Variant.Name + std::string(LineEnd);
    const auto Add = [&](std::string_view Key, std::string_view Value) {
        Text.append(Key).append("=").append(Value).append(LineEnd);
    };
    const std::vector<std::string> Paragraphs = base::SplitLines(Variant.HelpText);
    for (std::size_t Index = 0; Index < Paragraphs.size(); ++Index) {
        if (Index > 0) {
            Add("Help", LineBreak);
        }
        if (!Paragraphs[Index].empty()) {
            Add("Help", Paragraphs[Index]);
        }
    }
    for (const auto& [Key, Link] :
         {std::pair("HelpLink", &Variant.HelpLink), std::pair("QuickHelpLink", &Variant.QuickHelpLink)}) {
        if (!Link->empty()) {
            Add(Key, *Link);
        }
    }
    // The position stands before the side that begins: other readers take its figures in that order.
    Add("Setup", Variant.Setup.empty() ? NormalSetup : std::string_view(Variant.Setup));
    for (const rules::RuleKey& Key : rules::RuleKeys()) {
        Add(Key.Name, std::to_string(Key.Read(Variant.Rules)));
    }
    for (const auto* Keys : {&rules::PromotionKeys[0], &rules::PromotionKeys[1], &rules::MovementKeys[0],
                             &rules::MovementKeys[1], &rules::MovementKeys[2], &rules::MovementKeys[3]}) {
        Add(*Keys, rules::RuleText(Variant.Rules, *Keys).value_or(""));
    }
    return Text.append(EndLine).append(LineEnd);
}

std::string ComplaintAboutName(std::string_view Name) {
    constexpr std::size_t Longest = 100;
    if (Name.empty() || base::Trim(Name) != Name) {
        return "A variant needs a name, without blanks at its ends.";
    }
    if (Name.size() > Longest) {
        return "The name is too long.";
    }
    const bool Odd = std::ranges::any_of(Name, [](char C) {
        return static_cast<unsigned char>(C) < ' ' ||
               std::string_view("/\\:*?\"<>|,").find(C) != std::string_view::npos;
    });
    if (Odd || Name.front() == '.') {
        return "The name is that of a file: it can't begin with a full stop, nor hold any of / \\ : * ? \" < > | ,";
    }
    return {};
}

fs::path VariantFile(const fs::path& Folder, std::string_view Name) {
    return Folder / TextPath(std::string(Name).append(Extension));
}

fs::path VariantFolder(const fs::path& ApplicationFolder, bool UserVariants) {
    const std::string_view Name = UserVariants ? "variants/uservariants" : "variants";
    return FindFile(ApplicationFolder, Name).value_or(ApplicationFolder / Name);
}

std::vector<std::string> ListVariants(const fs::path& Folder) {
    std::vector<std::string> Names;
    std::error_code Error;
    for (fs::directory_iterator Entry(Folder, Error), End; !Error && Entry != End; Entry.increment(Error)) {
        const std::string File = PathText(Entry->path().filename());
        std::error_code KindError;
        if (EndsWithIgnoringCase(File, Extension) && Entry->is_regular_file(KindError)) {
            Names.push_back(File.substr(0, File.size() - Extension.size()));
        }
    }
    // Systems hand out a folder's entries in an order of their own, some in none at all; a person looks for a name.
    std::ranges::sort(Names, [](const std::string& A, const std::string& B) {
        return std::pair(base::ToLower(A), std::string_view(A)) < std::pair(base::ToLower(B), std::string_view(B));
    });
    return Names;
}

std::string VariantDisplayName(std::string_view Name) {
    if (EndsWithIgnoringCase(Name, BoardSuffix)) {
        Name.remove_suffix(BoardSuffix.size());
    }
    return std::string(Name);
}

} // namespace zonterbrook::formats
