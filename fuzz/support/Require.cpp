#include "fuzz/support/Require.h"

#include <cstdio>
#include <cstdlib>

namespace customstyle_fuzz {

void require(bool condition, const std::string& otherwise) {
    if (condition) return;
    std::fprintf(stderr, "expectation failed: %s\n", otherwise.c_str());
    std::abort();
}

}  // namespace customstyle_fuzz
