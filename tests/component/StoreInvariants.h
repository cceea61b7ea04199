// What holds of every store, whatever the files held. Each function adds its findings to the running test.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "customstyle/CustomConfig.h"

namespace customstyle_test {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::tagCustomStyle;

/// Keys and slots belong together one to one, the slots in use are the first ones, and each of them holds sound records
/// of its type's style ids.
void expectSound(const CustomConfig& config);

/// The keys in effect are those with a slot, and each says what its text says: all levels or one.
void expectEffectsAgree(const CustomConfig& config);

/// No rule changes a base record.
void expectBaseUntouched(const CustomConfig& config);

using Slots = std::map<std::string, CVMapPtrToPtr*>;
Slots slotsOf(const CustomConfig& config);

/// Keys that were there before keep their slots, and new ones follow.
void expectGrown(const CustomConfig& config, const Slots& before);

/// The renderer's answers for a style id at a level are those that a slow search of the store gives.
void expectAnswersAgree(const CustomConfig& config, int styleId, int level);

}  // namespace customstyle_test
