#include "commands/ArmCommand.h"

#include "body/JointNames.h"

ArmCommand::ArmCommand() : ArmCommand(Side(1), Arm(Side(1))) {}

ArmCommand::ArmCommand(Side side, const Arm& arm)
    : LimbCommand(side, arm, JointNames::effectorNames(JointNames::armOf(side))) {}

ArmCommand::ArmCommand(Side side, const Arm* arm) : ArmCommand(side, *arm) {}

ArmCommand::ArmCommand(Side side, const Arm& arm, const ArmCommand& last) : ArmCommand(side, arm) {
    setCurrentLastArmCommand(last);
}

ArmCommand::ArmCommand(Side side, const Arm* arm, const ArmCommand& last)
    : ArmCommand(side, *arm, last) {}
