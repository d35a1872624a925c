// A world in which nothing happens by itself: the clock stands unless a test turns it, chance follows a fixed row.
#pragma once

#include "base/outside_world.h"

namespace zonterbrook::tests {

class QuietWorld : public base::OutsideWorld {
public:
    double Clock = 0;

    double Seconds() override { return Clock; }
    double Random() override { return 0.5; }

protected:
    void TakeTurn() override {}
};

} // namespace zonterbrook::tests
