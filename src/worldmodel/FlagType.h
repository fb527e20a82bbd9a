#pragma once

/// The field's eight landmarks: corner flags (F) and goal posts (G). The digit 1 lies at
/// positive y, 2 at negative y; the letter L at negative x, R at positive x. The enumerator
/// names are also the names the server uses for them in vision.
enum FlagType { F1L = 0, F1R = 1, F2L = 2, F2R = 3, G1L = 4, G1R = 5, G2L = 6, G2R = 7 };
