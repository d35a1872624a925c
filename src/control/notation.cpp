// The switch between the three notations.
//
// Writes the notation, and again what is written in it: the lists, the calculation, the edges of the board.
#include "control/notation.h"

#include "control/book.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

// The line that the person has chosen in a list stays chosen.
void RewriteMoves(GameState& State) {
    const std::int32_t GameLine = State.GameList.Selected;
    view::ListGame(State, State.Record);
    State.GameList.Selected = GameLine;
    if (!State.RootList.Lines.empty()) {
        const std::int32_t RootLine = State.RootList.Selected;
        const std::int32_t Played = State.RootList.Marked;
        view::ShowRootMoves(State);
        State.RootList.Selected = RootLine;
        State.RootList.Marked = Played;
    }
    if (State.ShowCalculation == 1) {
        view::WriteCalculation(State);
    }
    RefreshChoices(State);
}

void SetNotation(GameState& State, rules::Notation Names) {
    // Numbers exist for fifty squares only, and without a notation moves are named by number.
    if (Names != rules::Notation::Algebraic && State.RuleSet.PiecesOnBlack == 2) {
        return;
    }
    State.NotationMode = Names;
    view::DrawBoard(State, 0);
    State.SourcesShown = false;
    RewriteMoves(State);
}

} // namespace zonterbrook::control
