// A store as one flat list of named numbers, so that the model's and the component's can be compared field by field.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "tests/model_check/StyleModel.h"

namespace customstyle_test::model {

using Image = std::map<std::string, std::uint64_t>;

Image imageOf(const _orvik_framework::CustomConfig& config);
Image imageOf(const StyleModel& model);

/// The fields of a record that are not 0.
Record fieldsOf(const _orvik_framework::tagCustomStyle& style);

/// The names whose numbers differ, with both numbers.
std::vector<std::string> differences(const Image& expected, const Image& actual);

}  // namespace customstyle_test::model
