#include "utilities/parsing/SExpError.h"

SExpError::SExpError(const std::string& condition, const std::string& source, int line,
                     const std::string& function)
    : std::runtime_error(source + ":" + std::to_string(line) + ": " + function + ": Assertion `" +
                         condition + "' failed."),
      condition(condition),
      source(source),
      line(line),
      function(function) {}
