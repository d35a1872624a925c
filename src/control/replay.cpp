// Replaying: finding the move that a file means, and playing it.
#include "control/replay.h"

#include "control/ending.h"
#include "control/log.h"
#include "control/record.h"
#include "control/turn_state.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "rules/moves.h"
#include "view/draw_board.h"

#include <algorithm>
#include <cstdlib>

namespace zonterbrook::control {

namespace {

using rules::MoveRecord;

// --- Which move is meant -------------------------------------------------------------------------------------------

/// The step from one cell towards another, 0 if they do not lie on one line, or are the same.
int StepTowards(int From, int To) {
    const int Rows = To / rules::RowWidth - From / rules::RowWidth;
    const int Columns = To % rules::RowWidth - From % rules::RowWidth;
    if ((Rows == 0 && Columns == 0) || (Rows != 0 && Columns != 0 && std::abs(Rows) != std::abs(Columns))) {
        return 0;
    }
    const auto Sign = [](int Value) { return Value > 0 ? 1 : Value < 0 ? -1 : 0; };
    return Sign(Rows) * rules::RowWidth + Sign(Columns);
}

bool Takes(const MoveRecord& Move, int Cell) {
    return std::any_of(Move.Captures.Groups, Move.Captures.Groups + Move.Captures.Count,
                       [Cell](const rules::CaptureGroup& Group) { return Group.Cell == Cell; });
}

/// Whether a capture that lands on these squares takes what the move takes.
bool LandsOn(const MoveRecord& Move, const std::vector<std::int32_t>& Landings) {
    int Taken = 0;
    int From = Move.Source;
    const auto Walk = [&](int To) {
        const int Step = StepTowards(From, To);
        for (int Cell = From + Step; Step != 0 && Cell != To; Cell += Step) {
            Taken += Takes(Move, Cell) ? 1 : 0;
        }
        From = To;
        return Step != 0;
    };
    return std::ranges::all_of(Landings, Walk) && Walk(Move.Dest) && Taken == Move.Captures.Count;
}

/// Whether a capture fits the squares in between that a file names: jumped ones, or where it lands.
bool FitsBetween(const MoveRecord& Move, const std::vector<std::int32_t>& Between) {
    return std::ranges::all_of(Between, [&](int Cell) { return Takes(Move, Cell); }) || LandsOn(Move, Between);
}

bool FitsSign(const MoveRecord& Move, FileMove::Sign Joint) {
    return Joint == FileMove::Sign::None || (Joint == FileMove::Sign::Capture) == (Move.Captures.Count != 0);
}

/// The moves of the ply that may be meant: those with these ends; among them those that the sign fits, if there are
/// any, and among these those that the squares in between fit.
std::vector<int> Candidates(GameState& State, const FileMove& Wanted) {
    std::vector<int> Found;
    rules::GenerateGameMoves(State);
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        const MoveRecord& Move = State.MoveStack[I];
        if (Move.Dest == Wanted.Dest && (Move.Source == Wanted.Source || Move.Source == rules::FromHand)) {
            Found.push_back(I);
        }
    }
    const auto Prefer = [&](const auto& Fits) {
        if (std::ranges::any_of(Found, [&](int I) { return Fits(State.MoveStack[I]); })) {
            std::erase_if(Found, [&](int I) { return !Fits(State.MoveStack[I]); });
        }
    };
    if (Found.size() > 1) {
        Prefer([&](const MoveRecord& Move) { return FitsSign(Move, Wanted.Joint); });
        Prefer([&](const MoveRecord& Move) { return FitsBetween(Move, Wanted.Between); });
    }
    return Found;
}

/// The move on the stack that is meant, -1 if there is none.
int FindMeant(GameState& State, const FileMove& Wanted) {
    const std::vector<int> Found = Candidates(State, Wanted);
    return static_cast<std::size_t>(Wanted.Choice) < Found.size() ? Found[static_cast<std::size_t>(Wanted.Choice)] : -1;
}

// --- Trying a whole game -------------------------------------------------------------------------------------------

/// The moves of a file made on the board without a record, so that another way can be tried where one leads nowhere.
class Trial {
public:
    Trial(GameState& InState, std::vector<FileMove>& InMoves) : State(InState), Moves(InMoves) {}

    /// Makes moves until one is not legal, each by its `Choice`.
    void GoOn() {
        while (Made.size() < Moves.size()) {
            FileMove& Next = Moves[Made.size()];
            const std::vector<int> Found = Candidates(State, Next);
            if (static_cast<std::size_t>(Next.Choice) >= Found.size() || State.GameMoves >= rules::MaxGameMoves) {
                return;
            }
            const int Move = Found[static_cast<std::size_t>(Next.Choice)];
            Made.push_back({rules::RememberMove(State, Move), State.Material[State.Ply], State.TotalMaterial[State.Ply],
                            static_cast<int>(Found.size())});
            rules::PlayMove(State, Move);
        }
    }

    /// Goes back to the last move that has another way left, and takes that; false if none has.
    bool TryNextWay() {
        while (!Made.empty()) {
            const Step Last = Made.back();
            TakeBack();
            FileMove& Move = Moves[Made.size()];
            if (++Move.Choice < Last.Ways) {
                return true;
            }
            Move.Choice = 0;
        }
        return false;
    }

    void TakeBackAll() {
        while (!Made.empty()) {
            TakeBack();
        }
    }

    std::size_t Length() const { return Made.size(); }

private:
    struct Step {
        rules::PlayedMove Move;
        std::int32_t Material;
        std::int32_t TotalMaterial;
        int Ways;
    };

    void TakeBack() {
        const Step& Last = Made.back();
        rules::StepBack(State, Last.Move, Last.Material, Last.TotalMaterial);
        Made.pop_back();
    }

    GameState& State;
    std::vector<FileMove>& Moves;
    std::vector<Step> Made;
};

// --- The squares that tell captures apart --------------------------------------------------------------------------

/// Finds squares to land on between the pieces of a capture, in their order.
class LandingSquares {
public:
    explicit LandingSquares(const MoveRecord& InMove) : Move(InMove) {}

    bool Find(int From, int Index) {
        const int Taken = Move.Captures.Groups[Index].Cell;
        const int Step = StepTowards(From, Taken);
        if (Step == 0) {
            return false;
        }
        const bool Last = Index + 1 == Move.Captures.Count;
        for (int Cell = Taken + Step; rules::IsOnBoard(Cell) && !Takes(Move, Cell); Cell += Step) {
            if (Last) {
                if (Cell == Move.Dest) {
                    return true;
                }
                continue;
            }
            Found.push_back(Cell);
            if (Find(Cell, Index + 1)) {
                return true;
            }
            Found.pop_back();
        }
        return false;
    }

    std::vector<std::int32_t> Found;

private:
    const MoveRecord& Move;
};

} // namespace

bool IsLegal(GameState& State, const FileMove& Move) {
    return FindMeant(State, Move) >= 0;
}

void ChooseCaptures(GameState& State, std::vector<FileMove>& Moves) {
    // Games with a few captures that can be read in several ways are common, such that need many attempts are not.
    constexpr int MostAttempts = 200;
    Trial Game(State, Moves);
    Game.GoOn();
    std::size_t Furthest = Game.Length();
    std::vector<FileMove> Best = Moves;
    for (int Attempt = 0; Attempt < MostAttempts && Furthest < Moves.size() && Game.TryNextWay(); ++Attempt) {
        Game.GoOn();
        if (Game.Length() > Furthest) {
            Furthest = Game.Length();
            Best = Moves;
        }
    }
    Game.TakeBackAll();
    Moves = std::move(Best);
    rules::GenerateGameMoves(State);
}

ReplayReport ReplayMoves(GameState& State, const std::vector<FileMove>& Moves, bool ShowsProgress) {
    constexpr int MovesPerPicture = 8;
    EnterTurn(State, TurnState::Replaying);
    State.Progress = {0, std::max(1.0, static_cast<double>(Moves.size()))};
    ReplayReport Report;
    for (const FileMove& Wanted : Moves) {
        const int Move = State.Record.IsFull() ? -1 : FindMeant(State, Wanted);
        if (Move < 0) {
            Report.Whole = false;
            break;
        }
        State.Record.HalfMoves[State.Record.Cursor + 1].Comment = Wanted.Comment;
        game::HalfMove Made = NewHalfMove(State, Move);
        rules::PlayMove(State, Move);
        RecordMove(State, std::move(Made), game::MadeBy::File);
        LogMove(State);
        DrawRuleCheck(State);
        ++Report.Played;
        if (ShowsProgress) {
            State.Progress.Value = Report.Played;
            if (Report.Played % MovesPerPicture == 0) {
                view::DrawBoard(State, 0);
                State.Outside().Refresh();
            }
        }
    }
    State.Progress.Value = 0;
    return Report;
}

std::vector<std::int32_t> SquaresBetween(const MoveRecord& Capture) {
    LandingSquares Landings(Capture);
    if (Landings.Find(Capture.Source, 0)) {
        return Landings.Found;
    }
    std::vector<std::int32_t> Taken;
    Taken.reserve(Capture.Captures.Count);
    for (int I = 0; I < Capture.Captures.Count; ++I) {
        Taken.push_back(Capture.Captures.Groups[I].Cell);
    }
    return Taken;
}

} // namespace zonterbrook::control
