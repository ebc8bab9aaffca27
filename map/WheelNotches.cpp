#include "map/WheelNotches.h"

namespace {

constexpr int anglePerNotch = 120;

} // namespace

int WheelNotches::take(int angle) {
    if ((rest < 0) != (angle < 0)) {
        rest = 0;
    }
    // Apart from the rest, so that no sum can overflow.
    int notches = angle / anglePerNotch;
    rest += angle % anglePerNotch;
    notches += rest / anglePerNotch;
    rest %= anglePerNotch;
    return notches;
}
