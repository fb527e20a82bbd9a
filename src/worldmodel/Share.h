#pragma once

class Command;

/// Two process-wide values shared between the agent loop, the skills and the world model. No
/// instances.
class Share {
public:
    Share() = delete;

    /// The whole-body command sent last (null at first). Owning: whoever replaces it deletes the
    /// previous one.
    static Command* lastCommand;
    /// Set by the self-localisation when at least two landmarks fixed the heading in the current
    /// message, cleared otherwise.
    static bool bodyDir;

    /// Restores the start-of-process values: `lastCommand` null and `bodyDir` false. It does not
    /// delete the command: this layer cannot see `Command`, so the owner deletes it first.
    static void resetState();
};
