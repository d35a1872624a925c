// The variant file: a text file that holds the rules of one variant, its start position and its help text.
//
// The reader fills a fresh document and touches nothing else; laying the position and installing the rules is for
// whoever asked. Only variants of a person's own are ever written. docs/variant-files.md describes the format for those
// who write one by hand.
#pragma once

#include "formats/text_file.h"
#include "rules/rule_set.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::formats {

/// What a variant file says.
struct VariantDocument {
    std::string Name; ///< the file's name without its extension
    rules::RuleSetFields Rules;
    std::string Setup;         ///< a hundred digits, or empty: the file leaves the position as it is
    std::string HelpText;      ///< lines joined as written, "\n" for each line break asked for
    std::string HelpLink;      ///< a document for the rules window
    std::string QuickHelpLink; ///< a document for the quick rules window
};

/// Reads the text of a variant file. A rule that the text doesn't name keeps its value in `Before`.
ReadResult<VariantDocument> ReadVariant(std::string_view Text, const rules::RuleSetFields& Before);

/// Reads the file of the variant `Name` in `Folder`; letter case doesn't matter. The document bears `Name` as given.
ReadResult<VariantDocument> ReadVariantFile(const std::filesystem::path& Folder, std::string_view Name,
                                            const rules::RuleSetFields& Before);

/// The text of a variant's file, every rule in it, lines ended as in all files of the program. It reads back to the
/// same document.
std::string WriteVariant(const VariantDocument& Variant);

/// What is wrong with a name for a variant of a person's own, as a sentence; empty if it can be one.
std::string ComplaintAboutName(std::string_view Name);

/// The file of a variant in a folder, whether it is there or not.
std::filesystem::path VariantFile(const std::filesystem::path& Folder, std::string_view Name);

/// The folder of the variants that come with the program, or of the user's own, under the program's folder.
std::filesystem::path VariantFolder(const std::filesystem::path& ApplicationFolder, bool UserVariants);

/// The names of the variants in `Folder`, in alphabetical order, letter case ignored. Empty if there is no such folder.
std::vector<std::string> ListVariants(const std::filesystem::path& Folder);

/// The name as it is shown to a person: a closing " 10x10", in any case, is left away.
std::string VariantDisplayName(std::string_view Name);

} // namespace zonterbrook::formats
