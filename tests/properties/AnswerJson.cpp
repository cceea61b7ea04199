#include "tests/properties/AnswerJson.h"

#include <algorithm>
#include <cstdio>

#include "tests/model_check/ModelTables.h"
#include "tests/support/RecordTable.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;

std::map<std::string, std::string> namesOfFields() {
    std::map<std::string, std::string> names;
    for (const RecordField& field : kRecordFields) {
        std::string& name = names[field.member] = field.tools;
        std::ranges::replace(name, ' ', '_');
    }
    return names;
}

std::uint64_t numberIn(const model::Record& record, const std::string& field) {
    const auto found = record.find(field);
    return found == record.end() ? 0 : found->second;
}

Json valueJson(const std::string& field, std::uint64_t value) {
    return field.ends_with("Color") ? colourJson(value) : Json(value);
}

}  // namespace

const std::map<std::string, std::string>& fieldNames() {
    static const std::map<std::string, std::string> kNames = namesOfFields();
    return kNames;
}

Json valuesAsJson(const Answer& answer) {
    Json values = Json::object();
    if (answer.record == nullptr) return values;
    for (const auto& [field, name] : fieldNames()) {
        if (numberIn(*answer.record, field + "Set") != 0) {
            values[name] = valueJson(field, numberIn(*answer.record, field));
        }
    }
    return values;
}

Json colourJson(const std::optional<std::uint64_t>& colour) {
    if (!colour) return {};
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", static_cast<unsigned>(*colour & 255),
                  static_cast<unsigned>(*colour >> 8 & 255), static_cast<unsigned>(*colour >> 16 & 255));
    return {{"rgb", text}, {"alpha", *colour >> 24}};
}

Json nameOf(int featureType) {
    return featureType == -1 ? Json() : Json(model::kNames[static_cast<std::size_t>(featureType)]);
}

Json iconText(bool isHidden) {
    return isHidden ? "hidden" : "shown";
}

}  // namespace customstyle_test::properties
