// Sorting and narrowing the list of games.
#include "view/pdn_chooser.h"

#include "base/text.h"

#include <algorithm>
#include <numeric>

namespace zonterbrook::view {

namespace {

using formats::PdnColumn;

/// "mm/dd/yyyy" as "yyyy.mm.dd", so that days follow each other; any other date as it stands.
std::string DateKey(std::string_view Date) {
    const std::size_t First = Date.find('/');
    const std::size_t Second = First == std::string_view::npos ? First : Date.find('/', First + 1);
    if (Second == std::string_view::npos) {
        return std::string(Date);
    }
    const auto TwoDigits = [](std::string_view Text) { return (Text.size() < 2 ? "0" : "") + std::string(Text); };
    return std::string(Date.substr(Second + 1)) + '.' + TwoDigits(Date.substr(0, First)) + '.' +
           TwoDigits(Date.substr(First + 1, Second - First - 1));
}

/// What a text is sorted by.
std::string SortKey(std::string_view Text, PdnColumn Column) {
    constexpr std::size_t RatingDigits = 6;
    switch (Column) {
    case PdnColumn::Date:
        return DateKey(Text);
    case PdnColumn::BlackElo:
    case PdnColumn::WhiteElo:
        return base::PadLeft(Text, RatingDigits);
    default:
        return base::ToLower(Text);
    }
}

/// A count with a comma between thousands.
std::string Grouped(std::size_t Count) {
    std::string Text = std::to_string(Count);
    for (std::size_t At = Text.size(); At > 3; At -= 3) {
        Text.insert(At - 3, 1, ',');
    }
    return Text;
}

} // namespace

PdnChooser::PdnChooser(formats::PdnIndex& InGames, const std::vector<std::string>& InVariants)
    : Games(InGames), Variants{"DEFAULT"} {
    Variants.insert(Variants.end(), InVariants.begin(), InVariants.end());
    GoOn(1);
}

bool PdnChooser::GoOn(std::size_t Bytes) {
    const bool More = !Games.IsDone() && Games.Scan(Bytes);
    for (; Listed < Games.Count(); ++Listed) {
        if (Fits(Listed)) {
            Shown.push_back(static_cast<std::uint32_t>(Listed));
        }
    }
    if (!More && SortedBy) {
        Sort();
    }
    return More;
}

double PdnChooser::Progress() const {
    if (Games.IsDone() || Games.Size() == 0) {
        return 1;
    }
    return static_cast<double>(Games.Scanned()) / static_cast<double>(Games.Size());
}

std::string PdnChooser::CountText() const {
    std::string Text = Grouped(Games.Count()) + (Games.Count() == 1 ? " game" : " games");
    if (!Words.empty()) {
        Text = Grouped(Lines()) + " of " + Text;
    }
    if (!Games.Error().Sentence.empty()) {
        return Text + "; " + Games.Error().Sentence;
    }
    return Games.IsDone() ? Text : Text + " so far";
}

void PdnChooser::Filter(std::string_view Text) {
    Words.clear();
    const std::string Lower = base::ToLower(Text);
    for (std::string_view Rest = base::Trim(Lower); !Rest.empty(); Rest = base::Trim(Rest)) {
        const std::size_t End = std::min(Rest.find(' '), Rest.size());
        Words.emplace_back(Rest.substr(0, End));
        Rest.remove_prefix(End);
    }
    Shown.clear();
    for (std::size_t Game = 0; Game < Listed; ++Game) {
        if (Fits(Game)) {
            Shown.push_back(static_cast<std::uint32_t>(Game));
        }
    }
    if (SortedBy) {
        Sort();
    }
}

void PdnChooser::SortBy(PdnColumn Column) {
    Downward = SortedBy == Column && !Downward;
    SortedBy = Column;
    Sort();
}

std::string_view PdnChooser::Text(std::size_t Line, PdnColumn Column) const {
    return Games.Column(Shown.at(Line), Column);
}

std::optional<std::size_t> PdnChooser::LineOf(std::size_t Game) const {
    const auto Found = std::ranges::find(Shown, static_cast<std::uint32_t>(Game));
    return Found == Shown.end() ? std::nullopt : std::optional(static_cast<std::size_t>(Found - Shown.begin()));
}

bool PdnChooser::Fits(std::size_t Game) const {
    if (Words.empty()) {
        return true;
    }
    const std::string Texts = base::ToLower(Games.Texts(Game));
    return std::ranges::all_of(Words, [&](const std::string& Word) { return Texts.find(Word) != std::string::npos; });
}

// Games with the same text stay in the order of the file.
void PdnChooser::Sort() {
    struct Keyed {
        std::string Key;
        std::uint32_t Game;
    };
    std::vector<Keyed> Order;
    Order.reserve(Shown.size());
    for (const std::uint32_t Game : Shown) {
        Order.push_back({SortKey(Games.Column(Game, *SortedBy), *SortedBy), Game});
    }
    std::ranges::sort(Order, [this](const Keyed& A, const Keyed& B) {
        const int Way = A.Key.compare(B.Key);
        return Way != 0 ? (Way < 0) != Downward : A.Game < B.Game;
    });
    std::ranges::transform(Order, Shown.begin(), [](const Keyed& Entry) { return Entry.Game; });
}

} // namespace zonterbrook::view
