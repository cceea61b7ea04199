// Streams of style ids: what a renderer asks for while it draws one frame.
#pragma once

#include <string>
#include <vector>

#include "bench/support/MapFiles.h"

namespace customstyle_bench {

/// As a renderer draws: layer after layer, in each layer runs of features with the same style or with near ones.
std::vector<unsigned int> drawOrder(const Mapping& mapping, std::size_t length);

/// Any style id of the mapping after any other.
std::vector<unsigned int> randomOrder(const Mapping& mapping, std::size_t length);

/// Style ids that the mapping does not hold, in random order.
std::vector<unsigned int> unmappedOrder(const Mapping& mapping, std::size_t length);

/// A stream file: one style id a line. Throws std::runtime_error when there is none.
std::vector<unsigned int> readStream(const std::string& path);

}  // namespace customstyle_bench
