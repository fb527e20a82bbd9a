#include "commands/Command.h"

#include "body/Body.h"

float Command::time = -1.0F;

const std::string Command::kAllZeroText =
    "(he1 0) (he2 0)(rae1 0) (rae2 0) (rae3 0) (rae4 0)(lae1 0) (lae2 0) (lae3 0) (lae4 0)"
    "(rle1 0) (rle2 0) (rle3 0) (rle4 0) (rle5 -0) (rle6 0)"
    "(lle1 0) (lle2 0) (lle3 0) (lle4 0) (lle5 -0) (lle6 0)";

namespace {

const Body& zeroBody() {
    static const Body body;
    return body;
}

}  // namespace

Command::Command(const Body* body)
    : head(Side(0), *body->getHead()),
      rightArm(Side(2), *body->getRightArm()),
      leftArm(Side(1), *body->getLeftArm()),
      rightLeg(Side(2), *body->getRightLeg()),
      leftLeg(Side(1), *body->getLeftLeg()) {}

Command::Command(const Body* body, const Command& last)
    : head(Side(0), *body->getHead(), last.head),
      rightArm(Side(2), *body->getRightArm(), last.rightArm),
      leftArm(Side(1), *body->getLeftArm(), last.leftArm),
      rightLeg(Side(2), *body->getRightLeg(), last.rightLeg),
      leftLeg(Side(1), *body->getLeftLeg(), last.leftLeg) {}

Command::Command(Command* other) : Command(&zeroBody()) {
    if (other == nullptr) {
        return;
    }
    sendCommand = other->sendCommand;
    head = other->head;
    rightArm = other->rightArm;
    leftArm = other->leftArm;
    rightLeg = other->rightLeg;
    leftLeg = other->leftLeg;
    say = other->say;
}

void Command::setCurrentBody(const Body& body) {
    head.setCurrentHead(*body.getHead());
    rightArm.setCurrentArm(*body.getRightArm());
    leftArm.setCurrentArm(*body.getLeftArm());
    rightLeg.setCurrentLeg(*body.getRightLeg());
    leftLeg.setCurrentLeg(*body.getLeftLeg());
}

void Command::setCurrentLastCommand(const Command* last) {
    if (last == nullptr) {
        return;
    }
    head.setCurrentLastHeadCommand(last->head);
    rightArm.setCurrentLastArmCommand(last->rightArm);
    leftArm.setCurrentLastArmCommand(last->leftArm);
    rightLeg.setCurrentLastLegCommand(last->rightLeg);
    leftLeg.setCurrentLastLegCommand(last->leftLeg);
}

void Command::setAllCommands() {
    if (!sendCommand) {
        return;
    }
    head.setJointsCommandAlphaValue();
    rightArm.setJointsCommandAlphaValue();
    leftArm.setJointsCommandAlphaValue();
    rightLeg.setJointsCommandAlphaValue();
    leftLeg.setJointsCommandAlphaValue();
}

void Command::setHeadJointsCommands() {
    head.setJointsCommandAlphaValue();
}

void Command::doWait(float waitSeconds, float now) {
    if (time == -1.0F) {
        time = now;
    }
    sendCommand = !(now - time < waitSeconds);
}

Body Command::toBody() const {
    Body body;
    body.setHead(head.toHead());
    body.setRightArm(rightArm.toArm());
    body.setLeftArm(leftArm.toArm());
    body.setRightLeg(rightLeg.toLeg());
    body.setLeftLeg(leftLeg.toLeg());
    return body;
}

std::string Command::toString() const {
    if (!sendCommand) {
        return kAllZeroText;
    }
    return head.toString() + rightArm.toString() + leftArm.toString() + rightLeg.toString() +
           leftLeg.toString() + say.toString();
}
