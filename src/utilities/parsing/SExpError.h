#pragma once

#include <stdexcept>
#include <string>

/// A text that is not a well-formed S-expression, or a list read past its end.
///
/// The parser and the index operator of `SExpression` throw this instead of stopping the
/// program, so that the reader of a server message can drop the whole message and keep its
/// previous state. Nothing half-built is ever handed out: a constructor that throws frees what
/// it had already read.
///
/// `what()` has the form of a standard assertion report, e.g.
///   SExpression:52: SExpression::SExpression(const std::string&, unsigned int&): Assertion
///   `i < value.length()' failed.
/// (on one line). Left uncaught it ends the program like a failed assertion would.
class SExpError : public std::runtime_error {
public:
    SExpError(const std::string& condition, const std::string& source, int line,
              const std::string& function);

    /// The violated condition, e.g. "i < value.length()".
    const std::string& getCondition() const { return condition; }
    /// The reporting unit, e.g. "SExpression".
    const std::string& getSource() const { return source; }
    int getLine() const { return line; }
    /// The full signature of the operation whose check failed.
    const std::string& getFunction() const { return function; }

private:
    std::string condition;
    std::string source;
    int line;
    std::string function;
};
