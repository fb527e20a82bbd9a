#pragma once

#include <string>

#include "utilities/config/Str.h"
#include "utilities/parsing/SExpElement.h"

/// One atom of a parsed message: a run of bytes other than space, tab and parentheses.
/// Its text is read as whatever type the reader needs through `getValue()` (`Str::b_value`).
class SExpAtomic : public SExpElement {
public:
    /// Reads the atom of `value` that starts at `pos`; afterwards `pos` is the position of the
    /// atom's last byte. Throws `SExpError` when `pos` is not below the text's length
    /// ("pos < value.length()") or when `pos` holds a separator, so that the atom would be empty
    /// ("end > pos").
    SExpAtomic(const std::string& value, unsigned int& pos);
    ~SExpAtomic() override;

    int type() const override { return atomType; }
    std::string toString() const override;

    const Str& getValue() const { return value; }

private:
    /// Checks the start, finds the atom's end, moves `pos` to its last byte, returns its text.
    static std::string atomText(const std::string& value, unsigned int& pos);

    // Held by value: one allocation less per atom, and messages have hundreds of atoms.
    Str value;
};
