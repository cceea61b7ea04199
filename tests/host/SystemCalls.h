// The system's calls on files, which fail where a test says so. A program that compiles SystemCalls.cpp has no others.
#pragma once

#include <string>
#include <vector>

namespace customstyle_test {

struct SystemCalls {
    std::string failing{};            ///< the next call of this name fails once
    int error = 0;                    ///< with this as errno
    std::vector<std::string> made{};  ///< "rename", and "fsync" with what it is called for
};

extern SystemCalls systemCalls;

}  // namespace customstyle_test
