#include "utilities/parsing/SExpression.h"

#include <limits>

#include "utilities/parsing/SExpError.h"

namespace {
const char* const source = "SExpression";
const char* const listSignature = "SExpression::SExpression(const std::string&, unsigned int&)";
const char* const indexSignature = "SExpElement* SExpression::operator[](unsigned int) const";
const char* const atomAtSignature = "const SExpAtomic& SExpression::atomAt(unsigned int) const";
const char* const parseSignature =
    "static std::unique_ptr<SExpression> SExpression::parse(const std::string&)";
}  // namespace

SExpression::SExpression(const std::string& value, unsigned int& pos)
    : SExpression(value, pos, 1) {}

SExpression::SExpression(const std::string& value, unsigned int& pos, unsigned int depth) {
    // Positions are unsigned int; a longer text could make them wrap around.
    if (value.length() >= std::numeric_limits<unsigned int>::max()) {
        throw SExpError("value.length() < UINT_MAX", source, 45, listSignature);
    }
    if (pos >= value.length() || value[pos] != '(') {
        throw SExpError("value[pos] == '('", source, 47, listSignature);
    }
    if (depth > maxDepth) {
        throw SExpError("depth <= maxDepth", source, 49, listSignature);
    }
    unsigned int i = pos;
    while (true) {
        ++i;
        if (i >= value.length()) {
            throw SExpError("i < value.length()", source, 52, listSignature);
        }
        const char c = value[i];
        if (c == ')') {
            pos = i;
            return;
        }
        if (c == '(') {
            auto child = std::unique_ptr<SExpression>(new SExpression(value, i, depth + 1));
            const SExpression& list = *child;
            elements.push_back(std::move(child));
            if (!list.elements.empty() && list.elements.front()->type() == atomType) {
                const auto& head = static_cast<const SExpAtomic&>(*list.elements.front());
                headerIndex.emplace_back(&head.getValue().getValue(),
                                         static_cast<int>(elements.size() - 1));
            }
        } else if (c != ' ' && c != '\t') {
            elements.push_back(std::make_unique<SExpAtomic>(value, i));
        }
    }
}

SExpression::~SExpression() = default;

std::unique_ptr<SExpression> SExpression::parse(const std::string& text) {
    unsigned int pos = 0;
    auto root = std::make_unique<SExpression>(text, pos);
    if (pos + 1 != text.length()) {
        throw SExpError("pos + 1 == value.length()", source, 60, parseSignature);
    }
    return root;
}

std::string SExpression::toString() const {
    std::string out;
    appendText(out);
    return out;
}

void SExpression::appendText(std::string& out) const {
    out += '(';
    for (const auto& element : elements) {
        out += ' ';
        if (element->type() == listType) {
            static_cast<const SExpression&>(*element).appendText(out);
        } else {
            out += element->toString();
        }
    }
    out += " )";
}

SExpElement* SExpression::operator[](unsigned int index) const {
    if (index >= elements.size()) {
        throw SExpError("index >= 0 && index < elements.size()", source, 98, indexSignature);
    }
    return elements[index].get();
}

std::vector<const SExpression*> SExpression::operator[](const std::string& header) const {
    std::vector<const SExpression*> lists;
    for (const auto& [head, index] : headerIndex) {
        if (*head == header) {
            lists.push_back(static_cast<const SExpression*>(elements[index].get()));
        }
    }
    return lists;
}

int SExpression::numSExpWithHeader(const std::string& header) const {
    int count = 0;
    for (const auto& entry : headerIndex) {
        if (*entry.first == header) {
            ++count;
        }
    }
    return count;
}

const SExpression* SExpression::firstWithHeader(const std::string& header) const {
    for (const auto& [head, index] : headerIndex) {
        if (*head == header) {
            return static_cast<const SExpression*>(elements[index].get());
        }
    }
    return nullptr;
}

const SExpAtomic& SExpression::atomAt(unsigned int index) const {
    if (index >= elements.size()) {
        throw SExpError("index >= 0 && index < elements.size()", source, 98, atomAtSignature);
    }
    if (elements[index]->type() != atomType) {
        throw SExpError("elements[index]->is<SExpAtomic>()", source, 110, atomAtSignature);
    }
    return static_cast<const SExpAtomic&>(*elements[index]);
}
