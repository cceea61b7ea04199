// Mapping and style files of random content, the same for the same seed.
#pragma once

#include <random>
#include <string>

#include "customstyle/CustomConfig.h"

namespace customstyle_test {

class RandomFiles {
public:
    explicit RandomFiles(unsigned seed) : m_random(seed) {}

    /// A complete mapping: up to six style ids a type, most of them shared with other types, some repeated or negative.
    std::string mapping();

    /// One rule; most are faultless, all the others are wrong in one of many ways.
    std::string rule();

    int below(int end) { return std::uniform_int_distribution<>(0, end - 1)(m_random); }
    bool oneIn(int count) { return below(count) == 0; }

private:
    std::string styleIds();
    std::string featureType();
    std::string elementType();
    std::string stylers();
    std::string colour();
    std::string number();
    std::string anyValue();

    std::mt19937 m_random;
    const _orvik_framework::CustomConfig m_catalogue;  // knows the names of the feature types
};

}  // namespace customstyle_test
