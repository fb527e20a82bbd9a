#pragma once

#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "math/Vector3.h"

// A text with lenient typed conversions: configuration words, atoms of server messages and
// numbers formatted for effector text. Conversions never fail; text that is not a number reads
// as 0 (or as its valid prefix).
//
// Float lists are written as elements each followed by "|", e.g. "1|2.5|0|".
class Str {
public:
    Str() = default;

    // `value` becomes what a default-formatted std::ostringstream makes of `v`: strings are
    // copied, integers written in decimal, floats written as doubles with 6 significant digits.
    template <typename T>
    requires(!std::is_base_of_v<Str, T>)
        Str(const T& v) {  // NOLINT(google-explicit-constructor): any printable value is a Str
        std::ostringstream out;
        if constexpr (std::is_same_v<T, float>) {
            out << static_cast<double>(v);
        } else {
            out << v;
        }
        value = out.str();
    }

    // Strings are taken as they are, without building a stream: every atom of every server
    // message becomes a Str, and a stream per atom would cost more than the whole parse.
    Str(const std::string& v) : value(v) {}  // NOLINT(google-explicit-constructor)

    // "x|y|z|", each component formatted as a float above.
    Str(const math::Vector3<float>& v);  // NOLINT(google-explicit-constructor)

    Str(const Str&) = default;
    Str(Str&&) = default;
    Str& operator=(const Str&) = default;
    Str& operator=(Str&&) = default;
    virtual ~Str() = default;

    // The argument only selects the result type; its value is ignored.
    std::string b_value(const std::string& type) const;
    // strtof of the text; the exact text "nan" gives 0.
    float b_value(float type) const;
    // strtod of the text.
    double b_value(double type) const;
    // strtol in base 10 ("12.7" gives 12, "0x10" gives 0).
    int b_value(int type) const;
    // As for int, then converted to unsigned.
    unsigned int b_value(unsigned int type) const;
    // True for "true" (in any case) and "1", false for anything else.
    bool b_value(bool type) const;
    // The first character, or '\0' for an empty text.
    char b_value(char type) const;
    // Elements 0, 1 and 2 of the float list; missing elements read as 0.
    math::Vector3<float> b_value(const math::Vector3<float>& type) const;
    // The float list. No "|" at all gives an empty list; an element after the last "|" is kept.
    template <typename T>
    std::vector<T> b_value(const std::vector<T>& type) const;

    const std::string& getValue() const { return value; }

private:
    std::string value;
};

template <>
std::vector<float> Str::b_value<float>(const std::vector<float>& type) const;
