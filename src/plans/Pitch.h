#pragma once

#include <string>

#include "math/Point.h"

class WorldModel;

// The field as a team sees it. The world model works in the field frame fixed by the landmarks,
// whichever half the team plays on; a team's own settings (beam positions, lines) are written for
// the left half, as the server reads beams: the right team's are turned by 180 degrees about the
// centre spot (x and y negated). Sizes come from "WorldModelParameters" / "Field".
class Pitch {
public:
    // +1 when the team plays on the left (or its side is not yet known), -1 on the right: the
    // sign of x towards the opponents' goal.
    static float attackSign(const WorldModel& wm);
    // The centres of the opponents' and the own goal line, field frame (metres).
    static math::Point opponentGoal(const WorldModel& wm);
    static math::Point ownGoal(const WorldModel& wm);
    // A point of the team's own frame (left half, metres) in the field frame.
    static math::Point toField(const WorldModel& wm, float x, float y);
    // `p` moved inside the field, at least `margin` metres from the touch and goal lines.
    static math::Point inside(math::Point p, float margin);

    // Half the field's length and width, the goal's width (metres).
    static float halfLength();
    static float halfWidth();
    static float goalWidth();

    // The side-step target to hand to the side walk for reaching `y`: the side walk steps by the
    // field's y as seen facing +x, so for a robot facing the other way (body direction more than
    // 90 degrees off +x) the target is mirrored about the robot's own y.
    static float sideStepY(const WorldModel& wm, float y);

    // `p` at the height of the robot's own position estimate: a walking target whose height
    // matches the estimate's, so that the walk's distance is the distance on the field (the
    // localisation's height is often metres off).
    static math::Point level(const WorldModel& wm, math::Point p);

    // Word `word` of "Initialize" / "Beam" of the role's parameter file (the beam's x is the
    // role's line, in the team's own frame; metres).
    static float beamWord(const std::string& roleFile, int word);
};
