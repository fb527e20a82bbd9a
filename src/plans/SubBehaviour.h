#pragma once

// The names of the plans' sub-behaviours, kept in the plans' class-wide `name` (empty before the
// first one is chosen) and written to the "Main" log.
namespace subbehaviour {

inline constexpr char kDash[] = "dash";
inline constexpr char kKick[] = "kick";
inline constexpr char kStandUp[] = "standup";
inline constexpr char kSideWalk[] = "sideWalk";
inline constexpr char kDive[] = "div";

}  // namespace subbehaviour
