#pragma once

#include <string>

#include "math/Point.h"

// Where a player walks to kick the ball at a target (the opponents' goal centre), and whether it
// stands where its kick sends the ball there. The kick is the left foot's, so the kick line, the
// line the robot's middle walks along, runs parallel to the line from the ball to the target,
// `footOffset` to the right of the ball. The approach never leads through the ball: a robot that
// is not behind the ball first walks round it at `clearance`, then to the start of the run-up on
// the kick line, then along the line through the ball towards the target, so that it faces the
// target when it reaches the ball. All positions in the field frame, metres.
class KickApproach {
public:
    struct Parameters {
        float approachDistance = 0.6F;  // metres behind the ball where the run-up starts
        float clearance = 0.7F;         // metres kept from the ball while walking round it
        float lineTolerance = 0.25F;    // metres off the kick line that still count as on it
        float footOffset = 0.055F;      // metres the kick line lies to the right of the ball
    };

    enum class Phase {
        Round,   // not behind the ball: to a point beside it, `clearance` away
        Behind,  // behind the ball, off the kick line: to the start of the run-up
        RunUp    // behind the ball on the kick line: along the line, through the ball
    };

    struct Target {
        Phase phase;
        math::Point point;
    };

    // The walking target for a robot at `self`, the ball at `ball`, kicking at `goal`.
    static Target target(math::Point self, math::Point ball, math::Point goal,
                         const Parameters& parameters);

    // The kick switch: the ball lies at most `maxDistance` metres from the robot, ahead of it and
    // at most `maxBearing` degrees off the direction `direction` (degrees, field frame), and the
    // body heading `heading` (degrees) is at most `maxHeading` degrees off that direction.
    struct Switch {
        float maxDistance = 0.35F;  // metres
        float maxBearing = 30.0F;   // degrees
        float maxHeading = 45.0F;   // degrees
    };
    static bool isKickPosition(math::Point self, float heading, math::Point ball, float direction,
                               const Switch& limits);

    // The last few centimetres: once the switch fires, the robot walks on until the ball lies
    // at most `ballAhead` ahead of its centre, where the kick was made to meet it.
    struct Footing {
        float ballAhead = 0.2F;  // metres ahead of the robot's centre, at most
        bool watchBall = true;   // the head watches the ball in the last metre
    };

    // Point `p` seen from `origin` in a frame whose x axis points along `heading` (degrees, field
    // frame): x how far ahead, y how far to the left (metres).
    static math::Point inFrame(math::Point origin, float heading, math::Point p);

    // Group `group` of configuration `configuration`: keys ApproachDistance, Clearance,
    // LineTolerance and FootOffset (metres). Missing keys and values that are not positive
    // (FootOffset may be 0 or negative) are configuration errors naming the key.
    static Parameters readParameters(const std::string& configuration, const std::string& group);
    // Group `group` (as "Kick"): keys MaxBallDistance, MaxBallBearing, MaxHeadingError.
    static Switch readSwitch(const std::string& configuration, const std::string& group);
    // Group `group` (as "Footing"): keys BallAhead (metres, positive) and WatchBall (true or
    // false). A configuration without the group kicks as soon as the switch
    // fires: `hasFooting` says which.
    static bool hasFooting(const std::string& configuration, const std::string& group);
    static Footing readFooting(const std::string& configuration, const std::string& group);

    static const char* phaseName(Phase phase);

private:
    static Parameters parseParameters(const std::string& configuration, const std::string& group);
    static Switch parseSwitch(const std::string& configuration, const std::string& group);
    static Footing parseFooting(const std::string& configuration, const std::string& group);
};
