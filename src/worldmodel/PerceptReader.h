#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "body/JointNames.h"
#include "math/Vector3.h"

class SExpression;
class SExpAtomic;

/// One "HJ" reading: the angle (degrees, as sent) of the joint `index` of limb `part`.
struct JointReading {
    BodyPart part;
    unsigned int index;
    float angle;
};

/// One "FRP" reading of a foot ("lf" or "rf"), in the server's units.
struct FootReading {
    bool right;
    math::Vector3<float> contactPoint;
    math::Vector3<float> force;
};

/// What a "GS" perceptor says.
struct GameStateReading {
    /// The game time "t" (seconds).
    float cycle = 0.0F;
    /// True when "pm" is "BeforeKickOff".
    bool beforeKickOff = true;
    /// 1 for "team" "left", 2 for any other team text, 0 when the message names no team.
    int side = 0;
};

/// What the first "See" perceptor of a message says about the landmarks and the ball.
struct VisionReading {
    /// The landmarks seen, by `FlagType` value: relative Cartesian vectors in the camera frame
    /// (metres). Only the first list of each landmark counts.
    std::map<unsigned int, math::Vector3<float>> landmarks;
    bool ballSeen = false;
    /// The ball relative to the camera, Cartesian (metres); valid when `ballSeen`.
    math::Vector3<float> ball;
};

/// Everything the world model takes from one perceptor message, read and checked as a whole
/// before any of it is applied, so that a message that cannot be read changes nothing.
struct Percepts {
    /// The simulation time "now" (seconds).
    float now = 0.0F;
    bool hasGameState = false;
    GameStateReading gameState;
    bool hasGyro = false;
    /// The gyroscope rates "rt" (degrees per second).
    math::Vector3<float> gyroRate;
    bool hasAcceleration = false;
    /// The accelerometer's "a" (m/s^2, torso frame).
    math::Vector3<float> acceleration;
    /// Every "HJ" and "FRP" reading of a known joint or foot, in message order.
    std::vector<JointReading> joints;
    std::vector<FootReading> feet;
    bool hasVision = false;
    VisionReading vision;

    /// Forgets everything read (keeping the vectors' capacity for the next message).
    void clear();
};

/// Reads the perceptors of a parsed server message into plain values.
///
/// Every reader checks the layout it relies on and, instead of failing, returns false with a
/// one-line reason in `why` (e.g. `"GS" without "pm"`). Atoms that are not numbers read as 0
/// (the lenient `Str` conversion), and so does a number that is not finite ("inf", "NaN"), so
/// that no later computation meets an infinity.
class PerceptReader {
public:
    PerceptReader() = delete;

    /// Parses `message` wrapped in one pair of parentheses, as the world model reads it. Null,
    /// with the reason in `why`, when the text is not one well-formed list (unbalanced,
    /// truncated or nested too deep). `wrapped` is working space for the wrapped text; passing
    /// the same string for every message saves allocating a large block per message.
    static std::unique_ptr<SExpression> parseMessage(const std::string& message, std::string& why);
    static std::unique_ptr<SExpression> parseMessage(const std::string& message,
                                                     std::string& wrapped, std::string& why);

    /// All perceptors of the message root `root` that the world model reads: "time" with "now"
    /// (required), the first "GS", the first "GYR", the first "ACC", every "HJ" and "FRP", the
    /// first "See".
    static bool readMessage(const SExpression& root, Percepts& out, std::string& why);

    /// "now" of the first "time" list of `root`.
    static bool readTime(const SExpression& root, float& now, std::string& why);
    /// A "GS" list: "t" and "pm" are required, "team" is optional.
    static bool readGameState(const SExpression& gs, GameStateReading& out, std::string& why);
    /// A "GYR" list: the three numbers of its first "rt" list.
    static bool readGyro(const SExpression& gyr, math::Vector3<float>& rate, std::string& why);
    /// An "ACC" list: the three numbers of its first "a" list.
    static bool readAccelerometer(const SExpression& acc, math::Vector3<float>& acceleration,
                                  std::string& why);
    /// Every "HJ" and "FRP" list of the message root `root`, in message order, replacing the
    /// contents of `joints` and `feet`. Lists of unknown joints or feet are skipped.
    static bool readBody(const SExpression& root, std::vector<JointReading>& joints,
                         std::vector<FootReading>& feet, std::string& why);
    /// The landmarks of a "See" list: each needs exactly one "pol" list of three numbers.
    static bool readLandmarks(const SExpression& see,
                              std::map<unsigned int, math::Vector3<float>>& landmarks,
                              std::string& why);
    /// The ball of a "See" list: at most one "B" list, with exactly one "pol" list.
    static bool readBall(const SExpression& see, bool& seen, math::Vector3<float>& ball,
                         std::string& why);

    /// The relative Cartesian vector of a polar reading: distance (metres), horizontal and
    /// vertical angle (degrees).
    static math::Vector3<float> polarToCartesian(float distance, float horizontal, float vertical);

    /// The landmark names in the order vision reads them, with their `FlagType` values.
    struct LandmarkName {
        const char* name;
        unsigned int type;
    };
    static const std::vector<LandmarkName>& landmarkNames();

private:
    static const SExpAtomic* atomAt(const SExpression& list, unsigned int index);
    static bool readNumbers(const SExpression& list, unsigned int count, float* values,
                            std::string& why);
    static bool readVector(const SExpression& list, math::Vector3<float>& vector, std::string& why);
    static bool readText(const SExpression& list, const std::string*& text, std::string& why);
    static bool readPolar(const SExpression& object, const std::string& name,
                          math::Vector3<float>& vector, std::string& why);
};
