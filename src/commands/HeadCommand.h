#pragma once

#include "body/Head.h"
#include "commands/LimbCommand.h"

// Commands for the two neck joints, printed as "he1" and "he2".
class HeadCommand : public LimbCommand<Head, 2> {
public:
    HeadCommand();
    HeadCommand(Side side, const Head& head);
    HeadCommand(Side side, const Head* head);
    HeadCommand(Side side, const Head& head, const HeadCommand& last);
    HeadCommand(Side side, const Head* head, const HeadCommand& last);

    HingeJointCommand& getNeckXCommand() { return getHingeJointCommand(0); }
    HingeJointCommand& getNeckYCommand() { return getHingeJointCommand(1); }

    void setCurrentHead(const Head& head) { setCurrentLimb(head); }
    void setCurrentLastHeadCommand(const HeadCommand& last) { setCurrentLastLimbCommand(last); }
    [[nodiscard]] Head toHead() const { return toLimb(); }
};
