#pragma once

#include <string>
#include <vector>

#include "utilities/config/Str.h"

// The value of one configuration key: the text as written (comment and surrounding blanks
// removed) and its words. A value also knows where it is stored (configuration, group and key)
// so that a misuse such as a word index past the end names the key to fix.
class ConfigValue {
public:
    // A value without text and without words.
    ConfigValue() = default;
    // Stores `text` and splits it at blanks (spaces and tabs); an empty text gives one empty word.
    explicit ConfigValue(const std::string& text);
    ConfigValue(const ConfigValue&) = default;
    ConfigValue(ConfigValue&&) = default;
    ConfigValue& operator=(const ConfigValue&) = default;
    ConfigValue& operator=(ConfigValue&&) = default;
    virtual ~ConfigValue() = default;

    // All words with their spacing as written.
    const std::string& asString() const;
    // The number of words.
    int size() const;
    // Word i; an index outside [0, size()) is a fatal configuration error naming the key.
    const Str& operator[](int i) const;

    // Word 0 converted leniently (see Str); the value must have a word.
    float asFloat() const;
    int asInt() const;
    bool asBool() const;
    char asChar() const;

    // Where the value is stored; used in diagnostics. ConfigGroup::add sets it.
    void setLocation(const std::string& configuration, const std::string& group,
                     const std::string& keyName);
    const std::string& getConfigurationName() const { return configurationName; }
    const std::string& getGroupName() const { return groupName; }
    const std::string& getKey() const { return key; }
    // The file and 1-based line the value was read from; empty and 0 for a value set otherwise
    // (command line, tests). ConfigFile::readFile sets it.
    void setSource(const std::string& file, int line);
    const std::string& getSourceFile() const { return sourceFile; }
    int getSourceLine() const { return sourceLine; }

private:
    std::string text;
    std::vector<Str> values;
    std::string configurationName;
    std::string groupName;
    std::string key;
    std::string sourceFile;
    int sourceLine = 0;
};
