// Mistakes as authors make them.
#pragma once

#include "tests/properties/Trial.h"

namespace customstyle_test::properties {

/// The trial with mistakes in about half of its rules: members misspelt, repeated, in the wrong object, unknown or
/// missing, and values of the wrong kind.
Trial withMistakes(Trial trial);

}  // namespace customstyle_test::properties
