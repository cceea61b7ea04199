// Random mappings, rules and direct writes, few types and levels at a time so that they meet each other.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "tests/model_check/StyleModel.h"

namespace customstyle_test::model {

class RandomProgram {
public:
    explicit RandomProgram(unsigned seed);

    std::vector<int> styleIds();
    Rule rule();

    /// A call of one of the six record writers, also with elements that no rule gives them.
    Writing writing();

    unsigned styleId() { return static_cast<unsigned>(below(20) - 3); }
    int level() { return m_levels[at(m_levels.size())]; }

private:
    int below(int end) { return std::uniform_int_distribution<>(0, end - 1)(m_random); }
    std::size_t at(std::size_t size) { return std::uniform_int_distribution<std::size_t>(0, size - 1)(m_random); }
    bool oneIn(int count) { return below(count) == 0; }
    Value text(const std::string& text);
    Members stylers();
    std::string number();
    std::string colour();

    std::mt19937 m_random;
    std::vector<int> m_types;
    std::vector<int> m_levels;
};

}  // namespace customstyle_test::model
