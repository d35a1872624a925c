// A world in which nothing is shown.
#include "control/still_world.h"

#include <array>
#include <chrono>
#include <ctime>

namespace zonterbrook::control {

double StillWorld::Seconds() {
    using namespace std::chrono;
    constexpr double Day = 86400;
    const double Now = duration<double>(steady_clock::now().time_since_epoch()).count();
    return Now - Day * static_cast<double>(static_cast<std::int64_t>(Now / Day));
}

double StillWorld::Random() {
    return Chance.Next();
}

void StillWorld::TakeTurn() {
    if (OnTurn) {
        OnTurn();
    }
}

std::string StillWorld::Date() {
    const std::time_t Now = std::time(nullptr);
    std::array<char, 16> Text{};
    const std::size_t Length = std::strftime(Text.data(), Text.size(), "%m/%d/%Y", std::localtime(&Now));
    return {Text.data(), Length};
}

void StillWorld::Message(std::string_view Title, std::string_view Text, Icon /*Sign*/) {
    Said.append("message ").append(Title).append("|");
    for (const char C : Text) {
        Said += C == '\n' ? std::string("\\n") : std::string(1, C);
    }
    Said += '\n';
}

} // namespace zonterbrook::control
