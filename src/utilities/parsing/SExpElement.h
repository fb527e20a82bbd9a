#pragma once

#include <cstdlib>
#include <string>

#include "utilities/logging/Debugger.h"

/// One node of a parsed server message: an atom (`SExpAtomic`) or a list (`SExpression`).
class SExpElement {
public:
    /// Node kinds returned by `type()`.
    static constexpr int atomType = 0;
    static constexpr int listType = 1;

    SExpElement() = default;
    virtual ~SExpElement() = default;
    SExpElement(const SExpElement&) = delete;
    SExpElement& operator=(const SExpElement&) = delete;

    /// 0 for an atom, 1 for a list.
    virtual int type() const = 0;
    /// The node as text: an atom's own text; a list as "(", " " + each element, " )".
    virtual std::string toString() const = 0;

    /// True when this node is a `T`.
    template <class T>
    bool is() const {
        return dynamic_cast<const T*>(this) != nullptr;
    }

    /// This node as a `T`. Calling it on a node of another kind is a program error: it fails the
    /// check "tmp != NULL" on "Main" and stops the program. Readers of untrusted text test with
    /// `is<T>()` first (or use `SExpression::atomAt`, which throws `SExpError` instead).
    template <class T>
    const T& as() const {
        const T* tmp = dynamic_cast<const T*>(this);
        Debugger::assrt("Main", "../Utilities/SExpression", 35, "tmp != NULL", tmp != nullptr);
        if (tmp == nullptr) {
            std::abort();  // not reached: the failed check has stopped the program
        }
        return *tmp;
    }
};
