// The C++ heap, counted. One of these at a time.
#pragma once

#include <cstddef>

namespace customstyle_test {

/// Counts the calls of operator new while it lives.
class NewCalls {
public:
    NewCalls();
    ~NewCalls();
    NewCalls(const NewCalls&) = delete;
    NewCalls& operator=(const NewCalls&) = delete;
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
