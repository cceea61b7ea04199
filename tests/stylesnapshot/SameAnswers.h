// A snapshot and its store have to answer alike.
#pragma once

#include <set>

#include "customstyle/StyleSnapshot.h"

namespace customstyle_test {

/// Every style id that the store holds, and some that it does not.
std::set<unsigned> styleIdsToAsk(const _orvik_framework::CustomConfig& config);

/// Expects the same answers to all questions about the style ids at the levels.
void expectSameAnswers(const _orvik_framework::CustomConfig& config, const _orvik_framework::StyleSnapshot& snapshot,
                       const std::set<unsigned>& ids, const std::set<int>& levels);

/// The same for styleIdsToAsk, at all levels that can matter.
void expectSameAnswers(const _orvik_framework::CustomConfig& config, const _orvik_framework::StyleSnapshot& snapshot);

}  // namespace customstyle_test
