#pragma once

// Counts the changes to the configuration store: every key written, group or configuration
// added, and every emptying of the store moves it on. Values read from the store and kept
// (ConfigSetting) are read again when the count has moved since.
//
// The count only ever grows, also across resets of the store (which count as a change), so a
// kept value can never look current after the store changed.
class ConfigRevision {
public:
    ConfigRevision() = delete;

    [[nodiscard]] static unsigned long current();
    static void advance();
};
