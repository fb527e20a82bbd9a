#pragma once

/// Which side of the body a limb is on: 0 for the head, 1 left, 2 right.
using Side = int;

inline constexpr Side sideHead = 0;
inline constexpr Side sideLeft = 1;
inline constexpr Side sideRight = 2;

/// The prefix of a limb's joint names: "r" for the right side, "l" for every other value.
inline const char* sidePrefix(Side side) {
    return side == sideRight ? "r" : "l";
}
