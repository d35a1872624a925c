// A variant's help set in type.
#include "ui/help_page.h"

#include "view/help_text.h"

namespace zonterbrook::ui {

QString HelpAsPage(std::string_view Help) {
    using Kind = view::HelpBlock::Kind;
    QString Page;
    bool InList = false;
    for (const view::HelpBlock& Block : view::SetHelp(Help)) {
        const bool Item = Block.Is == Kind::Item;
        if (Item != InList) {
            Page += Item ? QLatin1String("<ul style=\"margin-left: -20px\">") : QLatin1String("</ul>");
            InList = Item;
        }
        const QString Words = QString::fromStdString(Block.Text).toHtmlEscaped();
        const QLatin1String Frame(Item                        ? "<li>%1</li>"
                                  : Block.Is == Kind::Heading ? "<h4 style=\"margin-bottom: 2px\">%1</h4>"
                                                              : "<p style=\"margin-top: 2px\">%1</p>");
        Page += QString(Frame).arg(Words);
    }
    return InList ? Page + QLatin1String("</ul>") : Page;
}

} // namespace zonterbrook::ui
