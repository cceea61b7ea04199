// All questions of the renderer about a store, and what has to hold of it.
#pragma once

#include <set>

#include "customstyle/CustomConfig.h"
#include "customstyle/StyleSnapshot.h"

namespace customstyle_fuzz {

/// Ids that the store holds and some that it does not.
std::set<unsigned> idsToAsk(const _orvik_framework::CustomConfig& config);

/// Levels that the store's keys name and some that they do not.
std::set<int> levelsToAsk(const _orvik_framework::CustomConfig& config);

/// The class and a snapshot of it have to give the same answers, with the questions switched on and off.
void requireSameAnswers(const _orvik_framework::CustomConfig& config);

/// Keys and slots belong together, slots hold records of their type, base records are untouched.
void requireSoundStore(const _orvik_framework::CustomConfig& config);

}  // namespace customstyle_fuzz
