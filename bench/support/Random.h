// Random numbers that are the same on every host and in every run.
#pragma once

#include <cstdint>
#include <random>

namespace customstyle_bench {

class Random {
public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}

    /// A number from 0 up to but not including `end`.
    std::size_t below(std::size_t end) { return m_engine() % end; }

private:
    std::mt19937_64 m_engine;
};

}  // namespace customstyle_bench
