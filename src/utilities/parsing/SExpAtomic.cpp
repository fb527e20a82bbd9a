#include "utilities/parsing/SExpAtomic.h"

#include "utilities/parsing/SExpError.h"

namespace {
const char* const atomSignature = "SExpAtomic::SExpAtomic(const std::string&, unsigned int&)";

bool isSeparator(char c) {
    return c == ' ' || c == '\t' || c == '(' || c == ')';
}
}  // namespace

SExpAtomic::SExpAtomic(const std::string& value, unsigned int& pos) : value(atomText(value, pos)) {}

SExpAtomic::~SExpAtomic() = default;

std::string SExpAtomic::toString() const {
    return value.getValue();
}

std::string SExpAtomic::atomText(const std::string& value, unsigned int& pos) {
    if (pos >= value.length()) {
        throw SExpError("pos < value.length()", "SExpression", 22, atomSignature);
    }
    // The first separator at or after pos, or the end of the text.
    std::string::size_type end = pos;
    while (end < value.length() && !isSeparator(value[end])) {
        ++end;
    }
    if (end == pos) {
        throw SExpError("end > pos", "SExpression", 27, atomSignature);
    }
    const unsigned int start = pos;
    pos = static_cast<unsigned int>(end - 1);
    return value.substr(start, end - start);
}
