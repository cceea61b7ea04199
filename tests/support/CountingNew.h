// The C++ heap, counted. A program that compiles CountingNew.cpp replaces its operator new.
#pragma once

#include <cstddef>

namespace customstyle_test {

/// Counts the calls of operator new since it was made.
class NewCalls {
public:
    NewCalls();
    std::size_t count() const;

private:
    std::size_t m_before;
};

/// While it lives, every operator new throws std::bad_alloc.
class NoMemory {
public:
    NoMemory();
    ~NoMemory();
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;
};

}  // namespace customstyle_test
