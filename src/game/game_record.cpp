// The record of a game.
#include "game/game_record.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::game {

namespace {

bool IsIrreversible(const HalfMove& Made) {
    return Made.Played.Record.Captures.Count != 0 || Made.Played.Record.Kind != 0;
}

} // namespace

std::string_view ResultText(Result How) {
    switch (How) {
    case Result::None:
        return "";
    case Result::FirstWins:
        return "1-0";
    case Result::SecondWins:
        return "0-1";
    case Result::Drawn:
        return "1/2-1/2";
    }
    return "";
}

void Append(GameRecord& Record, HalfMove Move) {
    Cut(Record, Record.Cursor);
    const std::int32_t Number = Record.Cursor + 1;
    if (Number > rules::MaxGameMoves) {
        base::FailIndex(Number, rules::MaxGameMoves + 1);
    }
    Move.Comment = std::move(Record.HalfMoves[Number].Comment);
    Record.HalfMoves[Number] = std::move(Move);
    Record.Cursor = Number;
    Record.Count = Number;
}

void Cut(GameRecord& Record, std::int32_t Kept) {
    if (Record.Count <= Kept) {
        return;
    }
    std::string Comment = std::move(Record.HalfMoves[Kept + 1].Comment);
    // The comment behind the last half-move belongs to the tail, too.
    for (std::int32_t Number = Kept + 1; Number <= Record.Count + 1; ++Number) {
        Record.HalfMoves[Number] = {};
    }
    Record.HalfMoves[Kept + 1].Comment = std::move(Comment);
    Record.Count = Kept;
    Record.Cursor = std::min(Record.Cursor, Kept);
}

std::int32_t QuietHalfMoves(const GameRecord& Record) {
    std::int32_t Number = Record.Cursor;
    while (Number > 0 && !IsIrreversible(Record.HalfMoves[Number])) {
        --Number;
    }
    return Record.Cursor - (Number - 1);
}

} // namespace zonterbrook::game
