// Where the window's parts stand at any size: the tables of the layout, multiplied by the scale that fits.
#include "ui/window_layout.h"

#include <algorithm>
#include <cmath>

namespace zonterbrook::ui {

namespace {

using view::Control;

constexpr int EdgePixels = 12;         // between the window's edge and the board's frame
constexpr int BelowBoard = 7;          // the frame's band, and air around the labels
constexpr double TableLinePixels = 18; // height of a line of text for which the tables leave room
constexpr double LargestFontScale = 1.75;

int Rounded(double Value) {
    return static_cast<int>(std::lround(Value));
}

} // namespace

double WindowLayout::FontScale(double Scale) {
    return std::clamp(Scale, 1.0, LargestFontScale);
}

// By how much the parts beside the board stand further apart than in the tables.
double WindowLayout::Spread(double Scale) const {
    return std::max(1.0, Measures.LineHeight * FontScale(Scale) / (TableLinePixels * Scale));
}

double WindowLayout::XAt(double Value, double Scale) const {
    const double Edge = BoardRight();
    const double Spread = Value <= Edge ? Value : Edge + (Value - Edge) * this->Spread(Scale);
    return Spread * Scale / Measures.TwipsPerPixel;
}

// Above the lists and below them everything moves apart; the lists give or take the rest.
double WindowLayout::YAt(double Value, double Scale) const {
    const view::Rectangle& Lists = Tables.PlaceOf(Control::GameList);
    const double Bottom = Lists.Top + Lists.Height;
    const double Spread = this->Spread(Scale);
    double Y = Lists.Top * Spread;
    if (Value <= Lists.Top) {
        Y = Value * Spread;
    } else if (Value >= Bottom) {
        Y = std::max(Bottom, Y) + (Value - Bottom) * Spread;
    }
    return Y * Scale / Measures.TwipsPerPixel;
}

double WindowLayout::Raised(double Scale) const {
    return Tables.BoardTop * Scale / Measures.TwipsPerPixel - EdgePixels;
}

// Where the last of the columns above the lists ends, if each begins where the tables say or behind the one before.
double WindowLayout::HeaderEnd(double Scale) const {
    static constexpr Control Columns[] = {Control::UpperColour, Control::UpperName, Control::UpperMaterial,
                                          Control::VariantLine};
    double End = -GapPixels;
    for (std::size_t I = 0; I < std::size(Columns); ++I) {
        const double Left = std::max(End + GapPixels, XAt(Tables.PlaceOf(Columns[I]).Left, Scale));
        End = std::ceil(Left + Measures.HeaderColumns.at(I) * FontScale(Scale));
    }
    return End;
}

QSize WindowLayout::SizeAt(double Scale) const {
    const double Right = XAt(Tables.PlaceOf(Control::RootList).Left + Tables.PlaceOf(Control::RootList).Width, Scale);
    const double Missing = std::max(0.0, HeaderEnd(Scale) - Right);
    return {static_cast<int>(std::ceil(XAt(Tables.Width, Scale) + Missing)),
            static_cast<int>(std::ceil(YAt(Tables.Height, Scale) - Raised(Scale)))};
}

double WindowLayout::ScaleFor(QSize Room) const {
    const auto Fits = [&](double Scale) {
        const QSize Needed = SizeAt(Scale);
        return Needed.width() <= Room.width() && Needed.height() <= Room.height();
    };
    // The room that is needed grows with the scale; scale 1 is met exactly.
    double Low = SmallestScale;
    double High = LargestScale;
    if (Fits(1)) {
        Low = 1;
    } else {
        High = 1;
    }
    constexpr double Exact = 0.0005;
    while (High - Low > Exact) {
        const double Middle = (Low + High) / 2;
        (Fits(Middle) ? Low : High) = Middle;
    }
    return Low;
}

void WindowLayout::Fit(QSize Room) {
    Factor = ScaleFor(Room);
    Extra = (Room - QSize(Rounded(XAt(Tables.Width, Factor)), SizeAt(Factor).height())).expandedTo(QSize(0, 0));
}

int WindowLayout::RaisedBy() const {
    return Rounded(Raised(Factor));
}

int WindowLayout::X(std::int32_t Value) const {
    const double Edge = BoardRight();
    const double Share = Value <= Edge ? 0 : (Value - Edge) / (Tables.Width - Edge);
    return Rounded(XAt(Value, Factor) + Extra.width() * Share);
}

QRect WindowLayout::Place(Control Which) const {
    const view::Rectangle& Table = Tables.PlaceOf(Which);
    const view::Rectangle& Lists = Tables.PlaceOf(Control::GameList);
    const bool BesideBoard = Table.Left > BoardRight();
    const std::int32_t End = Table.Top + Table.Height;
    // Of what stands below the board, the lowest box takes the height that is left over.
    const bool Lowest = !BesideBoard && (Which == Control::Calculation || Which == Control::CommentBox);
    const int Top = Rounded(YAt(Table.Top, Factor)) - RaisedBy() +
                    (BesideBoard && Table.Top >= Lists.Top + Lists.Height ? Extra.height() : 0);
    const int Bottom = Rounded(YAt(End, Factor)) - RaisedBy() +
                       (Lowest || (BesideBoard && End >= Lists.Top + Lists.Height) ? Extra.height() : 0);
    const int Left = X(Table.Left);
    return {Left, Top, X(Table.Left + Table.Width) - Left, Bottom - Top};
}

QRect WindowLayout::BoardPlace() const {
    const double Bottom = (Tables.BoardTop + 10 * Tables.Pitch) * Factor / Measures.TwipsPerPixel;
    const double Line = Measures.LineHeight * FontScale(Factor);
    return {0, 0, X(BoardRight()) + GapPixels,
            Rounded(Bottom - Raised(Factor) + Line + BelowBoard * std::min(Factor, 2.0))};
}

} // namespace zonterbrook::ui
