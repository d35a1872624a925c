// A new game, and the openings that are drawn by lot.
//
// Reads the settings and the variant's file; writes everything that belongs to a game.
#include "control/new_game.h"

#include "base/checked_number.h"
#include "base/text.h"
#include "control/end_of_game.h"
#include "control/input.h"
#include "control/record.h"
#include "control/trap.h"
#include "engine/evaluate.h"
#include "formats/variant_file.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "rules/moves.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <string>
#include <vector>

namespace zonterbrook::control {

namespace {

constexpr std::string_view ComputerName = "Computer";

void FitToColour(GameState& State) {
    const std::uint8_t Colour = State.RuleSet.PiecesOnBlack;
    const bool Asked = Colour == 0 || (Colour < 2 && Colour != State.LoadedRuleSet.PiecesOnBlack);
    if (Asked && rules::AllPieces(State).Any()) {
        rules::FitMenToColour(State);
        rules::RecountPosition(State);
    }
}

void DrawColourByLot(GameState& State) {
    if (State.RuleSet.RndColor == 1) {
        State.RuleSet.BlackStarts = State.Outside->Random() < 0.5 ? 0 : 1;
        State.LoadedRuleSet.BlackStarts = State.RuleSet.BlackStarts;
    }
}

// The variant's file, its start position on the board, and who begins.
void LayVariant(GameState& State) {
    const auto Folder = formats::VariantFolder(State.Outside->ApplicationDirectory(), State.UseClassic == 0);
    const auto Read = formats::ReadVariantFile(Folder, State.VariantName, rules::RuleSetFields{});
    if (!Read.Document) {
        throw FileFault(State.VariantName + ".ini: " + Read.Error.Text());
    }
    State.LoadedRuleSet = Read.Document->Rules;
    State.HelpText = Read.Document->HelpText;
    State.HelpLink = Read.Document->HelpLink;
    State.QuickHelpLink = Read.Document->QuickHelpLink;
    State.RatingAllowed = 1;
    rules::LaySetup(State, Read.Document->Setup);
    DrawColourByLot(State);
    State.Side = State.RuleSet.BlackStarts == 1 ? rules::Black : rules::White;
}

void ClearRecord(GameState& State) {
    State.MoveCount = 0;
    State.PlayedMoves.Fill({});
    State.MaterialAt.Fill(0);
    State.TotalMaterialAt.Fill(0);
    State.MoveComment.Fill({});
    State.MoveScores.Fill(0);
    State.MoveDepths.Fill(0);
    State.MoveChoices.Fill(0);
    State.GameMoveRow.Fill({});
    State.MaterialAt[0] = base::Narrow<std::int16_t>(State.Material[0]);
    State.TotalMaterialAt[0] = State.TotalMaterial[0];
}

void ClearFlags(GameState& State) {
    State.GameStarted = 0;
    State.GameEnded = 0;
    State.GameChanged = 0;
    State.Thinking = 0;
    State.SearchActive = 0;
    State.ResultText.clear();
    State.RatingSummary.clear();
    State.StatusText.clear();
    State.OpeningName.clear();
    State.BookOpen = 1;
    State.BookMoveSource = 0;
    State.BookMoveDest = 0;
    State.HintSource = 0;
    State.HintDest = 0;
    State.ForcedAnnounced = 0;
    State.ScoreFlatCount = 0;
    State.LastDrawOffer = 0;
    State.DrawCode = 0;
    State.ThreeKingsStart = 0;
    State.TwoKingsStart = 0;
}

void ClearWindow(GameState& State) {
    view::SetStatus(State, view::SideMovesText(State.Side));
    State.StatusPanels[view::OpeningPanel].clear();
    State.Calculation.Text = view::NoCalculation;
    State.CommentBox.Text.clear();
    State.MoveBox.Text.clear();
    State.MoveBox.Enabled = true;
    State.Progress.Value = 0;
    for (view::ListFields* List : {&State.GameList, &State.ChoiceList, &State.RootList}) {
        List->Lines.clear();
        List->Selected = -1;
        List->Enabled = true;
        List->Visible = true;
    }
    State.RootList.Enabled = false;
    view::ApplyEvent(State, view::WindowEvent::GameBegins);
}

// The moves of the opening as texts; the position is left behind them.
std::vector<std::string> PlayByLot(GameState& State) {
    std::vector<std::string> Moves;
    while (static_cast<int>(Moves.size()) < State.RuleSet.NumberMoves) {
        GenerateForInput(State);
        const int Count = rules::MoveCountOfPly(State);
        if (Count == 0) {
            break;
        }
        const int Drawn = static_cast<int>(State.Outside->Random() * Count);
        const rules::MoveRecord Record = State.MoveStack[State.StackLimit[State.Ply] + std::min(Drawn, Count - 1)];
        const std::string Raw = base::ToUpper(RawTextOf(State, Record));
        if (!EnterMove(State, Raw)) {
            break;
        }
        StoreHalfMove(State, {State.MoveStack[State.PlayedIndex], State.EnteredMover});
        DrawRuleCheck(State);
        if (GameWouldEnd(State)) {
            break;
        }
        Moves.push_back(Raw);
    }
    return Moves;
}

} // namespace

void GenerateForInput(GameState& State) {
    rules::GenerateGameMoves(State);
}

void NamePlayers(GameState& State) {
    State.WhitePlayerName = State.PlayMode == view::ComputerComputer ? std::string(ComputerName) : State.PlayerName;
    State.BlackPlayerName = State.PlayMode == view::PlayerPlayer ? State.PlayerName : std::string(ComputerName);
}

void NamePersonToMove(GameState& State) {
    const bool WhiteMoves = State.Side == rules::White;
    State.WhitePlayerName = WhiteMoves ? State.PlayerName : std::string(ComputerName);
    State.BlackPlayerName = WhiteMoves ? std::string(ComputerName) : State.PlayerName;
}

void NewGame(GameState& State) {
    // 1. The position.
    State.Outside->SeedRandom();
    if (State.KeepBoard == 0) {
        LayVariant(State);
    }
    rules::ResetMoves(State);
    rules::RecountPosition(State);
    engine::InstallEngineRules(State);
    if (State.KeepBoard == 0) {
        FitToColour(State);
    }
    engine::ResetEngineGame(State);

    // 2. The record and the flags.
    State.RootMoves.Fill({engine::UnsetScore, 0, engine::UnsetScore});
    ClearRecord(State);
    ClearFlags(State);
    ClearInput(State);

    // 3. The window.
    view::ShowVariantTitle(State);
    ClearWindow(State);
    State.CaptureChar = State.ColonCapture == 1 ? ':' : 'x';
    if (State.RuleSet.PiecesOnBlack == 2) {
        State.NotationMode = rules::Notation::Algebraic;
        view::ChooseRadio(State, view::CommandId::mnu_Board_Notation_Chess);
    }
    NamePlayers(State);
    GenerateForInput(State);
    view::RefreshMoveChoices(State);
}

void StartNewGame(GameState& State, bool /*WithVariantDialog*/) {
    if (State.GameStarted != 0 && !State.Outside->Ask("Confirmation", "Quit current game?")) {
        return;
    }
    State.KeepBoard = 0;
    State.KeepBoardFromFile = 0;
    NewGame(State);
    view::DrawBoard(State, 0);
    DrawOpeningByLot(State);
    if (State.UseSound == 1) {
        State.Outside->PlaySound("sounds/roll.wav");
    }
}

void DrawOpeningByLot(GameState& State) {
    if (State.RuleSet.RemoveMen == 1) {
        ApplyRemoveMen(State);
        RecountAfterRemoval(State);
    }
    if (State.RuleSet.DoMoves == 1) {
        ApplyAutomaticMoves(State);
    }
}

void ApplyRemoveMen(GameState& State) {
    rules::RemoveMen(State, *State.Outside);
    State.KeepBoard = 1;
}

void RecountAfterRemoval(GameState& State) {
    State.StartBoard = State.Board;
    State.RuleSet.BlackStarts = State.Side == rules::Black ? 1 : 0;
    NewGame(State);
    State.RatingAllowed = 0;
    view::DrawBoard(State, 0);
}

void ApplyAutomaticMoves(GameState& State) {
    const rules::BoardCellsArray Start = State.Board;
    const std::int32_t Side = State.Side;
    const std::vector<std::string> Moves = PlayByLot(State);
    State.Board = Start;
    State.Side = Side;
    State.KeepBoard = 1;
    NewGame(State);
    for (const std::string& Move : Moves) {
        if (!EnterMove(State, Move)) {
            break;
        }
        RecordLoadedMove(State);
    }
    if (State.PlayMode == view::ComputerPlayer) {
        NamePersonToMove(State);
    }
    view::SetStatus(State, view::SideMovesText(State.Side));
    GenerateForInput(State);
    view::RefreshMoveChoices(State);
    view::DrawBoard(State, 0);
}

} // namespace zonterbrook::control
