// The table of rule keys, and reading and writing rules by key.
#include "rules/rule_set.h"

#include "base/checked_number.h"
#include "base/text.h"
#include "rules/square_names.h"

#include <algorithm>

namespace zonterbrook::rules {

namespace {

constexpr RuleKey Narrow(std::string_view Name, std::uint8_t RuleSetFields::*Field) {
    return {Name, Field, nullptr};
}
constexpr RuleKey Wide(std::string_view Name, std::int32_t RuleSetFields::*Field) {
    return {Name, nullptr, Field};
}

using R = RuleSetFields;
constexpr RuleKey Keys[] = {
    Narrow("MulJumps", &R::MulJumps),
    Narrow("MaxCapMove", &R::MaxCapMove),
    Narrow("BlackStarts", &R::BlackStarts),
    Narrow("PiecesOnBlack", &R::PiecesOnBlack),
    Wide("AntiMode", &R::AntiMode),
    Narrow("WinAtPromo", &R::WinAtPromo),
    Narrow("MaxCapMoveKings", &R::MaxCapMoveKings),
    Narrow("ManCapKing", &R::ManCapKing),
    Narrow("KingCapMove", &R::KingCapMove),
    Narrow("ManContJump", &R::ManContJump),
    Narrow("LongKings", &R::LongKings),
    Narrow("ManContJumpCrowned", &R::ManContJumpCrowned),
    Narrow("RemovePieces", &R::RemovePieces),
    Narrow("NoLegalDraw", &R::NoLegalDraw),
    Narrow("RemoveMen", &R::RemoveMen),
    Wide("TwoKings", &R::TwoKings),
    Narrow("NumberMen", &R::NumberMen),
    Narrow("DoMoves", &R::DoMoves),
    Narrow("NumberMoves", &R::NumberMoves),
    Narrow("LastCap", &R::LastCap),
    Narrow("ManKing", &R::ManKing),
    Narrow("KingMan", &R::KingMan),
    Narrow("ChangeSide", &R::ChangeSide),
    Narrow("KingFirst", &R::KingFirst),
    Narrow("ManCapMoveKing", &R::ManCapMoveKing),
    Narrow("KingWin", &R::KingWin),
    Narrow("ThreeKings", &R::ThreeKings),
    Narrow("NumberKings", &R::NumberKings),
    Wide("NumberKings2", &R::NumberKings2),
    Wide("NumberPieces", &R::NumberPieces),
    Wide("canContract", &R::canContract),
    Wide("ContractNumber", &R::ContractNumber),
    Wide("ContractW1", &R::ContractW1),
    Wide("ContractW2", &R::ContractW2),
    Wide("ContractB1", &R::ContractB1),
    Wide("ContractB2", &R::ContractB2),
    Narrow("MaxCapMoveK", &R::MaxCapMoveK),
    Narrow("CapRequired", &R::CapRequired),
    Narrow("CapReverse", &R::CapReverse),
    Wide("JumpFriend", &R::JumpFriend),
    Wide("NumberFriends", &R::NumberFriends),
    Narrow("RndColor", &R::RndColor),
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
    if (Narrow != nullptr) {
        Rules.*Narrow = base::Narrow<std::uint8_t>(Value);
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
