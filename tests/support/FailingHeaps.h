// Every heap that a load uses, counted together: operator new, the engine's heap and the JSON parser's.
#pragma once

#include <cstddef>

namespace customstyle_test {

/// While it lives, the allocation after `successes` successful ones fails, or that one and all that follow.
class FailingHeaps {
public:
    enum class Failures { One, AllFurther };

    FailingHeaps(std::size_t successes, Failures failures);
    ~FailingHeaps();
    FailingHeaps(const FailingHeaps&) = delete;
    FailingHeaps& operator=(const FailingHeaps&) = delete;

    /// Whether an allocation has failed.
    bool hasFailed() const;
};

/// Blocks of the JSON parser that are not given back, of those asked for while a FailingHeaps lived.
std::ptrdiff_t outstandingJsonBlocks();

}  // namespace customstyle_test
