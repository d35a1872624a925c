// The player's rating, draw offers and resignation.
//
// Reads the rows of the record and who made each half-move; writes the rating, its summary and, where the game is given
// up or shared, its end.
#include "control/rating.h"

#include "base/checked_number.h"
#include "base/text.h"
#include "control/end_of_game.h"
#include "view/move_lists.h"

#include <cmath>

namespace zonterbrook::control {

namespace {

constexpr int LastRow = GameRows - 1;
constexpr int UsualFactor = 30;
constexpr int MasterRating = 2000;
constexpr int GrandmasterRating = 2400;
constexpr int GrandmasterFactor = 10;
constexpr int LowestComputer = 700;
constexpr int PerLevel = 100;
// Two men ahead, in hundredths of a man.
constexpr int OnceAhead = 199;

// Who made the first half-move of a column that was made here, and not read from a file.
std::string FirstMover(const GameState& State, std::string GameMoveRowFields::*Column) {
    for (int Row = 1; Row <= LastRow; ++Row) {
        if (State.GameMoveRow[Row].*Column != MovedByFile) {
            return State.GameMoveRow[Row].*Column;
        }
    }
    return {};
}

struct LevelFigures {
    std::int64_t Sum = 0;
    int Count = 0;
};

// Sums the levels of the computer's half-moves, and finds out whether the sides changed hands.
LevelFigures WalkRecord(GameState& State) {
    const std::string First1 = FirstMover(State, &GameMoveRowFields::FirstSource);
    const std::string First2 = FirstMover(State, &GameMoveRowFields::SecondSource);
    LevelFigures Levels;
    if (First1 != MovedByComputer && First2 != MovedByComputer) {
        State.RatingAllowed = 0;
    }
    for (int Row = 1; 2 * Row - 1 <= State.GameMoves && Row <= LastRow; ++Row) {
        const GameMoveRowFields& Fields = State.GameMoveRow[Row];
        const struct {
            int HalfMove;
            const std::string& Code;
            const std::string& First;
        } Columns[] = {{2 * Row - 1, Fields.FirstSource, First1}, {2 * Row, Fields.SecondSource, First2}};
        for (const auto& Column : Columns) {
            if (Column.HalfMove > State.GameMoves) {
                break; // taken back
            }
            if (Column.Code != MovedByFile && Column.Code != Column.First) {
                if (Column.Code.empty()) {
                    break;
                }
                State.RatingAllowed = 0;
                return Levels;
            }
            // The code asked is the first column's for both. Wanted.
            if (Column.First == MovedByComputer && Fields.FirstSource != MovedByFile) {
                Levels.Sum += base::LenientNumber(Fields.Level);
                ++Levels.Count;
            }
        }
    }
    return Levels;
}

int RatingFactor(int Rating) {
    if (Rating < MasterRating) {
        return UsualFactor;
    }
    if (Rating > GrandmasterRating) {
        return GrandmasterFactor;
    }
    return static_cast<int>(std::nearbyint(130.0 - Rating / 20.0));
}

} // namespace

void UpdateRating(GameState& State, double Score) {
    State.RatingSummary.clear();
    if (State.UseRating == 0) {
        return;
    }
    const LevelFigures Levels = WalkRecord(State);
    if (State.RatingAllowed == 0) {
        return;
    }
    if (Score == 1) {
        State.RatingSummary = GameCompliment(State);
    }
    const double Average = Levels.Count == 0 ? 1 : static_cast<double>(Levels.Sum) / static_cast<double>(Levels.Count);
    const int ComputerRating = static_cast<int>(std::floor(Average * PerLevel)) + LowestComputer;
    const int Before = State.Rating;
    const double Expected = 1 / (1 + std::pow(10.0, -(Before - ComputerRating) / 400.0));
    // The rounding mode in force takes halves to the even number.
    const double After = std::nearbyint(Before + RatingFactor(Before) * (Score - Expected));
    State.Rating = base::Narrow<std::int16_t>(static_cast<std::int64_t>(After));
    State.RatingSummary += "\n\nYour previous rating was" + view::SignedText(Before) +
                           "\nThe computers' rating in this game was" + view::SignedText(ComputerRating) +
                           "\nYour new rating is" + view::SignedText(State.Rating) + "\n";
}

int PlayerWon(const GameState& State, std::string_view Colour) {
    return (Colour == "black" ? State.BlackPlayerName : State.WhitePlayerName) == State.PlayerName ? 1 : 0;
}

std::string GameCompliment(const GameState& State) {
    for (int HalfMove = State.GameMoves % 2 == 0 ? 1 : 2; HalfMove <= State.GameMoves; HalfMove += 2) {
        if (State.MoveDepths[HalfMove] > 1 && State.MoveScores[HalfMove] > OnceAhead) {
            return "  Good game";
        }
    }
    return "  Great game";
}

void OfferDraw(GameState& State) {
    if (State.GameStarted != 1 || State.BestScore >= 1) {
        State.Outside->Message("Draw Offer", "Offer rejected... Play on!", Icon::Exclamation);
        return;
    }
    UpdateRating(State, 0.5);
    Congratulate(State, "OK... It's a draw!");
    SetResultText(State, DrawnResult);
    CloseGame(State, "It's a draw!");
}

void Resign(GameState& State) {
    UpdateRating(State, 0);
    Congratulate(State, "OK... Computer wins!");
    State.GameEnded = 1;
    SetResultText(State, DecisiveResult);
    CloseGame(State, "Computer wins!");
}

void Congratulate(GameState& State, std::string_view Text) {
    State.Outside->Message("Congratulations", std::string(Text) + State.RatingSummary, Icon::Exclamation);
}

void CloseGame(GameState& State, std::string_view Status) {
    State.GameEnded = 1;
    State.ChoiceList.Enabled = false;
    view::ApplyEvent(State, view::WindowEvent::GameEnds);
    view::SetStatus(State, Status);
}

void rating_Click(GameState& State) {
    State.Outside->Message("Rating", "Your currrent rating is" + view::SignedText(State.Rating), Icon::Exclamation);
}

} // namespace zonterbrook::control
