// The oracle's answers as the tools print them in JSON.
#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "tests/properties/Answers.h"

namespace customstyle_test::properties {

/// {field of the model: what JSON calls it}
const std::map<std::string, std::string>& fieldNames();

/// The values that apply, under the tools' names.
nlohmann::json valuesAsJson(const Answer& answer);

nlohmann::json colourJson(const std::optional<std::uint64_t>& colour);

/// @param featureType  -1 for none, which is null
nlohmann::json nameOf(int featureType);

nlohmann::json iconText(bool isHidden);

}  // namespace customstyle_test::properties
