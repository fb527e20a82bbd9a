#include "MotionWorld.h"  // same folder: the support library itself has no include path to tests/

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "SkillFiles.h"
#include "agent/ProcessState.h"
#include "body/JointNames.h"
#include "commands/Command.h"
#include "skills/ConfigReader.h"
#include "skills/ConfigSkill.h"
#include "skills/dash/BasicDash.h"
#include "skills/dash/DashNormalGotoBall.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "skills/dive/LeftDiv.h"
#include "skills/dive/RightDiv.h"
#include "skills/kick/BasicKick.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"
#include "skills/turn/BasicTurn.h"
#include "utilities/config/Config.h"
#include "worldmodel/Self.h"

namespace motiontest {

namespace {

struct TestSkill {
    std::string name;
    float base;          // marker of step s is base + s + 1
    unsigned int steps;  // StepCount
    unsigned int loop;   // LoopStepNumber, counting from 1
};

// Joint speed written for every joint: larger than any marker difference, so a joint far from
// its target moves by half the remaining error per cycle.
constexpr float kSpeed = 250.0F;

// Field of the current server (metres).
constexpr float kFieldLength = 30.0F;
constexpr float kFieldWidth = 20.0F;
constexpr float kGoalWidth = 2.1F;

// "Stop" is one held pose, as a standing posture is: a robot that holds it finishes it on
// every call.
const std::vector<TestSkill>& skills() {
    static const std::vector<TestSkill> list = [] {
        std::vector<TestSkill> s = {
            {"Walk", 10.0F, 3, 2},         {"ShortWalk", 20.0F, 2, 1},
            {"Stop", 30.0F, 1, 1},         {"LeftKick", 40.0F, 3, 1},
            {"LeftSideWalk", 50.0F, 2, 1}, {"RightSideWalk", 60.0F, 2, 1},
            {"Style", 70.0F, 2, 1},        {"FrontStandUp", 80.0F, 2, 1},
            {"BackStandUp", 90.0F, 2, 1},
        };
        const char* sizes[] = {"40", "30", "25", "15", "10", "5"};
        float base = 100.0F;
        for (const char* side : {"TurnLeft", "TurnRight"}) {
            for (const char* size : sizes) {
                s.push_back({std::string(side) + size, base, 2, 2});
                base += 10.0F;
            }
        }
        return s;
    }();
    return list;
}

const TestSkill& find(const std::string& name) {
    for (const TestSkill& s : skills()) {
        if (s.name == name) {
            return s;
        }
    }
    throw std::invalid_argument("no test skill " + name);
}

// The steps of a test skill: every joint at 0 but lae1 at the step's marker, every speed kSpeed.
std::string skillFile(const TestSkill& skill) {
    const std::string v = std::to_string(static_cast<int>(kSpeed));
    const std::string two = v + " " + v;
    const std::string four = two + " " + two;
    const std::string six = four + " " + two;
    std::vector<skilltest::StepKeys> steps;
    for (unsigned int s = 0; s < skill.steps; ++s) {
        const auto marker = static_cast<int>(skill.base) + static_cast<int>(s) + 1;
        steps.push_back(skilltest::step({{"Arm::Left", std::to_string(marker) + " 0 0 0"},
                                         {"Head::PInstance", two},
                                         {"Arm::PLeft", four},
                                         {"Arm::PRight", four},
                                         {"Leg::PLeft", six},
                                         {"Leg::PRight", six}}));
    }
    return skilltest::skillText(steps, static_cast<int>(skill.loop));
}

// The test data, written on first use and removed when the process ends.
const skilltest::DataTree& tree() {
    static skilltest::DataTree data;
    static const bool written = [] {
        for (const TestSkill& skill : skills()) {
            data.addSkill(skill.name, skillFile(skill));
        }
        return true;
    }();
    static_cast<void>(written);
    return data;
}

}  // namespace

void installSkillData() {
    std::filesystem::current_path(tree().root());
    // Registered (again) every time, so that a test that changed a value starts afresh.
    Config config;
    config.add("Config_FileAdresses",
               tree().root() + "/Data/ConfigurationData/Config_FileAddresses.conf");
    std::ostringstream field;
    field << "[Field]\nLength = " << kFieldLength << "\nWidth = " << kFieldWidth
          << "\nGoalWidth = " << kGoalWidth << "\n[Ball]\nRadius = 0.042\n";
    const std::pair<const char*, std::string> files[] = {
        {"ServerInitialize",
         "[Server]\nOfflinePlaying = true\nVersion = 0.7.4\n[Public]\nUniformNum = 3\n"},
        {"WorldModelParameters", field.str()},
        {"OffenseParameters",
         "[Kick]\nMaxBallDistance = 0.35\nMaxBallBearing = 30\nMaxHeadingError = 45\n"}};
    for (const auto& [name, text] : files) {
        config.add(name, tree().write(std::string(name) + ".conf", text));
    }
    // The skill database is loaded again, from these files, on its next use.
    ConfigReader::resetState();
}

void resetSkillState() {
    ProcessState::resetGame();
}

float markerOf(const Command& command) {
    return command.getLeftArmCommand().getHingeJointCommand(0).getJointTargetAlphaValue();
}

float marker(const std::string& skill, unsigned int step) {
    return find(skill).base + static_cast<float>(step + 1);
}

namespace {

struct Landmark {
    const char* name;
    float x;
    float y;
};

// Field positions of the four corner flags.
std::vector<Landmark> cornerFlags() {
    const float hx = kFieldLength * 0.5F;
    const float hy = kFieldWidth * 0.5F;
    return {{"F1L", -hx, hy}, {"F2L", -hx, -hy}, {"F1R", hx, hy}, {"F2R", hx, -hy}};
}

}  // namespace

std::string polar(double dx, double dy, double dz, double heading, double tilt) {
    constexpr double kDegToRad = 3.141592653589793 / 180.0;
    // Turn the camera to its heading, then pitch it down by -tilt.
    const double c = std::cos(-heading * kDegToRad);
    const double s = std::sin(-heading * kDegToRad);
    const double ax = c * dx - s * dy;
    const double ry = s * dx + c * dy;
    const double pitch = -tilt * kDegToRad;
    const double rx = ax * std::cos(pitch) - dz * std::sin(pitch);
    const double rz = ax * std::sin(pitch) + dz * std::cos(pitch);
    const double d = std::sqrt(dx * dx + dy * dy + dz * dz);
    char text[96];
    std::snprintf(text, sizeof text, "(pol %.6f %.6f %.6f)", d, std::atan2(ry, rx) / kDegToRad,
                  std::atan2(rz, std::hypot(rx, ry)) / kDegToRad);
    return text;
}

std::string message(const Scene& scene) {
    std::ostringstream out;
    char number[48];
    std::snprintf(number, sizeof number, "%.2f", static_cast<double>(scene.time));
    out << "(time (now " << number << "))(GS (unum 3) ";
    if (scene.side != 0) {
        out << "(team " << (scene.side == 1 ? "left" : "right") << ") ";
    }
    out << "(sl 0) (sr 0) (t " << number << ") (pm PlayOn"
        << "))(GYR (n torso) (rt 0.00 0.00 0.00))";
    char acc[96];
    std::snprintf(acc, sizeof acc, "(ACC (n torso) (a %.2f %.2f %.2f))",
                  static_cast<double>(scene.accX), static_cast<double>(scene.accY),
                  static_cast<double>(scene.accZ));
    out << acc;
    const auto angle = [&scene](const char* name) {
        const auto it = scene.joints.find(name);
        return it == scene.joints.end() ? 0.0F : it->second;
    };
    // The head's joints, then what the camera sees, then the other joints, as the server orders
    // its lists.
    const auto joints = [&](bool head) {
        for (const JointName& joint : JointNames::table()) {
            if ((joint.part == BodyPart::Head) == head) {
                std::snprintf(number, sizeof number, "%.2f",
                              static_cast<double>(angle(joint.perceptorName)));
                out << "(HJ (n " << joint.perceptorName << ") (ax " << number << "))";
            }
        }
    };
    joints(true);
    if (scene.vision) {
        // The head's heading is the body's turned by the head pan joint.
        const double heading =
            static_cast<double>(scene.heading) + static_cast<double>(angle("hj1"));
        out << "(See";
        if (scene.fallen) {
            // A robot lying on the ground sees a landmark far above its horizon.
            out << " (F1L (pol 10.00 0.00 70.00))";
        } else {
            for (const Landmark& flag : cornerFlags()) {
                out << " (" << flag.name << " "
                    << polar(static_cast<double>(flag.x - scene.x),
                             static_cast<double>(flag.y - scene.y), 0.0, heading)
                    << ")";
            }
        }
        // Lying down the robot has no heading from the landmarks: the ball is placed as if seen
        // with heading 0.
        out << " (B "
            << polar(static_cast<double>(scene.ballX - scene.x),
                     static_cast<double>(scene.ballY - scene.y), 0.0, scene.fallen ? 0.0 : heading)
            << "))";
    }
    joints(false);
    out << "(FRP (n rf) (c 0.00 0.00 -0.01) (f 0.00 0.00 22.50))";
    std::snprintf(number, sizeof number, "%.2f", static_cast<double>(scene.leftContactY));
    out << "(FRP (n lf) (c 0.00 " << number << " -0.01) (f 0.00 0.00 22.50))";
    return out.str();
}

}  // namespace motiontest
