// What is asked about the store that an input made. Each fuzzer is linked with one of two answers: FewQuestions.cpp,
// for thousands of inputs a second, or EveryQuestion.cpp.
#pragma once

#include "customstyle/CustomConfig.h"

namespace customstyle_fuzz {

/// Any store, also one that a host has changed by hand: the class and a snapshot of it have to agree.
void inspect(const _orvik_framework::CustomConfig& config);

/// A store as loading makes it: its keys, slots and records belong together.
void inspectLoaded(const _orvik_framework::CustomConfig& config);

}  // namespace customstyle_fuzz
