#include "Trials.h"

#include <cmath>
#include <deque>
#include <functional>
#include <iostream>
#include <map>
#include <memory>

#include "Angles.h"
#include "agent/AgentModel.h"
#include "body/Body.h"
#include "commands/Command.h"
#include "math/Point.h"
#include "plans/DefencePlan.h"
#include "plans/GoalKeeperPlan.h"
#include "plans/OffensePlan.h"
#include "plans/Pitch.h"
#include "skills/ConfigSkill.h"
#include "skills/SkillNames.h"
#include "skills/dash/BasicDash.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "skills/kick/BasicKick.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/turn/BasicTurn.h"
#include "utilities/config/Config.h"
#include "worldmodel/FallRule.h"
#include "worldmodel/WorldModel.h"

namespace trials {

namespace {

// Where the ball waits during trials that do not use it (metres): in a corner of our half, away
// from every trial's path.
constexpr double kBallAsideX = -12.0;
constexpr double kBallAsideY = -8.0;
// Walking time added per trial before a fall-*-walking tip-over (seconds).
constexpr double kGaitPhaseSeconds = 0.25;

// A robot on the field, standing still, with the measurements every trial takes.
class Bench {
public:
    // With `stance`, the settled robot then plays "Stop" into the standing stance, as the
    // motions that the player starts from it expect.
    Bench(const LabSession::Options& options, double x, double y, double heading,
          bool stance = false)
        : session(options), trace(options.trace) {
        ready = session.connect();
        if (ready) {
            session.kickOff();
            // A fresh server has the ball on the centre spot, where most trials put the robot:
            // standing on it changed the first trial after every server start (TurnLeft5 turned
            // 9.2 degrees instead of 4.4). Trials that use the ball place it themselves.
            session.placeBall(kBallAsideX, kBallAsideY);
            // A robot that has come to rest lying down (the placement did not take and it was
            // dropped, or it toppled on landing) is placed again.
            for (int attempt = 0; ready && attempt < 3; ++attempt) {
                session.placeRobot(x, y, heading);
                ready = session.idle(1.0) && settle();
                if (session.standing()) {
                    break;
                }
            }
        }
        if (ready && stance) {
            ConfigSkill player;
            ready = playThrough(player, "Stop", 3.0);
        }
        if (ready) {  // the session's clock runs only once it has connected
            mark();
        }
    }

    // Idles until the head has stayed at one height for half a second (at most 3 s more), so
    // that no trial begins with the robot still dropping.
    bool settle() {
        const double until = session.now() + 3.0;
        double since = session.now();
        double height = session.pose().headHeight;
        while (session.now() < until && session.now() - since < 0.5) {
            if (!session.step(nullptr)) {
                return false;
            }
            if (std::fabs(session.pose().headHeight - height) > 0.01) {
                height = session.pose().headHeight;
                since = session.now();
            }
        }
        return true;
    }

    // Starts the clock and the origin afresh from where the robot is now.
    void mark() {
        origin = session.pose();
        startTime = session.now();
    }
    double elapsed() const { return session.now() - startTime; }
    // Metres moved since the mark along the heading at the mark, and to its left.
    double forward() const {
        const double h = origin.heading * kDegToRad;
        return (session.pose().x - origin.x) * std::cos(h) +
               (session.pose().y - origin.y) * std::sin(h);
    }
    double leftward() const {
        const double h = origin.heading * kDegToRad;
        return -(session.pose().x - origin.x) * std::sin(h) +
               (session.pose().y - origin.y) * std::cos(h);
    }
    // Degrees turned counter-clockwise since the mark.
    double turned() const { return session.pose().heading - origin.heading; }

    // One cycle of skill `name` through `player`; false when the server has gone.
    bool play(ConfigSkill& player, const std::string& name) {
        Command* key = player.getConfigCommandSkill(name, &session.world());
        Command copy(key);
        if (trace) {
            std::cout << "trace skill " << name << " step "
                      << ConfigSkill::getCurrentConfigStepNumber()
                      << (player.isFinished() ? " finished" : "");
            // The joints still outside the key frame's precision: target - current, degrees.
            const auto holding = [](const char* name, int index, const HingeJointCommand& joint) {
                const float error =
                    joint.getJointTargetAlphaValue() - joint.getJointCurrentAlphaValue();
                if (std::fabs(error) > joint.getPrecision()) {
                    std::cout << " " << name << index + 1 << " " << error;
                }
            };
            for (int j = 0; j < 6; ++j) {
                holding("lle", j, key->getLeftLegCommand().getHingeJointCommand(j));
                holding("rle", j, key->getRightLegCommand().getHingeJointCommand(j));
            }
            for (int j = 0; j < 4; ++j) {
                holding("lae", j, key->getLeftArmCommand().getHingeJointCommand(j));
                holding("rae", j, key->getRightArmCommand().getHingeJointCommand(j));
            }
            std::cout << "\n";
        }
        return stepWatching(&copy);
    }
    // Walks from the first step of "Walk" for `seconds` from now (less if the robot falls and
    // `untilFall`); false when the server has gone.
    bool walkFor(ConfigSkill& player, double seconds, bool untilFall) {
        ConfigSkill::setCurrentConfigStepNumber(0);
        mark();
        while (elapsed() < seconds && !(untilFall && fellAt >= 0.0)) {
            if (!play(player, "Walk")) {
                return false;
            }
        }
        return true;
    }
    // Plays `name` from its first step until it has run to its end (or `limit` seconds).
    bool playThrough(ConfigSkill& player, const std::string& name, double limit) {
        ConfigSkill::setCurrentConfigStepNumber(0);
        const double until = session.now() + limit;
        while (session.now() < until) {
            if (!play(player, name)) {
                return false;
            }
            if (player.isFinished()) {
                return true;
            }
        }
        return true;
    }
    // One cycle of a command owned by the caller, noting a fall.
    bool stepWatching(Command* command) {
        if (!session.step(command)) {
            return false;
        }
        if (session.fallen() && fellAt < 0.0) {
            fellAt = elapsed();
        }
        alarmCycles += session.world().isFallen() ? 1 : 0;
        return true;
    }

    LabSession session;
    bool trace = false;  // print the key-frame step of every cycle and the joints holding it
    bool ready = false;
    LabSession::Pose origin;
    double startTime = 0.0;
    double fellAt = -1.0;  // seconds after the mark; -1 while standing
    int alarmCycles = 0;   // cycles watched in which the player's world model read fallen
};

Result noServer() {
    Result result;
    result.note = "no server";
    return result;
}

void addFall(Result& result, const Bench& bench) {
    result.values.emplace_back("fell", bench.fellAt >= 0.0 ? 1.0 : 0.0);
    if (bench.fellAt >= 0.0 && result.note.empty()) {
        result.note = "fell after " + std::to_string(bench.fellAt) + " s";
    }
}

// Walks with `skill` until `distance` metres forward, a fall or `limit` seconds.
Result walk(const std::string& skill, double distance, double limit, double minSpeed,
            const LabSession::Options& options) {
    Bench bench(options, -6.0, 0.0, 0.0);
    if (!bench.ready) {
        return noServer();
    }
    ConfigSkill player;
    ConfigSkill::setCurrentConfigStepNumber(0);
    bench.mark();
    while (bench.elapsed() < limit && bench.forward() < distance && bench.fellAt < 0.0) {
        if (!bench.play(player, skill)) {
            return noServer();
        }
    }
    Result result;
    const double forward = bench.forward();
    const double speed = forward / std::max(bench.elapsed(), 0.02);
    const double drift = std::fabs(bench.turned()) * 5.0 / std::max(forward, 0.5);
    result.values = {{"speed m/s", speed},
                     {"forward m", forward},
                     {"sideways m", bench.leftward()},
                     {"drift deg/5m", drift},
                     {"time s", bench.elapsed()}};
    addFall(result, bench);
    result.passed = bench.fellAt < 0.0 && forward >= distance && speed >= minSpeed &&
                    (skill != "Walk" || drift <= 10.0);
    if (!result.passed && result.note.empty()) {
        result.note = forward < distance ? "distance not covered" : "too slow or drifting";
    }
    return result;
}

// How long trial `trial` walks before it stops or stands up: 0.13 s longer in each trial, so
// that with the walk's gait cycle of 0.64 s every five trials meet the gait in each of its
// phases.
double walkTime(int trial) {
    return 2.0 + 0.13 * trial;
}

// Walks for a while (walkTime), then plays "Stop" and times how long the robot takes to stand
// still.
Result stop(const LabSession::Options& options, int trial, double limit) {
    Bench bench(options, -6.0, 0.0, 0.0);
    if (!bench.ready) {
        return noServer();
    }
    ConfigSkill player;
    const double walkFor = walkTime(trial);
    if (!bench.walkFor(player, walkFor, true)) {
        return noServer();
    }
    ConfigSkill::setCurrentConfigStepNumber(0);
    bench.mark();
    // Still: the head has moved less than 1.5 cm over the last 0.5 s. The server reports
    // positions rounded to the centimetre, so a head at rest on a rounding edge already "moves"
    // 1 cm; a smaller bound or a shorter window made the time to stand still depend on where
    // the edges fell (1.8 s on one server, 0.4 s on the next for the same path).
    std::deque<std::pair<double, LabSession::Pose>> history;
    double stillAt = -1.0;
    while (bench.elapsed() < limit && bench.fellAt < 0.0) {
        if (!bench.play(player, "Stop")) {
            return noServer();
        }
        history.emplace_back(bench.elapsed(), bench.session.pose());
        while (history.size() > 1 && history.front().first < bench.elapsed() - 0.5) {
            history.pop_front();
        }
        const LabSession::Pose& a = history.front().second;
        const LabSession::Pose& b = history.back().second;
        const bool still = history.back().first - history.front().first >= 0.48 &&
                           std::hypot(b.x - a.x, b.y - a.y) < 0.015 &&
                           std::fabs(b.headHeight - a.headHeight) < 0.015;
        if (still && stillAt < 0.0) {
            stillAt = std::max(0.0, history.front().first);
        } else if (!still) {
            stillAt = -1.0;
        }
        if (stillAt >= 0.0 && bench.elapsed() - stillAt > 1.0) {
            break;  // stayed still for a second
        }
    }
    Result result;
    result.values = {{"walked s", walkFor}, {"still after s", stillAt}};
    addFall(result, bench);
    result.passed = bench.fellAt < 0.0 && stillAt >= 0.0 && stillAt <= 1.0;
    if (!result.passed && result.note.empty()) {
        result.note = stillAt < 0.0 ? "never still" : "still too late";
    }
    return result;
}

// The player starts a stand-up whenever its fall indicator fires. Under the fall rule
// "Landmarks" that indicator also fires on a robot that is up and walking (far landmarks seen
// with the head tilted down); under "Attitude" (the torso's accelerometer and gyroscope) it
// should not, and "alarm cycles" counts the walking cycles in which it did. Walks for a while
// (walkTime), then runs the player's own stand-up through to its end, as after a false alarm:
// "FrontStandUp" or "BackStandUp" as the rule chooses (the torso's lean under "Attitude", the
// foot's contact point under "Landmarks"), then "Stop". Looks whether the robot is still, or
// again, on its feet.
Result standUpWhileWalking(const LabSession::Options& options, int trial, double limit) {
    Bench bench(options, -6.0, 0.0, 0.0);
    if (!bench.ready) {
        return noServer();
    }
    ConfigSkill player;
    const double walkFor = walkTime(trial);
    if (!bench.walkFor(player, walkFor, false)) {
        return noServer();
    }
    const int alarms = bench.alarmCycles;
    bench.mark();
    double lowest = bench.session.pose().headHeight;
    BasicStandUp::resetState();
    bool start = true;
    bool back = false;
    bool finished = false;
    while (!finished && bench.elapsed() < limit) {
        BasicStandUp standUp(bench.session.world(), start, false);
        if (start) {
            back = BasicStandUp::getConfigSkill().getCurrentSkillName() == "BackStandUp";
            start = false;
        }
        const std::unique_ptr<Command> command(standUp.getCommand());
        if (!bench.stepWatching(command.get())) {
            return noServer();
        }
        lowest = std::min(lowest, bench.session.pose().headHeight);
        finished = standUp.isFinished();
    }
    if (!bench.session.idle(1.0)) {
        return noServer();
    }
    Result result;
    result.values = {{"walked s", walkFor},      {"alarm cycles", alarms},
                     {"back", back ? 1.0 : 0.0}, {"time s", bench.elapsed()},
                     {"lowest head m", lowest},  {"head m", bench.session.pose().headHeight}};
    const bool noAlarm = alarms == 0 || bench.session.world().getFallRule() != FallRule::Attitude;
    result.passed = bench.session.standing() && noAlarm;
    if (!bench.session.standing()) {
        result.note = "down at the end";
    } else if (!noAlarm) {
        result.note = "fall alarm while walking";
    }
    return result;
}

// From the "Stop" stance: one turn skill, then "Stop"; the heading change is measured.
Result turn(const std::string& skill, const LabSession::Options& options, double limit) {
    const bool left = skill.rfind("TurnLeft", 0) == 0;
    const double size = std::stod(skill.substr(left ? 8 : 9));
    const double expected = left ? size : -size;
    Bench bench(options, 0.0, 0.0, 0.0, true);
    if (!bench.ready) {
        return noServer();
    }
    ConfigSkill player;
    bench.mark();
    if (!bench.playThrough(player, skill, limit) || !bench.playThrough(player, "Stop", 3.0) ||
        !bench.session.idle(0.5)) {
        return noServer();
    }
    Result result;
    const double turned = bench.turned();
    result.values = {{"turned deg", turned},
                     {"error %", 100.0 * (turned - expected) / size},
                     {"moved m", std::hypot(bench.forward(), bench.leftward())},
                     {"time s", bench.elapsed()}};
    addFall(result, bench);
    result.passed = bench.fellAt < 0.0 && bench.session.standing() &&
                    std::fabs(turned - expected) <= 0.3 * size;
    if (!result.passed && result.note.empty()) {
        result.note = "turned " + std::to_string(turned) + " of " + std::to_string(expected);
    }
    return result;
}

Result side(const std::string& skill, const LabSession::Options& options, double limit) {
    const double sign = skill == "LeftSideWalk" ? 1.0 : -1.0;
    Bench bench(options, 0.0, 0.0, 0.0, true);
    if (!bench.ready) {
        return noServer();
    }
    ConfigSkill player;
    ConfigSkill::setCurrentConfigStepNumber(0);
    bench.mark();
    while (bench.elapsed() < limit && sign * bench.leftward() < 2.0 && bench.fellAt < 0.0) {
        if (!bench.play(player, skill)) {
            return noServer();
        }
    }
    Result result;
    const double sideways = sign * bench.leftward();
    const double speed = sideways / std::max(bench.elapsed(), 0.02);
    result.values = {{"speed m/s", speed},
                     {"sideways m", sideways},
                     {"forward m", bench.forward()},
                     {"turned deg", bench.turned()},
                     {"time s", bench.elapsed()}};
    addFall(result, bench);
    result.passed = bench.fellAt < 0.0 && sideways >= 2.0 && speed >= 0.08;
    if (!result.passed && result.note.empty()) {
        result.note = "too slow";
    }
    return result;
}

// A command that tips the standing robot over: forwards (face down) or backwards.
std::unique_ptr<Command> tipOver(bool forwards, const Body* body) {
    auto command = std::make_unique<Command>(body);
    // Hip pitch, knee and ankle pitch of both legs (degrees) and the arms held along the body.
    const float hip = forwards ? -25.0F : 60.0F;
    const float ankle = forwards ? 60.0F : -45.0F;
    for (LegCommand* leg : {&command->getLeftLegCommand(), &command->getRightLegCommand()}) {
        leg->getHingeJointCommand(2).setJointTargetAlphaAndVelocityValue(hip, 7.0F, 0.1F);
        leg->getHingeJointCommand(4).setJointTargetAlphaAndVelocityValue(ankle, 7.0F, 0.1F);
    }
    // Arms hanging down as in every standing skill, so that the robot lands as it would in a
    // game and not propped up on arms held out in front.
    for (ArmCommand* arm : {&command->getLeftArmCommand(), &command->getRightArmCommand()}) {
        arm->getHingeJointCommand(0).setJointTargetAlphaAndVelocityValue(-90.0F, 7.0F, 0.1F);
    }
    return command;
}

// Tips the robot over and plays the stand-up. The server repeats a trial from the same start
// almost exactly, so each trial starts facing another way (37 degrees further round) and lies
// a little longer (1 s plus 0.1 s per trial) before it gets up: the robot lands a little
// differently every time, as it does in games.
Result standUp(const std::string& skill, const LabSession::Options& options, int trial,
               double limit) {
    const bool front = skill == "FrontStandUp";
    Bench bench(options, 0.0, 0.0, wrapDegrees(37.0 * trial));
    if (!bench.ready) {
        return noServer();
    }
    bench.mark();
    bench.session.watchFall();
    while (!bench.session.fallen() && bench.elapsed() < 4.0) {
        std::unique_ptr<Command> push = tipOver(front, bench.session.world().getSelf()->getBody());
        push->setAllCommands();
        if (!bench.session.step(push.get())) {
            return noServer();
        }
    }
    const bool fellForwards = bench.forward() > 0.0;
    Result result;
    if (!bench.session.fallen() || fellForwards != front) {
        result.note = "could not tip the robot over as wanted";
        return result;
    }
    if (!bench.session.idle(1.0 + 0.1 * (trial % 10))) {
        return noServer();
    }
    // How the player's world model saw the fall: how long after the lab's own estimate of the
    // torso passed 60 degrees it read fallen, and which stand-up it would begin.
    const double passed = bench.session.tiltPassedAt();
    const double known = bench.session.fallKnownAt();
    const double detect = passed >= 0.0 && known >= 0.0 ? known - passed : std::nan("");
    const bool sideRight = BasicStandUp::liesOnBack(bench.session.world()) != front;
    ConfigSkill player;
    bench.mark();
    double upAt = -1.0;
    bool done = false;
    ConfigSkill::setCurrentConfigStepNumber(0);
    std::string playing = skill;
    while (bench.elapsed() < limit + 2.0) {
        if (!bench.play(player, playing)) {
            return noServer();
        }
        if (player.isFinished() && playing == skill) {
            playing = "Stop";
            ConfigSkill::setCurrentConfigStepNumber(0);
        } else if (player.isFinished()) {
            done = true;
        }
        // Standing: up, and still up half a second later.
        if (bench.session.standing()) {
            if (upAt < 0.0) {
                upAt = bench.elapsed();
            }
            if (done && bench.elapsed() - upAt >= 0.5) {
                break;
            }
        } else {
            upAt = -1.0;
        }
    }
    result.values = {{"standing after s", upAt},
                     {"head m", bench.session.pose().headHeight},
                     {"fall known after s", detect},
                     {"side right", sideRight ? 1.0 : 0.0}};
    result.passed = upAt >= 0.0 && upAt <= limit && bench.session.standing();
    if (!result.passed) {
        result.note = upAt < 0.0 ? "still down" : "too slow";
    }
    if (!sideRight) {
        result.note += std::string(result.note.empty() ? "" : ", ") + "player would take the " +
                       (front ? "back" : "front") + " stand-up";
    }
    return result;
}

Result kick(const LabSession::Options& options, double limit) {
    Bench bench(options, 0.0, 0.0, 0.0, true);
    if (!bench.ready) {
        return noServer();
    }
    // The ball in front of the left foot: 0.16 m ahead of the head, 0.055 m to its left.
    const LabSession::Pose& pose = bench.session.pose();
    const double h = pose.heading * kDegToRad;
    const double bx = pose.x + 0.16 * std::cos(h) - 0.055 * std::sin(h);
    const double by = pose.y + 0.16 * std::sin(h) + 0.055 * std::cos(h);
    bench.session.placeBall(bx, by);
    bench.mark();
    BasicKick::getConfigSkill().setCurrentSkillName("@");
    BasicKick::getConfigSkill().setFinishedSkill(false);
    bool kicked = false;
    while (bench.elapsed() < limit) {
        std::unique_ptr<Command> command;
        if (!kicked) {
            BasicKick kick(bench.session.world(), false);
            command.reset(kick.getCommand());
            kicked = kick.isFinished();
        }
        if (!bench.stepWatching(command.get())) {
            return noServer();
        }
    }
    const double dx = bench.session.ballX() - bx;
    const double dy = bench.session.ballY() - by;
    const double travel = dx * std::cos(h) + dy * std::sin(h);
    Result result;
    result.values = {{"ball forward m", travel},
                     {"ball sideways m", -dx * std::sin(h) + dy * std::cos(h)}};
    addFall(result, bench);
    result.passed = bench.fellAt < 0.0 && travel >= 4.0;
    if (!result.passed && result.note.empty()) {
        result.note = "ball too short";
    }
    return result;
}

Result style(const LabSession::Options& options, double limit) {
    Bench bench(options, 0.0, 0.0, 0.0);
    if (!bench.ready) {
        return noServer();
    }
    ConfigSkill player;
    bench.mark();
    if (!bench.playThrough(player, "Style", limit) || !bench.playThrough(player, "Stop", 3.0) ||
        !bench.session.idle(0.5)) {
        return noServer();
    }
    Result result;
    result.values = {{"time s", bench.elapsed()}};
    addFall(result, bench);
    result.passed = bench.fellAt < 0.0 && bench.session.standing();
    return result;
}

// The dash towards a point: behind the robot (the about turn) or 5 m away at 90 degrees.
// The dash aims with the player's own position and heading, which come from the landmarks in
// view, and the lab holds the head still. From the centre spot a robot facing a side line sees
// at most one corner flag (they lie 56 degrees off its line of sight, on the edge of the
// camera's 120 degree field), its position freezes and it walks past the point; so the walk to
// the point starts 5 m from the centre line's middle, from where both far corners stay in view
// (45 to 56 degrees off) all the way.
Result dash(bool aboutTurn, const LabSession::Options& options, double limit) {
    Bench bench(options, 0.0, aboutTurn ? 0.0 : -5.0, 0.0);
    if (!bench.ready) {
        return noServer();
    }
    bench.mark();
    const double h = bench.origin.heading * kDegToRad;
    const double distance = aboutTurn ? 3.0 : 5.0;
    const double direction = aboutTurn ? h + math::kPi : h + math::kPi / 2.0;
    const double tx = bench.origin.x + distance * std::cos(direction);
    const double ty = bench.origin.y + distance * std::sin(direction);
    const math::Point target(static_cast<float>(tx), static_cast<float>(ty), 0.0F);
    double doneAt = -1.0;
    while (bench.elapsed() < limit && bench.fellAt < 0.0) {
        DashNormalGotoPoint step(target, bench.session.world(), false);
        std::unique_ptr<Command> command(step.getCommand());
        if (!bench.stepWatching(command.get())) {
            return noServer();
        }
        if (bench.trace) {
            std::cout << "trace dash " << BasicDash::getConfigSkill().getCurrentSkillName()
                      << " turn " << BasicTurn::getConfigSkill().getCurrentSkillName()
                      << " turning " << DashNormalGotoPoint::isActionBoolean() << "\n";
        }
        if (aboutTurn && std::fabs(wrapDegrees(bench.turned() - 180.0)) < 20.0) {
            doneAt = bench.elapsed();
            break;
        }
        if (!aboutTurn && step.isFinished()) {
            doneAt = bench.elapsed();
            break;
        }
    }
    const LabSession::Pose& pose = bench.session.pose();
    Result result;
    result.values = {{"done after s", doneAt},
                     {"turned deg", bench.turned()},
                     {"off target m", std::hypot(pose.x - tx, pose.y - ty)}};
    addFall(result, bench);
    const double allowed = aboutTurn ? 8.0 : 40.0;
    result.passed = bench.fellAt < 0.0 && doneAt >= 0.0 && doneAt <= allowed &&
                    (aboutTurn || std::hypot(pose.x - tx, pose.y - ty) < 0.6);
    if (!result.passed && result.note.empty()) {
        result.note = doneAt < 0.0 ? "not done in time" : "too slow or off target";
    }
    return result;
}

// The "go to targets" course: the dash to five points in turn, each 5 to 5.7 m from the last and
// 37 to 180 degrees off the way the robot faces on arrival, standing still at each before the
// next, head sweeping as in a game. Every transition a game chains (walk, stop, turn, walk on)
// is in it. Stops at the first fall: the dash does not stand up.
Result goToTargets(const LabSession::Options& options, double limit) {
    // From (-8, 0) facing +x: turns of 37, -82, -82, -90 and 180 degrees (metres).
    static const std::vector<std::pair<double, double>> points = {
        {-4.0, 3.0}, {0.0, -1.0}, {-3.0, -5.0}, {-7.0, -2.0}, {-3.0, -5.0}};
    LabSession::Options asInGame = options;
    asInGame.headSweep = true;
    Bench bench(asInGame, -8.0, 0.0, 0.0);
    if (!bench.ready) {
        return noServer();
    }
    bench.mark();
    double fromX = bench.origin.x;
    double fromY = bench.origin.y;
    double legStart = 0.0;
    double reachedMetres = 0.0;
    // Seconds by which the slowest leg overran its allowance (its length at 0.3 m/s, plus 5 s);
    // negative when every leg finished inside it.
    double worstOverrun = -1e9;
    std::size_t leg = 0;
    while (leg < points.size() && bench.elapsed() < limit && bench.fellAt < 0.0) {
        const auto [tx, ty] = points[leg];
        const math::Point target(static_cast<float>(tx), static_cast<float>(ty), 0.0F);
        DashNormalGotoPoint step(target, bench.session.world(), false);
        std::unique_ptr<Command> command(step.getCommand());
        if (!bench.stepWatching(command.get())) {
            return noServer();
        }
        if (step.isFinished()) {
            const double length = std::hypot(tx - fromX, ty - fromY);
            const double took = bench.elapsed() - legStart;
            worstOverrun = std::max(worstOverrun, took - (length / 0.3 + 5.0));
            reachedMetres += length;
            fromX = tx;
            fromY = ty;
            legStart = bench.elapsed();
            ++leg;
        }
    }
    double progress = reachedMetres;
    if (leg < points.size()) {
        // The unfinished leg counts with the part of it already covered.
        const auto [tx, ty] = points[leg];
        const double length = std::hypot(tx - fromX, ty - fromY);
        const LabSession::Pose& pose = bench.session.pose();
        progress += std::max(0.0, length - std::hypot(tx - pose.x, ty - pose.y));
    }
    Result result;
    result.values = {{"legs", static_cast<double>(leg)},
                     {"progress m", progress},
                     {"worst overrun s", leg > 0 ? worstOverrun : bench.elapsed()},
                     {"time s", bench.elapsed()}};
    addFall(result, bench);
    result.passed = bench.fellAt < 0.0 && leg == points.size() && worstOverrun <= 0.0;
    if (!result.passed && result.note.empty()) {
        result.note = leg < points.size() ? "reached " + std::to_string(leg) + " of " +
                                                std::to_string(points.size()) + " points"
                                          : "a leg too slow";
    }
    return result;
}

// A fall as in a game, got up from by the player's own plan: the robot is tipped over (forwards
// for "fall-front", backwards for "fall-back") with its head sweeping as the player drives it,
// and from the first cycle the player's world model reads fallen the attacker plan runs, with
// no pause to lie still, until 2 s after its first stand-up (and "Stop") has ended. Counts the
// stand-ups the plan began and whether the robot is on its feet at the end. Like the stand-up
// trials, each trial starts facing another way. With `walking` the robot first walks for a time
// that differs from trial to trial (0 to 2.25 s in steps of 0.25 s, ten trials in a round), so
// that it is tipped from every phase of the gait and lands as differently as it does in games.
Result fallAndGetUp(bool front, bool walking, const LabSession::Options& options, int trial,
                    double limit) {
    LabSession::Options asInGame = options;
    asInGame.headSweep = true;
    Bench bench(asInGame, 0.0, 0.0, wrapDegrees(37.0 * trial));
    if (!bench.ready) {
        return noServer();
    }
    if (walking) {
        ConfigSkill walker;
        if (!bench.walkFor(walker, kGaitPhaseSeconds * ((trial - 1) % 10), false)) {
            return noServer();
        }
    }
    bench.mark();
    Result result;
    while (!bench.session.world().isFallen() && bench.elapsed() < 4.0) {
        std::unique_ptr<Command> push = tipOver(front, bench.session.world().getSelf()->getBody());
        push->setAllCommands();
        if (!bench.session.step(push.get())) {
            return noServer();
        }
    }
    if (!bench.session.world().isFallen()) {
        result.note = "could not tip the robot over";
        return result;
    }
    bench.mark();
    int standUps = 0;
    bool began = false;
    double endedAt = -1.0;
    double upAt = -1.0;
    // The plan goes on (the attacker walks) for 2 s after its first stand-up has ended.
    while (bench.elapsed() < limit && (endedAt < 0.0 || bench.elapsed() - endedAt < 2.0)) {
        const bool wasStandingUp = OffensePlan::name == "standup";
        const std::unique_ptr<Command> command(bench.session.planAct(3));
        if (!wasStandingUp && OffensePlan::name == "standup") {
            ++standUps;
            began = true;
        }
        if (began && endedAt < 0.0 && OffensePlan::name != "standup") {
            endedAt = bench.elapsed();
        }
        if (bench.trace) {
            std::cout << "trace plan " << OffensePlan::name << " step "
                      << ConfigSkill::getCurrentConfigStepNumber() << " fallen "
                      << bench.session.world().isFallen() << "\n";
        }
        if (!bench.stepWatching(command.get())) {
            return noServer();
        }
        if (bench.session.standing() && upAt < 0.0) {
            upAt = bench.elapsed();
        } else if (!bench.session.standing()) {
            upAt = -1.0;
        }
    }
    const bool up = bench.session.standing();
    result.values = {{"standing after s", up ? upAt : std::nan("")},
                     {"stand-up ended s", endedAt},
                     {"stand-ups", standUps},
                     {"head m", bench.session.pose().headHeight}};
    result.passed = up && standUps == 1;
    if (!result.passed) {
        result.note = up ? "stood up more than once" : "down at the end";
    }
    return result;
}

// The player's own plan for `role` with its head driven as in the game, from the role's
// kick-off position (the "Beam" of its parameter file) with the ball on the centre spot.
// Counts the falls (head below 0.25 m after standing), the time spent down and the stand-ups the
// plan began under the fall rule in force (motion-lab --fall-rule), with the torso's tilt at
// each beginning. With `untilGoal` the trial ends at the first goal (the whole ball over a goal
// line between the posts), timed from the kick-off.
Result game(int role, const LabSession::Options& options, double limit, bool untilGoal) {
    const std::string roleFile = AgentModel::roleFile(role);
    const ConfigValue& beam = config[roleFile]["Initialize"]["Beam"];
    if (beam.size() < 3) {
        Result result;
        result.note = roleFile + " has no Beam x y rotation";
        return result;
    }
    const auto word = [&beam](unsigned int i) {
        return static_cast<double>(beam[i].b_value(0.0F));
    };
    LabSession::Options asInGame = options;
    asInGame.headSweep = true;
    Bench bench(asInGame, word(0), word(1), word(2));
    if (!bench.ready) {
        return noServer();
    }
    bench.session.placeBall(0.0, 0.0);
    bench.mark();
    int falls = 0;
    bool down = false;
    double downSeconds = 0.0;
    double lastTime = bench.session.now();
    // Stand-ups the plan began, how many of them on a robot that was on its feet (the landmark
    // fall rule also fires on far landmarks), and the highest the head was at a beginning.
    int standUps = 0;
    int standUpsOnFeet = 0;
    double highestHead = std::nan("");
    const std::string& doing = role == 1   ? GoalKeeperPlan::name
                               : role == 2 ? DefencePlan::name
                                           : OffensePlan::name;
    // The stand-up skills' runs past their first key frame, by side, and how many of them the
    // plan left with the robot up: a failed run ends on the ground and the plan runs another.
    std::map<std::string, std::pair<int, int>> tries;  // skill -> (runs, up)
    std::string trying;
    std::string lastSkill;
    unsigned int lastStep = 0;
    // Seconds to the first goal: into the opponents' goal (+x, the lab's team plays on the
    // left) counts, into the own goal is reported as a negative time.
    double goalAt = 0.0;
    const auto goalLine = static_cast<double>(Pitch::halfLength()) + LabSession::kBallRadius;
    while (bench.elapsed() < limit && goalAt == 0.0) {
        const bool wasStandingUp = doing == "standup";
        const bool wasKicking = doing == "kick";
        const bool onFeet = bench.session.standing();
        const std::unique_ptr<Command> command(bench.session.planAct(role));
        if (bench.trace && !wasKicking && doing == "kick") {
            // Where the ball lies as the kick begins, x along the body's heading, y to its left,
            // from the server's position of the head: with the head panned off straight that is
            // a few centimetres beside the body's centre line.
            const LabSession::Pose& pose = bench.session.pose();
            const double dx = bench.session.ballX() - pose.x;
            const double dy = bench.session.ballY() - pose.y;
            const double h = pose.heading * kDegToRad;
            std::cout << "trace kick begins, ball from the head "
                      << dx * std::cos(h) + dy * std::sin(h) << " m ahead, "
                      << -dx * std::sin(h) + dy * std::cos(h) << " m left\n";
        }
        const std::string& skill = BasicStandUp::getConfigSkill().getCurrentSkillName();
        const unsigned int step = ConfigSkill::getCurrentConfigStepNumber();
        if (doing == "standup" && skill != skillname::kStop && skill == lastSkill &&
            lastStep == 0 && step == 1) {
            trying = skill;
            ++tries[trying].first;
        }
        lastSkill = doing == "standup" ? skill : "";
        lastStep = step;
        if (wasStandingUp && doing != "standup" && !trying.empty()) {
            ++tries[trying].second;
            trying.clear();
        }
        if (!wasStandingUp && doing == "standup") {
            const double head = bench.session.pose().headHeight;
            ++standUps;
            standUpsOnFeet += onFeet ? 1 : 0;
            highestHead = std::isnan(highestHead) ? head : std::max(highestHead, head);
            if (bench.trace) {
                std::cout << "trace stand-up begins, head " << head << " m\n";
            }
        }
        if (bench.trace) {
            std::cout << "trace plan " << (doing.empty() ? "-" : doing);
            if (doing == "standup") {
                std::cout << " " << BasicStandUp::getConfigSkill().getCurrentSkillName();
            } else if (doing == "dash") {
                std::cout << " "
                          << (DashNormalGotoPoint::isActionBoolean()
                                  ? BasicTurn::getConfigSkill().getCurrentSkillName()
                                  : BasicDash::getConfigSkill().getCurrentSkillName());
            }
            std::cout << " step " << ConfigSkill::getCurrentConfigStepNumber() << " fallen "
                      << bench.session.world().isFallen() << " head "
                      << bench.session.pose().headHeight << "\n";
        }
        if (!bench.stepWatching(command.get())) {
            return noServer();
        }
        if (bench.session.fallen()) {
            falls += down ? 0 : 1;
            down = true;
            downSeconds += bench.session.now() - lastTime;
        } else if (bench.session.standing()) {
            down = false;
        }
        lastTime = bench.session.now();
        if (untilGoal && std::fabs(bench.session.ballX()) > goalLine &&
            std::fabs(bench.session.ballY()) < static_cast<double>(Pitch::goalWidth()) / 2.0) {
            goalAt = std::copysign(bench.elapsed(), bench.session.ballX());
        }
    }
    Result result;
    const double ballTravel = bench.session.ballX();
    if (untilGoal) {
        result.values = {{"goal after s", goalAt > 0.0 ? goalAt : -1.0},
                         {"falls", falls},
                         {"stand-ups", standUps},
                         {"down s", downSeconds},
                         {"ball x m", ballTravel},
                         {"back runs", tries[skillname::kBackStandUp].first},
                         {"back up", tries[skillname::kBackStandUp].second},
                         {"front runs", tries[skillname::kFrontStandUp].first},
                         {"front up", tries[skillname::kFrontStandUp].second}};
        result.passed = goalAt > 0.0;
        if (!result.passed) {
            result.note = goalAt < 0.0 ? "own goal" : "no goal";
        }
        return result;
    }
    result.values = {{"falls", falls},
                     {"down s", downSeconds},
                     {"stand-ups", standUps},
                     {"on feet", standUpsOnFeet},
                     {"highest head m", highestHead},
                     {"forward m", bench.forward()},
                     {"sideways m", bench.leftward()},
                     {"ball x m", ballTravel},
                     {"time s", bench.elapsed()}};
    // The attacker must also have got the ball moving towards the opponents' goal.
    result.passed = falls == 0 && (role != 3 || ballTravel >= 1.0);
    if (!result.passed) {
        result.note = falls > 0 ? "fell " + std::to_string(falls) + " times" : "ball not kicked";
    }
    return result;
}

bool isTurn(const std::string& motion) {
    static const std::vector<std::string> sizes = {"40", "30", "25", "15", "10", "5"};
    for (const std::string& size : sizes) {
        if (motion == "TurnLeft" + size || motion == "TurnRight" + size) {
            return true;
        }
    }
    return false;
}

}  // namespace

double Result::value(const std::string& name) const {
    for (const auto& [key, v] : values) {
        if (key == name) {
            return v;
        }
    }
    return std::nan("");
}

std::vector<std::string> motions() {
    std::vector<std::string> all = {"Walk",         "ShortWalk",          "Stop",
                                    "LeftSideWalk", "RightSideWalk",      "FrontStandUp",
                                    "BackStandUp",  "LeftKick",           "Style",
                                    "dash-turn",    "dash-point",         "goalkeeper",
                                    "defender",     "attacker",           "standup-walking",
                                    "fall-front",   "fall-back",          "go-to-targets",
                                    "score",        "fall-front-walking", "fall-back-walking"};
    for (const char* side : {"TurnLeft", "TurnRight"}) {
        for (const char* size : {"40", "30", "25", "15", "10", "5"}) {
            all.push_back(std::string(side) + size);
        }
    }
    return all;
}

bool known(const std::string& motion) {
    for (const std::string& name : motions()) {
        if (name == motion) {
            return true;
        }
    }
    return false;
}

std::string target(const std::string& motion) {
    static const std::map<std::string, std::string> targets = {
        {"Walk", "10 m forward at 0.30 m/s or more, drift at most 10 deg per 5 m, no fall"},
        {"ShortWalk", "2 m forward at 0.10 m/s or more, no fall"},
        {"Stop", "still within 1 s of interrupting the walk, no fall"},
        {"LeftSideWalk", "2 m to the left at 0.08 m/s or more, no fall"},
        {"RightSideWalk", "2 m to the right at 0.08 m/s or more, no fall"},
        {"FrontStandUp", "standing within 5 s from lying face down"},
        {"BackStandUp", "standing within 5 s from lying on the back"},
        {"LeftKick", "ball at the left foot travels 4 m or more forward, no fall"},
        {"Style", "ends standing"},
        {"dash-turn", "the dash turns about (180 deg) within 8 s, no fall"},
        {"dash-point", "the dash reaches a point 5 m away at 90 deg within 40 s, no fall"},
        {"go-to-targets",
         "the dash to 5 points 5-5.7 m apart with turns of 37-180 deg, each leg within its "
         "length at 0.3 m/s plus 5 s, no fall"},
        {"goalkeeper", "the player's goalkeeper plan from kick-off, no fall"},
        {"defender", "the player's defender plan from kick-off, no fall"},
        {"attacker", "the player's attacker plan from kick-off: no fall, ball 1 m or more forward"},
        {"score", "the player's attacker plan alone from kick-off scores within 180 s"},
        {"fall-front", "tipped forwards, head sweeping: the attacker plan gets it up at once"},
        {"fall-back", "tipped backwards, head sweeping: the attacker plan gets it up at once"},
        {"fall-front-walking", "as fall-front, tipped after walking 0-2.25 s (by trial)"},
        {"fall-back-walking", "as fall-back, tipped after walking 0-2.25 s (by trial)"},
        {"standup-walking",
         "no fall alarm while walking (fall rule Attitude); the player's stand-up and Stop "
         "played by the walking robot (as after a false alarm) end standing"}};
    const auto found = targets.find(motion);
    if (found != targets.end()) {
        return found->second;
    }
    return "turns the named angle within 30 percent and ends standing";
}

Result run(const std::string& motion, const LabSession::Options& options, int trial,
           double seconds) {
    const auto limit = [seconds](double standard) { return seconds > 0.0 ? seconds : standard; };
    if (motion == "Walk") {
        return walk("Walk", 10.0, limit(40.0), 0.30, options);
    }
    if (motion == "ShortWalk") {
        return walk("ShortWalk", 2.0, limit(25.0), 0.10, options);
    }
    if (motion == "Stop") {
        return stop(options, trial, limit(4.0));
    }
    if (motion == "LeftSideWalk" || motion == "RightSideWalk") {
        return side(motion, options, limit(30.0));
    }
    if (motion == "FrontStandUp" || motion == "BackStandUp") {
        return standUp(motion, options, trial, limit(5.0));
    }
    if (motion == "LeftKick") {
        return kick(options, limit(6.0));
    }
    if (motion == "Style") {
        return style(options, limit(10.0));
    }
    if (motion == "dash-turn") {
        return dash(true, options, limit(20.0));
    }
    if (motion == "dash-point") {
        return dash(false, options, limit(60.0));
    }
    if (motion == "go-to-targets") {
        return goToTargets(options, limit(180.0));
    }
    if (motion == "standup-walking") {
        return standUpWhileWalking(options, trial, limit(12.0));
    }
    if (motion.starts_with("fall-front") || motion.starts_with("fall-back")) {
        return fallAndGetUp(motion.starts_with("fall-front"), motion.ends_with("-walking"), options,
                            trial, limit(10.0));
    }
    if (isTurn(motion)) {
        return turn(motion, options, limit(6.0));
    }
    if (motion == "goalkeeper" || motion == "defender" || motion == "attacker") {
        const int role = motion == "goalkeeper" ? 1 : motion == "defender" ? 2 : 3;
        return game(role, options, limit(45.0), false);
    }
    if (motion == "score") {
        return game(3, options, limit(180.0), true);
    }
    Result unknown;
    unknown.note = "unknown motion";
    return unknown;
}

}  // namespace trials
