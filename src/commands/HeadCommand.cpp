#include "commands/HeadCommand.h"

#include "body/JointNames.h"

HeadCommand::HeadCommand() : HeadCommand(Side(0), Head(Side(0))) {}

HeadCommand::HeadCommand(Side side, const Head& head)
    : LimbCommand(side, head, JointNames::effectorNames(BodyPart::Head)) {}

HeadCommand::HeadCommand(Side side, const Head* head) : HeadCommand(side, *head) {}

HeadCommand::HeadCommand(Side side, const Head& head, const HeadCommand& last)
    : HeadCommand(side, head) {
    setCurrentLastHeadCommand(last);
}

HeadCommand::HeadCommand(Side side, const Head* head, const HeadCommand& last)
    : HeadCommand(side, *head, last) {}
