// A variant's help set in type.
#pragma once

#include <QString>

#include <string_view>

namespace zonterbrook::ui {

/// The help as rich text: headings, paragraphs and lists.
QString HelpAsPage(std::string_view Help);

} // namespace zonterbrook::ui
