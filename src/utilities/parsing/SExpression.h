#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "utilities/parsing/SExpAtomic.h"
#include "utilities/parsing/SExpElement.h"

/// One parenthesised list of a parsed message: its elements (atoms and lists) in textual order,
/// and an index of its child lists by the atom at their head.
///
/// Grammar: a list is "(" elements ")"; a space or a tab separates elements; any other byte
/// other than a parenthesis belongs to an atom (line feeds included). An atom may touch a
/// parenthesis: "(a(b))" holds the atom "a" and the list "(b)".
///
/// Malformed text is signalled by throwing `SExpError` (never by stopping the program): a list
/// that does not start with "(", a text that ends before a list is closed, lists nested deeper
/// than `maxDepth`, and, for `parse`, bytes after the closing parenthesis. A tree is built once
/// and only read afterwards; it owns its elements.
class SExpression : public SExpElement {
public:
    /// Deepest nesting of lists accepted (the outermost list counts as 1). Server messages nest
    /// a handful of levels; the limit keeps hostile input from exhausting the stack.
    static constexpr unsigned int maxDepth = 256;

    /// Reads the list of `value` whose opening parenthesis is at `pos`; afterwards `pos` is the
    /// position of its closing parenthesis. Text after it is not read. Throws `SExpError` when
    /// the list does not start at `pos` ("value[pos] == '('"), when the text ends before the
    /// list is closed ("i < value.length()") or when lists nest deeper than `maxDepth`
    /// ("depth <= maxDepth").
    SExpression(const std::string& value, unsigned int& pos);
    ~SExpression() override;

    /// Reads `text` as exactly one list: as the constructor from position 0, and in addition
    /// the list must end at the last byte of the text ("pos + 1 == value.length()"), so an
    /// unbalanced closing parenthesis is an error too. Throws `SExpError`; never returns null.
    static std::unique_ptr<SExpression> parse(const std::string& text);

    int type() const override { return listType; }
    std::string toString() const override;

    /// The number of elements.
    unsigned int size() const { return static_cast<unsigned int>(elements.size()); }

    /// The element at `index` (0 is the head). Throws `SExpError`
    /// ("index >= 0 && index < elements.size()") when `index` is not below `size()`.
    SExpElement* operator[](unsigned int index) const;

    /// The child lists whose first element is the atom `header` (exact, case-sensitive), in
    /// textual order; empty when there is none.
    std::vector<const SExpression*> operator[](const std::string& header) const;

    /// How many child lists begin with the atom `header`.
    int numSExpWithHeader(const std::string& header) const;

    /// The first child list that begins with the atom `header`, or null when there is none.
    /// (The same as the first entry of `operator[](header)`, without building a vector.)
    const SExpression* firstWithHeader(const std::string& header) const;

    /// The element at `index` as an atom, for readers of untrusted text. Throws `SExpError`
    /// when `index` is not below `size()` (as `operator[]`) or when the element is a list
    /// ("elements[index]->is<SExpAtomic>()").
    const SExpAtomic& atomAt(unsigned int index) const;

private:
    SExpression(const std::string& value, unsigned int& pos, unsigned int depth);

    void appendText(std::string& out) const;

    std::vector<std::unique_ptr<SExpElement>> elements;
    // The child lists headed by an atom, in textual order: the head atom's text (owned by that
    // child, so it lives as long as this list) and the child's index in `elements`. Kept flat
    // rather than as a map from header to indices: a list has few children, and this costs one
    // allocation per list instead of two per distinct header, which matters at one message
    // per 20 ms with hundreds of lists.
    std::vector<std::pair<const std::string*, int>> headerIndex;
};
