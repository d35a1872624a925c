// Tables of cases: a suite over a fixture and a row, and the row's name as the test's.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace zonterbrook::tests {

/// The fixture of a suite that runs once for each row: `using Drops = RowsOf<Input, DropCase>;`.
template <typename Fixture, typename Row>
class RowsOf : public Fixture, public testing::WithParamInterface<Row> {};

/// Names a test after `Name` of its row, which says the fault that it would catch.
inline constexpr auto RowName = [](const auto& Info) { return std::string(Info.param.Name); };

/// Names a test after its row, a text, without what is neither letter nor digit.
inline constexpr auto TextName = [](const auto& Info) {
    std::string Name = Info.param;
    std::erase_if(Name, [](char C) { return std::isalnum(static_cast<unsigned char>(C)) == 0; });
    return Name;
};

} // namespace zonterbrook::tests
