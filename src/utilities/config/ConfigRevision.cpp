#include "utilities/config/ConfigRevision.h"

namespace {
unsigned long revision = 0;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)
}  // namespace

unsigned long ConfigRevision::current() {
    return revision;
}

void ConfigRevision::advance() {
    ++revision;
}
