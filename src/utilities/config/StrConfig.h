#pragma once

#include <string>

// A text with strict conversions: text that does not convert stops the program with a
// diagnostic (see ConfigError.h). Unlike Str, integers follow C's base prefixes (0x hexadecimal,
// leading 0 octal).
class StrConfig {
public:
    explicit StrConfig(const std::string& value);
    StrConfig(const StrConfig&) = default;
    StrConfig(StrConfig&&) = default;
    StrConfig& operator=(const StrConfig&) = default;
    StrConfig& operator=(StrConfig&&) = default;
    virtual ~StrConfig() = default;

    const std::string& asString() const;
    // strtof; at least one character must convert.
    float asFloat() const;
    // strtol with base 0; at least one character must convert.
    int asInt() const;
    // The text must be exactly one character.
    char asChar() const;
    // The text, lower-cased, must be "true", "1", "false" or "0".
    bool asBool() const;

private:
    std::string value;
};
