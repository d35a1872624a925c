// The position for a reader.
#include "control/diagram.h"

#include "base/text.h"
#include "formats/fen.h"
#include "formats/text_file.h"
#include "rules/cells.h"
#include "rules/position.h"
#include "view/draw_board.h"

#include <system_error>

namespace zonterbrook::control {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view PageName = "diagram.html";
constexpr std::string_view PictureFolder = "pieces";

// [dark, light][empty, then by piece index]
constexpr std::string_view Names[2][5] = {{"dsquare", "dwhite_man", "dblack_man", "dwhite_king", "dblack_king"},
                                          {"lsquare", "lwhite_man", "lblack_man", "lwhite_king", "lblack_king"}};

// The colour is that of the place in the picture, so that the pattern stays when the board is turned.
std::string_view PictureName(const view::ViewState& State, int Place, std::string_view Before) {
    const int Square = State.BoardTurned == 1
                           ? rules::CellAt(rules::FirstRow + rules::LastRow - rules::RowOf(Place),
                                           rules::FirstColumn + rules::LastColumn - rules::ColumnOf(Place))
                           : Place;
    const std::int32_t Value = State.Board[Square];
    if (Value != rules::Empty && !rules::IsPiece(Value)) {
        return Before;
    }
    const bool Dark = view::IsDarkSquare(State, Place);
    if (Value == rules::Empty) {
        return Names[Dark ? 0 : 1][0];
    }
    return Names[State.RuleSet.PiecesOnBlack == 2 && !Dark ? 1 : 0][1 + rules::PieceIndex(Value)];
}

// Where the page lies in another folder than the program, its pictures have to follow it.
std::optional<formats::ReadError> BringPictures(const GameState& State) {
    const fs::path To = State.Outside().WritableDirectory() / PictureFolder;
    const auto From = formats::FindFile(State.Outside().ApplicationDirectory(), PictureFolder);
    std::error_code Error;
    if (!From || fs::equivalent(*From, To, Error)) {
        return std::nullopt;
    }
    fs::create_directories(To, Error);
    fs::copy(*From, To, fs::copy_options::skip_existing | fs::copy_options::recursive, Error);
    return Error ? std::optional(formats::ReadError{0, formats::PathText(To) + ": " + Error.message()}) : std::nullopt;
}

std::string PositionText(const GameState& State) {
    return formats::WriteFen({State.Side == rules::Black, rules::SetupText(State.Board)}, State.RuleSet.PiecesOnBlack);
}

} // namespace

formats::DiagramDocument DiagramOf(const view::ViewState& State) {
    formats::DiagramDocument Diagram;
    Diagram.Title = State.VariantTitle;
    Diagram.Comment = State.CommentText;
    std::string_view Name;
    int Index = 0;
    for (int Row = rules::LastRow; Row >= rules::FirstRow; --Row) {
        for (int Column = rules::FirstColumn; Column <= rules::LastColumn; ++Column) {
            Name = PictureName(State, rules::CellAt(Row, Column), Name);
            Diagram.Pictures[Index++] = Name;
        }
    }
    return Diagram;
}

void CreateHtml_Click(GameState& State) {
    const fs::path File = State.Outside().WritableDirectory() / PageName;
    auto Failure = formats::WriteFile(File, formats::WriteDiagram(DiagramOf(State)));
    if (!Failure) {
        Failure = BringPictures(State);
    }
    if (Failure) {
        State.Outside().Message("Diagram", Failure->Text(), Icon::Exclamation);
        return;
    }
    State.Outside().Message("Diagram", "DIAGRAM.HTML created", Icon::Exclamation);
    State.Outside().OpenDocument(formats::PathText(File));
}

void CopyDiagram(GameState& State) {
    State.Outside().UseDiagram(DiagramUse::Copy, PositionText(State));
}

void SaveDiagram(GameState& State) {
    State.Outside().UseDiagram(DiagramUse::Save, PositionText(State));
}

void PrintDiagram(GameState& State) {
    State.Outside().UseDiagram(DiagramUse::Print, PositionText(State));
}

} // namespace zonterbrook::control
