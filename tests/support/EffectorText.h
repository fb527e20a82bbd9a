#pragma once

namespace support {

// The effector text of a command held back: every joint at rest (the foot joints print "-0").
inline constexpr char kHeldEffectorText[] =
    "(he1 0) (he2 0)(rae1 0) (rae2 0) (rae3 0) (rae4 0)(lae1 0) (lae2 0) (lae3 0) (lae4 0)"
    "(rle1 0) (rle2 0) (rle3 0) (rle4 0) (rle5 -0) (rle6 0)"
    "(lle1 0) (lle2 0) (lle3 0) (lle4 0) (lle5 -0) (lle6 0)";

}  // namespace support
