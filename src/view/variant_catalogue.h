// The variants of a folder as a person looks for one: by name, by what its help says, by its rules.
#pragma once

#include "formats/variant_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::view {

/// A variant with what it can be found by. One whose file can't be read has no document, and says why.
struct CatalogueEntry {
    std::string Name; ///< of the file
    std::optional<formats::VariantDocument> Document;
    std::string Complaint;
    std::string Words; ///< name, help and the phrases of its rules, in lower case
};

/// Reads all variants of a folder.
std::vector<CatalogueEntry> ReadCatalogue(const std::filesystem::path& Folder);

/// Whether a variant is what the words ask for: each stands somewhere in its name, its help or its rules, as the
/// beginning of a word or within one. Phrases of rules, such as "flying kings", ask for the rule, and with "without" or
/// "no" in front for its absence. Little words ("a", "with", "game") ask for nothing.
bool Fits(const CatalogueEntry& Entry, std::string_view Words);

/// The rules that are worth a word, as a line for a person: "Flying kings, men capture backward, majority capture".
std::string RulesLine(const rules::RuleSetFields& Rules);

} // namespace zonterbrook::view
