// The tables of the window's layout: four columns, two sizes of the board by two text densities.
//
// Reads the size class, the skin's size and the twips per pixel; writes `Layout` and what of the labels is visible.
#include "view/layout.h"

namespace zonterbrook::view {

namespace {

// Everything right of the board is given for a board that leaves room for it; the small board at the usual density is
// wider than that by this much.
constexpr std::int32_t ShiftOfWideSmallBoard = 1130;

constexpr std::int32_t BoxInset = 16;
constexpr std::int32_t Margin = 240;
constexpr std::int32_t Gap = 90;
constexpr std::int32_t LineHeight = 285;
constexpr std::int32_t TypedHeight = 330;
constexpr std::int32_t ExtraRowHeight = 270;
constexpr std::int32_t UpperRow = 640;
constexpr std::int32_t LowerRow = 960;
constexpr std::int32_t ExtraColumns[] = {0, 1100, 1600, 2000, 2500, 3000};

struct LayoutTable {
    // The board.
    std::int32_t CellSize;
    std::int32_t Pitch;
    std::int32_t BoardLeft;
    std::int32_t BoardTop;
    std::int32_t BoxEnd;
    std::int32_t DragPitch;
    // Right of it.
    std::int32_t GameListLeft;
    std::int32_t ChoiceListLeft;
    std::int32_t RootListLeft;
    std::int32_t ListTop;
    std::int32_t ListHeight;
    std::int32_t NameLeft;     // UpperName, LowerName
    std::int32_t ColourLeft;   // UpperColour, LowerColour
    std::int32_t MaterialLeft; // UpperMaterial, LowerMaterial
    std::int32_t StrengthLeft; // StrengthLine
    std::int32_t VariantLeft;  // VariantLine
    std::int32_t Right;
    // The calculation, the boxes, the progress bar.
    Rectangle Calculation;
    Rectangle Comment;
    Rectangle Typed;
    Rectangle Progress;
    std::int32_t ExtraRow; // top of the labels of the pieces off the board
    std::int32_t Height;
};

constexpr std::int32_t Small = 0;
constexpr std::int32_t Medium = 1;

// [small, medium][usual density, larger one]
constexpr LayoutTable Tables[2][2] = {
    {{.CellSize = 568,
      .Pitch = 570,
      .BoardLeft = 374,
      .BoardTop = 474,
      .BoxEnd = 544,
      .DragPitch = 568,
      .GameListLeft = 5400 + ShiftOfWideSmallBoard,
      .ChoiceListLeft = 7560 + ShiftOfWideSmallBoard,
      .RootListLeft = 8880 + ShiftOfWideSmallBoard,
      .ListTop = 1400,
      .ListHeight = 3660,
      .NameLeft = 6000 + ShiftOfWideSmallBoard,
      .ColourLeft = 5400 + ShiftOfWideSmallBoard,
      .MaterialLeft = 7560 + ShiftOfWideSmallBoard,
      .StrengthLeft = 8400 + ShiftOfWideSmallBoard,
      .VariantLeft = 8160 + ShiftOfWideSmallBoard,
      .Right = 11100 + ShiftOfWideSmallBoard,
      .Calculation = {240, 6585, 4815, 1355},
      .Comment = {5400 + ShiftOfWideSmallBoard, 5875, 5700, 855},
      .Typed = {5400 + ShiftOfWideSmallBoard, 5475, 5700, TypedHeight},
      .Progress = {5400 + ShiftOfWideSmallBoard, 5145, 5055, 240},
      .ExtraRow = 5875,
      .Height = 8060},
     {.CellSize = 458,
      .Pitch = 456,
      .BoardLeft = 384,
      .BoardTop = 474,
      .BoxEnd = 434,
      .DragPitch = 458,
      .GameListLeft = 5400,
      .ChoiceListLeft = 7560,
      .RootListLeft = 8880,
      .ListTop = 1320,
      .ListHeight = 3660,
      .NameLeft = 6000,
      .ColourLeft = 5400,
      .MaterialLeft = 7560,
      .StrengthLeft = 8400,
      .VariantLeft = 8160,
      .Right = 11100,
      .Calculation = {240, 5475, 4815, 1355},
      .Comment = {5400, 5875, 5700, 855},
      .Typed = {5400, 5475, 5700, TypedHeight},
      .Progress = {5400, 5100, 5055, 240},
      .ExtraRow = 5875,
      .Height = 6970}},
    {{.CellSize = 808,
      .Pitch = 811,
      .BoardLeft = 373,
      .BoardTop = 473,
      .BoxEnd = 784,
      .DragPitch = 808,
      .GameListLeft = 8940,
      .ChoiceListLeft = 11100,
      .RootListLeft = 12420,
      .ListTop = 1365,
      .ListHeight = 7210,
      .NameLeft = 9540,
      .ColourLeft = 8940,
      .MaterialLeft = 11100,
      .StrengthLeft = 11940,
      .VariantLeft = 11700,
      .Right = 17055,
      .Calculation = {8700, 8995, 8355, 1355},
      .Comment = {306, 9495, 8230, 855},
      .Typed = {306, 8995, 8230, TypedHeight},
      .Progress = {8940, 8665, 8115, 240},
      .ExtraRow = 9370,
      .Height = 10490},
     {.CellSize = 648,
      .Pitch = 648,
      .BoardLeft = 384,
      .BoardTop = 474,
      .BoxEnd = 629,
      // Five twips more than the true pitch: a drop far from its start may fall short by a cell, and shall.
      .DragPitch = 653,
      .GameListLeft = 7340,
      .ChoiceListLeft = 9500,
      .RootListLeft = 10820,
      .ListTop = 1365,
      .ListHeight = 5610,
      .NameLeft = 7940,
      .ColourLeft = 7340,
      .MaterialLeft = 9500,
      .StrengthLeft = 10340,
      .VariantLeft = 10100,
      .Right = 13855,
      .Calculation = {7100, 7395, 6755, 1355},
      .Comment = {318, 7895, 6596, 855},
      .Typed = {318, 7395, 6596, TypedHeight},
      .Progress = {7340, 7065, 6515, 240},
      .ExtraRow = 7770,
      .Height = 8890}}};

// A skin that tells no size at the usual density is dragged by a pitch of its own.
constexpr std::int32_t DragPitchOfUnsizedSkin = 2488;

void PlaceHeader(LayoutFields& Layout, const LayoutTable& T) {
    const std::int32_t NameWidth = T.MaterialLeft - T.NameLeft - Gap;
    const std::int32_t ColourWidth = T.NameLeft - T.ColourLeft - Gap / 3;
    const std::int32_t MaterialWidth = T.VariantLeft - T.MaterialLeft - Gap / 3;
    Layout.PlaceOf(Control::UpperName) = {T.NameLeft, UpperRow, NameWidth, LineHeight};
    Layout.PlaceOf(Control::LowerName) = {T.NameLeft, LowerRow, NameWidth, LineHeight};
    Layout.PlaceOf(Control::UpperColour) = {T.ColourLeft, UpperRow, ColourWidth, LineHeight};
    Layout.PlaceOf(Control::LowerColour) = {T.ColourLeft, LowerRow, ColourWidth, LineHeight};
    Layout.PlaceOf(Control::UpperMaterial) = {T.MaterialLeft, UpperRow, MaterialWidth, LineHeight};
    Layout.PlaceOf(Control::LowerMaterial) = {T.MaterialLeft, LowerRow, MaterialWidth, LineHeight};
    Layout.PlaceOf(Control::StrengthLine) = {T.StrengthLeft, LowerRow, T.Right - T.StrengthLeft, LineHeight};
    Layout.PlaceOf(Control::VariantLine) = {T.VariantLeft, UpperRow, T.Right - T.VariantLeft, LineHeight};
}

void PlaceLists(LayoutFields& Layout, const LayoutTable& T) {
    Layout.PlaceOf(Control::GameList) = {T.GameListLeft, T.ListTop, T.ChoiceListLeft - T.GameListLeft - Gap,
                                         T.ListHeight};
    Layout.PlaceOf(Control::ChoiceList) = {T.ChoiceListLeft, T.ListTop, T.RootListLeft - T.ChoiceListLeft - Gap,
                                           T.ListHeight};
    Layout.PlaceOf(Control::RootList) = {T.RootListLeft, T.ListTop, T.Right - T.RootListLeft, T.ListHeight};
}

// The labels of the pieces off the board stand in a row for which the comment box gives up its upper part.
void PlaceExtraPieces(ViewState& State, const LayoutTable& T) {
    static constexpr Control Row[] = {Control::ExtraHeading, Control::ExtraBlackName, Control::ExtraBlackCount,
                                      Control::ExtraWhiteName, Control::ExtraWhiteCount};
    const bool Shown = State.RuleSet.canContract != 0;
    for (int I = 0; I < 5; ++I) {
        State.Layout.PlaceOf(Row[I]) = {T.Comment.Left + ExtraColumns[I], T.ExtraRow,
                                        ExtraColumns[I + 1] - ExtraColumns[I] - Gap / 3, ExtraRowHeight};
    }
    State.ExtraHeading.Text = "Extra Pieces:";
    State.ExtraBlackName.Text = "Black";
    State.ExtraWhiteName.Text = "White";
    for (LabelFields* Label : {&State.ExtraHeading, &State.ExtraBlackName, &State.ExtraBlackCount,
                               &State.ExtraWhiteName, &State.ExtraWhiteCount}) {
        Label->Visible = Shown;
    }
    if (Shown) {
        Rectangle& Comment = State.Layout.PlaceOf(Control::CommentBox);
        const std::int32_t Bottom = Comment.Top + Comment.Height;
        Comment.Top = T.ExtraRow + ExtraRowHeight;
        Comment.Height = Bottom - Comment.Top;
    }
}

} // namespace

bool IsMedium(const ViewState& State) {
    return State.SizeClass == 2 || (State.SizeClass == 4 && State.BoardCustomSize == 2);
}

bool HasEdges(const ViewState& State) {
    return IsMedium(State) || State.SizeClass == 0 || (State.SizeClass == 4 && State.BoardCustomSize == 0);
}

void LayoutWindow(ViewState& State) {
    const bool Dense = State.TwipsPerPixel == 12;
    const LayoutTable& T = Tables[IsMedium(State) ? Medium : Small][Dense ? 1 : 0];
    LayoutFields& Layout = State.Layout;
    Layout.Medium = IsMedium(State);
    Layout.CellSize = T.CellSize;
    Layout.Pitch = T.Pitch;
    Layout.BoardLeft = T.BoardLeft;
    Layout.BoardTop = T.BoardTop;
    Layout.Box = {BoxInset, BoxInset, T.BoxEnd - BoxInset, T.BoxEnd - BoxInset};
    Layout.DragPitch = !HasEdges(State) && !Dense ? DragPitchOfUnsizedSkin : T.DragPitch;
    PlaceHeader(Layout, T);
    PlaceLists(Layout, T);
    Layout.PlaceOf(Control::Calculation) = T.Calculation;
    Layout.PlaceOf(Control::CommentBox) = T.Comment;
    Layout.PlaceOf(Control::MoveBox) = T.Typed;
    Layout.PlaceOf(Control::Progress) = T.Progress;
    PlaceExtraPieces(State, T);
    Layout.Width = T.Right + Margin;
    Layout.Height = T.Height;
}

} // namespace zonterbrook::view
