// The table of rule keys, and reading and writing rules by key.
#include "rules/rule_set.h"

#include "base/checked_number.h"
#include "base/text.h"
#include "rules/square_names.h"

#include <algorithm>

namespace zonterbrook::rules {

namespace {

constexpr RuleKey Byte(std::string_view Name, std::uint8_t RuleSetFields::*Field) {
    return {Name, Field, nullptr};
}
constexpr RuleKey Wide(std::string_view Name, std::int32_t RuleSetFields::*Field) {
    return {Name, nullptr, Field};
}

using R = RuleSetFields;
constexpr RuleKey Keys[] = {
    Byte("MulJumps", &R::MulJumps),
    Byte("MaxCapMove", &R::MaxCapMove),
    Byte("BlackStarts", &R::BlackStarts),
    Byte("PiecesOnBlack", &R::PiecesOnBlack),
    Wide("AntiMode", &R::AntiMode),
    Byte("WinAtPromo", &R::WinAtPromo),
    Byte("MaxCapMoveKings", &R::MaxCapMoveKings),
    Byte("ManCapKing", &R::ManCapKing),
    Byte("KingCapMove", &R::KingCapMove),
    Byte("ManContJump", &R::ManContJump),
    Byte("LongKings", &R::LongKings),
    Byte("RemovePieces", &R::RemovePieces),
    Byte("KingFirst", &R::KingFirst),
    Byte("ManCapMoveKing", &R::ManCapMoveKing),
    Byte("KingWin", &R::KingWin),
    Byte("MaxCapMoveK", &R::MaxCapMoveK),
    Byte("CapRequired", &R::CapRequired),
    Byte("NoLegalDraw", &R::NoLegalDraw),
    Byte("RemoveMen", &R::RemoveMen),
    Byte("NumberMen", &R::NumberMen),
    Byte("DoMoves", &R::DoMoves),
    Byte("NumberMoves", &R::NumberMoves),
    Byte("LastCap", &R::LastCap),
    Byte("ManKing", &R::ManKing),
    Byte("KingMan", &R::KingMan),
    Byte("ChangeSide", &R::ChangeSide),
    Byte("ThreeKings", &R::ThreeKings),
    Byte("NumberKings", &R::NumberKings),
    Byte("CapReverse", &R::CapReverse),
    Byte("RndColor", &R::RndColor),
    Wide("JumpFriend", &R::JumpFriend),
    Wide("NumberFriends", &R::NumberFriends),
    Wide("TwoKings", &R::TwoKings),
    Wide("NumberKings2", &R::NumberKings2),
    Wide("NumberPieces", &R::NumberPieces),
    Wide("canContract", &R::canContract),
    Wide("ContractNumber", &R::ContractNumber),
    Wide("ContractW1", &R::ContractW1),
    Wide("ContractW2", &R::ContractW2),
    Wide("ContractB1", &R::ContractB1),
    Wide("ContractB2", &R::ContractB2),
    Byte("ManContJumpCrowned", &R::ManContJumpCrowned),
};

/// The sixteen entries of a promotion text.
void ReadPromotionColumn(PromotionTable& Table, int Column, std::string_view Text) {
    for (int Row = 0; Row < PromotionRows; ++Row) {
        const auto Start = static_cast<std::size_t>(Row) * 2;
        const int Cell = Start < Text.size() ? AlgebraicCell(Text.substr(Start, 2)) : 0;
        Table[Row][Column] = Cell == 0 ? NoSquare : Cell;
    }
}

/// The text that reads back to this column. A row without a square in front of a used one is written as "--".
std::string PromotionText(const PromotionTable& Table, int Column) {
    int Used = 0;
    for (int Row = 0; Row < PromotionRows; ++Row) {
        if (Table[Row][Column] != NoSquare) {
            Used = Row + 1;
        }
    }
    std::string Text;
    for (int Row = 0; Row < Used; ++Row) {
        const int Cell = Table[Row][Column];
        Text += Cell == NoSquare ? "--" : base::ToUpper(AlgebraicName(Cell));
    }
    return Text;
}

} // namespace

void RuleKey::Write(RuleSetFields& Rules, std::int64_t Value) const {
    if (Byte != nullptr) {
        Rules.*Byte = base::Narrow<std::uint8_t>(Value);
    } else {
        Rules.*Wide = base::Narrow<std::int32_t>(Value);
    }
}

std::span<const RuleKey> RuleKeys() {
    return Keys;
}

const RuleKey* FindRuleKey(std::string_view Name) {
    const auto* Found = std::ranges::find(Keys, Name, &RuleKey::Name);
    return Found == std::ranges::end(Keys) ? nullptr : Found;
}

std::string PromotionNames(const PromotionTable& Table, int Column) {
    std::string Names;
    for (const auto& Row : Table) {
        Names += Row[Column] == NoSquare ? std::string() : base::ToUpper(AlgebraicName(Row[Column]));
    }
    return Names;
}

bool WriteTextRule(RuleSetFields& Rules, std::string_view Key, std::string_view Value) {
    for (int Index = 0; Index < 4; ++Index) {
        if (Key == MovementKeys[Index]) {
            Rules.MovementStrings[Index].Assign(Value);
            return true;
        }
    }
    for (int Column = 0; Column < 2; ++Column) {
        if (Key == PromotionKeys[Column]) {
            ReadPromotionColumn(Rules.PromotionSquares, Column, Value);
            return true;
        }
    }
    return false;
}

std::optional<std::string> RuleText(const RuleSetFields& Rules, std::string_view Key) {
    if (const RuleKey* Row = FindRuleKey(Key)) {
        return std::to_string(Row->Read(Rules));
    }
    for (int Index = 0; Index < 4; ++Index) {
        if (Key == MovementKeys[Index]) {
            return std::string(Rules.MovementStrings[Index].View());
        }
    }
    for (int Column = 0; Column < 2; ++Column) {
        if (Key == PromotionKeys[Column]) {
            return PromotionText(Rules.PromotionSquares, Column);
        }
    }
    return std::nullopt;
}

bool WriteRule(RuleSetFields& Rules, std::string_view Key, std::string_view Value) {
    if (const RuleKey* Row = FindRuleKey(Key)) {
        Row->Write(Rules, base::LenientNumber(Value));
        return true;
    }
    return WriteTextRule(Rules, Key, Value);
}

} // namespace zonterbrook::rules
