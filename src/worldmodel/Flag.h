#pragma once

#include "objects/StaticObject.h"
#include "utilities/config/Config.h"
#include "worldmodel/FlagType.h"

/// A landmark of the field: a corner flag or a goal post, at height 0. Its position follows from
/// its type and the field's size, read from "WorldModelParameters" / "Field": "Length",
/// "Width" and "GoalWidth" (metres).
class Flag : public StaticObject {
public:
    /// Starts at (0, 0, 0), then takes its type's position (`setFlagType`).
    explicit Flag(FlagType type);
    ~Flag() override = default;

    /// Stores `type` and moves the flag to that landmark's position, reading the field size
    /// afresh on every call. A value outside 0 to 7 leaves the position unchanged.
    virtual void setFlagType(FlagType type);
    FlagType getFlagType() const { return type; }

private:
    Config config;
    FlagType type;
};
