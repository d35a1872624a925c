// Where the window's parts stand at any size: the tables of the layout, multiplied by the scale that fits.
//
// The scale is the largest one at which the whole layout has room. What it leaves over goes to the lists and boxes:
// width to everything right of the board, height to the lists and to the lowest box below the board. A font that is
// larger than the tables were made for pushes the parts beside the board apart.
#pragma once

#include "view/state.h"

#include <QRect>
#include <QSize>

#include <array>

namespace zonterbrook::ui {

inline constexpr double SmallestScale = 0.6;
inline constexpr double LargestScale = 6;
inline constexpr int GapPixels = 6; // between two labels

/// What a place in the tables is given by, and how its texts are set.
struct LayoutMeasures {
    int TwipsPerPixel = 15; ///< of the tables at scale 1
    int LineHeight = 0;     ///< of the desktop's font, in pixels
    /// Of the columns above the lists (colour, name, pieces, titles): how wide their texts are in that font.
    std::array<int, 4> HeaderColumns{};
};

class WindowLayout {
public:
    WindowLayout() = default;
    WindowLayout(const view::LayoutFields& At1, LayoutMeasures With) : Tables(At1), Measures(With) {}

    /// How much larger than the desktop's the texts are at a scale: they grow with the board, but not as far.
    static double FontScale(double Scale);

    /// The room that the layout takes at a scale, in pixels.
    QSize SizeAt(double Scale) const;

    /// The largest scale at which it fits into a room, within the two bounds.
    double ScaleFor(QSize Room) const;

    /// Fits the layout into a room; what follows tells of the last one.
    void Fit(QSize Room);

    double Scale() const { return Factor; }
    /// Twips of the tables to a pixel.
    double Twips() const { return Measures.TwipsPerPixel / Factor; }
    /// By how many pixels everything stands further up than in the tables, which leave room for a toolbar.
    int RaisedBy() const;
    /// Where a control stands. `X` alone: a place from the left.
    QRect Place(view::Control Which) const;
    int X(std::int32_t Value) const;
    /// The board with its frame and labels.
    QRect BoardPlace() const;

private:
    double Spread(double Scale) const;
    double XAt(double Value, double Scale) const;
    double YAt(double Value, double Scale) const;
    double Raised(double Scale) const;
    double HeaderEnd(double Scale) const;
    std::int32_t BoardRight() const { return Tables.BoardLeft + 10 * Tables.Pitch; }

    view::LayoutFields Tables;
    LayoutMeasures Measures;
    double Factor = 1;
    QSize Extra{0, 0};
};

} // namespace zonterbrook::ui
