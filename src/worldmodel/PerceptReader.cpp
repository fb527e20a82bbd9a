#include "worldmodel/PerceptReader.h"

#include <cmath>

#include "math/Angles.h"
#include "utilities/parsing/SExpError.h"
#include "utilities/parsing/SExpression.h"

namespace {

// A number that is not finite would poison every later sum and angle; it reads as 0, like a
// text that is not a number at all.
float finiteOrZero(float value) {
    return std::isfinite(value) ? value : 0.0F;
}

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

std::string without(const std::string& list, const std::string& child) {
    return quoted(list) + " without " + quoted(child);
}

}  // namespace

void Percepts::clear() {
    now = 0.0F;
    hasGameState = false;
    gameState = GameStateReading();
    hasGyro = false;
    gyroRate = math::Vector3<float>();
    hasAcceleration = false;
    acceleration = math::Vector3<float>();
    joints.clear();
    feet.clear();
    hasVision = false;
    vision.landmarks.clear();
    vision.ballSeen = false;
    vision.ball = math::Vector3<float>();
}

std::unique_ptr<SExpression> PerceptReader::parseMessage(const std::string& message,
                                                         std::string& why) {
    std::string wrapped;
    return parseMessage(message, wrapped, why);
}

std::unique_ptr<SExpression> PerceptReader::parseMessage(const std::string& message,
                                                         std::string& wrapped, std::string& why) {
    wrapped.clear();
    wrapped.reserve(message.size() + 2);
    wrapped += '(';
    wrapped += message;
    wrapped += ')';
    try {
        return SExpression::parse(wrapped);
    } catch (const SExpError& error) {
        const std::string& condition = error.getCondition();
        if (condition == "i < value.length()") {
            why = "unbalanced parentheses: a list is not closed";
        } else if (condition == "pos + 1 == value.length()") {
            why = "unbalanced parentheses: a \")\" closes nothing";
        } else if (condition == "depth <= maxDepth") {
            why = "lists nested too deep";
        } else {
            why = "unreadable text (" + condition + ")";
        }
        return nullptr;
    }
}

const SExpAtomic* PerceptReader::atomAt(const SExpression& list, unsigned int index) {
    if (index >= list.size()) {
        return nullptr;
    }
    return dynamic_cast<const SExpAtomic*>(list[index]);
}

bool PerceptReader::readNumbers(const SExpression& list, unsigned int count, float* values,
                                std::string& why) {
    for (unsigned int i = 0; i < count; ++i) {
        const SExpAtomic* atom = atomAt(list, i + 1);
        if (atom == nullptr) {
            const SExpAtomic* head = atomAt(list, 0);
            why = quoted(head == nullptr ? std::string() : head->getValue().getValue()) +
                  " needs " + std::to_string(count) + (count == 1 ? " value" : " values");
            return false;
        }
        values[i] = finiteOrZero(atom->getValue().b_value(0.0F));
    }
    return true;
}

bool PerceptReader::readVector(const SExpression& list, math::Vector3<float>& vector,
                               std::string& why) {
    float values[3] = {0.0F, 0.0F, 0.0F};
    if (!readNumbers(list, 3, values, why)) {
        return false;
    }
    vector = math::Vector3<float>(values[0], values[1], values[2]);
    return true;
}

bool PerceptReader::readText(const SExpression& list, const std::string*& text, std::string& why) {
    const SExpAtomic* atom = atomAt(list, 1);
    if (atom == nullptr) {
        const SExpAtomic* head = atomAt(list, 0);
        why = quoted(head == nullptr ? std::string() : head->getValue().getValue()) +
              " needs 1 value";
        return false;
    }
    text = &atom->getValue().getValue();
    return true;
}

bool PerceptReader::readTime(const SExpression& root, float& now, std::string& why) {
    const SExpression* time = root.firstWithHeader("time");
    if (time == nullptr) {
        why = "no \"time\"";
        return false;
    }
    const SExpression* nowList = time->firstWithHeader("now");
    if (nowList == nullptr) {
        why = without("time", "now");
        return false;
    }
    return readNumbers(*nowList, 1, &now, why);
}

bool PerceptReader::readGameState(const SExpression& gs, GameStateReading& out, std::string& why) {
    const SExpression* t = gs.firstWithHeader("t");
    if (t == nullptr) {
        why = without("GS", "t");
        return false;
    }
    const SExpression* pm = gs.firstWithHeader("pm");
    if (pm == nullptr) {
        why = without("GS", "pm");
        return false;
    }
    GameStateReading reading;
    const std::string* mode = nullptr;
    if (!readNumbers(*t, 1, &reading.cycle, why) || !readText(*pm, mode, why)) {
        return false;
    }
    reading.beforeKickOff = *mode == "BeforeKickOff";
    if (const SExpression* team = gs.firstWithHeader("team")) {
        const std::string* name = nullptr;
        if (!readText(*team, name, why)) {
            return false;
        }
        reading.side = *name == "left" ? 1 : 2;
    }
    out = reading;
    return true;
}

bool PerceptReader::readGyro(const SExpression& gyr, math::Vector3<float>& rate, std::string& why) {
    const SExpression* rt = gyr.firstWithHeader("rt");
    if (rt == nullptr) {
        why = without("GYR", "rt");
        return false;
    }
    return readVector(*rt, rate, why);
}

bool PerceptReader::readAccelerometer(const SExpression& acc, math::Vector3<float>& acceleration,
                                      std::string& why) {
    const SExpression* a = acc.firstWithHeader("a");
    if (a == nullptr) {
        why = without("ACC", "a");
        return false;
    }
    return readVector(*a, acceleration, why);
}

bool PerceptReader::readBody(const SExpression& root, std::vector<JointReading>& joints,
                             std::vector<FootReading>& feet, std::string& why) {
    joints.clear();
    feet.clear();
    for (const SExpression* frp : root["FRP"]) {
        const SExpression* n = frp->firstWithHeader("n");
        if (n == nullptr) {
            why = without("FRP", "n");
            return false;
        }
        const std::string* name = nullptr;
        if (!readText(*n, name, why)) {
            return false;
        }
        if (*name != "lf" && *name != "rf") {
            continue;
        }
        FootReading foot{*name == "rf", {}, {}};
        const SExpression* c = frp->firstWithHeader("c");
        if (c == nullptr) {
            why = without("FRP", "c");
            return false;
        }
        const SExpression* f = frp->firstWithHeader("f");
        if (f == nullptr) {
            why = without("FRP", "f");
            return false;
        }
        if (!readVector(*c, foot.contactPoint, why) || !readVector(*f, foot.force, why)) {
            return false;
        }
        feet.push_back(foot);
    }
    for (const SExpression* hj : root["HJ"]) {
        const SExpression* n = hj->firstWithHeader("n");
        if (n == nullptr) {
            why = without("HJ", "n");
            return false;
        }
        const std::string* name = nullptr;
        if (!readText(*n, name, why)) {
            return false;
        }
        const JointName* joint = JointNames::findByPerceptorName(*name);
        if (joint == nullptr) {
            continue;
        }
        const SExpression* ax = hj->firstWithHeader("ax");
        if (ax == nullptr) {
            why = without("HJ", "ax");
            return false;
        }
        float angle = 0.0F;
        if (!readNumbers(*ax, 1, &angle, why)) {
            return false;
        }
        joints.push_back(JointReading{joint->part, joint->index, angle});
    }
    return true;
}

const std::vector<PerceptReader::LandmarkName>& PerceptReader::landmarkNames() {
    static const std::vector<LandmarkName> names = {
        {"F1L", 0}, {"F2L", 2}, {"F1R", 1}, {"F2R", 3},
        {"G1L", 4}, {"G2L", 6}, {"G1R", 5}, {"G2R", 7},
    };
    return names;
}

bool PerceptReader::readPolar(const SExpression& object, const std::string& name,
                              math::Vector3<float>& vector, std::string& why) {
    const int pols = object.numSExpWithHeader("pol");
    if (pols != 1) {
        why = quoted(name) + " needs exactly one \"pol\", has " + std::to_string(pols);
        return false;
    }
    float values[3] = {0.0F, 0.0F, 0.0F};
    if (!readNumbers(*object.firstWithHeader("pol"), 3, values, why)) {
        return false;
    }
    vector = polarToCartesian(values[0], values[1], values[2]);
    return true;
}

bool PerceptReader::readLandmarks(const SExpression& see,
                                  std::map<unsigned int, math::Vector3<float>>& landmarks,
                                  std::string& why) {
    std::map<unsigned int, math::Vector3<float>> seen;
    for (const LandmarkName& landmark : landmarkNames()) {
        const SExpression* list = see.firstWithHeader(landmark.name);
        if (list == nullptr) {
            continue;
        }
        math::Vector3<float> vector;
        if (!readPolar(*list, landmark.name, vector, why)) {
            return false;
        }
        seen[landmark.type] = vector;
    }
    landmarks = std::move(seen);
    return true;
}

bool PerceptReader::readBall(const SExpression& see, bool& seen, math::Vector3<float>& ball,
                             std::string& why) {
    const int balls = see.numSExpWithHeader("B");
    if (balls == 0) {
        seen = false;
        return true;
    }
    if (balls > 1) {
        why = "\"See\" has " + std::to_string(balls) + " \"B\" lists";
        return false;
    }
    math::Vector3<float> vector;
    if (!readPolar(*see.firstWithHeader("B"), "B", vector, why)) {
        return false;
    }
    seen = true;
    ball = vector;
    return true;
}

bool PerceptReader::readMessage(const SExpression& root, Percepts& out, std::string& why) {
    out.clear();
    if (!readTime(root, out.now, why)) {
        return false;
    }
    if (const SExpression* gs = root.firstWithHeader("GS")) {
        if (!readGameState(*gs, out.gameState, why)) {
            return false;
        }
        out.hasGameState = true;
    }
    if (const SExpression* gyr = root.firstWithHeader("GYR")) {
        if (!readGyro(*gyr, out.gyroRate, why)) {
            return false;
        }
        out.hasGyro = true;
    }
    if (const SExpression* acc = root.firstWithHeader("ACC")) {
        if (!readAccelerometer(*acc, out.acceleration, why)) {
            return false;
        }
        out.hasAcceleration = true;
    }
    if (!readBody(root, out.joints, out.feet, why)) {
        return false;
    }
    if (const SExpression* see = root.firstWithHeader("See")) {
        if (!readLandmarks(*see, out.vision.landmarks, why) ||
            !readBall(*see, out.vision.ballSeen, out.vision.ball, why)) {
            return false;
        }
        out.hasVision = true;
    }
    return true;
}

math::Vector3<float> PerceptReader::polarToCartesian(float distance, float horizontal,
                                                     float vertical) {
    const double h = math::toRadians(static_cast<double>(horizontal));
    const double v = math::toRadians(static_cast<double>(vertical));
    const auto flat = static_cast<float>(std::cos(v) * static_cast<double>(distance));
    return {static_cast<float>(std::cos(h) * static_cast<double>(flat)),
            static_cast<float>(std::sin(h) * static_cast<double>(flat)),
            static_cast<float>(std::sin(v) * static_cast<double>(distance))};
}
