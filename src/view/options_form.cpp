// The boxes of the options dialog.
#include "view/options_form.h"

#include "base/text.h"

#include <algorithm>

namespace zonterbrook::view {

namespace {

using F = OptionsForm;
using enum OptionsTab;

bool WithBook(const F& Form) {
    return Form.UseBook;
}

bool WithChosenOpening(const F& Form) {
    return Form.UseBook && Form.ChooseOpening;
}

constexpr OptionTick Ticks[] = {
    {"Check3", Board, " Misc ", "Show available moves", &F::ShowAvailableMoves, nullptr,
     "The pieces that can move are boxed, and the squares that the picked one can go to."},
    {"Check5", Board, " Misc ", "Notation in capital letters", &F::CapitalNotation, nullptr,
     "Squares are named in capital letters: A1 in place of a1."},
    {"Check7", Engine, " Search ", "Extended search", &F::ExtendedSearch, nullptr,
     "Lines in which much is being captured are looked into further than the others."},
    {"Check13", Engine, " Search ", "Brute force", &F::BruteForce, nullptr,
     "No line is left out for promising little: safer, and slower."},
    {"Check4", Engine, " Draw ", "Use Chess drawing rules (position repetition and 50 moves rule)", &F::ChessDrawRules,
     nullptr,
     "A position that comes for the third time is a draw, and so are so many moves without a capture or promotion."},
    {"Check8", Engine, " Draw ", "Ask for draw if computer thinks it's a draw", &F::AskForDraw, nullptr,
     "The computer offers a draw when it sees no way to win."},
    {"Check10", Engine, " Draw ", "King versus King", &F::KingVersusKing, nullptr,
     "One king against one king is a draw at once."},
    {"Check9", Misc, " Book ", "Opening book", &F::UseBook, nullptr,
     "The computer plays its first moves from a book where the game has one."},
    {"Check12", Misc, " Book ", "International Checkers book for other variants", &F::BookFallback, WithBook,
     "A variant that has no book of its own is played by the one of International Checkers."},
    {"Check14", Misc, " Book ", "Choose opening", &F::ChooseOpening, WithBook,
     "A new game begins with an opening that you choose from a list."},
    {"Check15", Misc, " Book ", "Random", &F::RandomOpening, WithChosenOpening, "The opening is drawn by lot."},
    {"Check16", Misc, " Misc ", "Use Rating (", &F::UseRating, nullptr,
     "Your games against the computer count for your rating."},
    {"Check11", Misc, " Misc ", "Save PDN games in algebraic notation", &F::SaveAlgebraic, nullptr,
     "PDN files get letters and digits for squares in place of numbers."},
    {"Check6", Misc, " Misc ", "Ask confirmation on exit", &F::ConfirmExit, nullptr,
     "The program asks before it closes."},
    {"Check17", Misc, " Misc ", "Auto Save", &F::AutoSave, nullptr,
     "The game of the last run is on the board when the program starts."},
    {"Check18", Misc, " Misc ", "Use Sound", &F::UseSound, nullptr, "Moves and new games are heard."},
    {"Check19", Misc, " Misc ", "Use Touch-Move rule", &F::TouchMove, nullptr,
     "A piece that has been picked up must be moved."},
};

// The order of the codes is that of the settings file.
constexpr MoveLimitRow Limits[] = {
    {"Option2", "16", 2}, {"Option3", "20", 3}, {"Option4", "32", 0}, {"Option5", "40", 4}, {"Option6", "50", 1}};

} // namespace

std::span<const OptionTick> OptionTicks() {
    return Ticks;
}

std::span<const MoveLimitRow> MoveLimitRows() {
    return Limits;
}

std::int32_t ReadWithin(std::string_view Typed, std::int32_t Lowest, std::int32_t Highest) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(base::LenientNumber(Typed), Lowest, Highest));
}

} // namespace zonterbrook::view
