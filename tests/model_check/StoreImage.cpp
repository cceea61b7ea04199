#include "tests/model_check/StoreImage.h"

#include <set>

#include "customstyle/StoredRecords.h"
#include "tests/support/RecordTable.h"

namespace customstyle_test::model {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;
using _orvik_framework::tagCustomStyle;

Record fieldsOf(const tagCustomStyle& style) {
    Record record;
    tellMembers(style, [&](const std::string& name, std::uint64_t value) {
        if (value != 0 && name != "ID") record[name] = value;
    });
    return record;
}

namespace {

std::string nameOf(const std::string& map, std::int64_t styleId) {
    return map + "/" + std::to_string(styleId);
}

void addRecord(Image& image, const std::string& name, int styleId, const Record& record) {
    image[name] = static_cast<std::uint32_t>(styleId);
    for (const auto& [field, value] : record) image[std::string(name).append("/").append(field)] = value;
}

void addRecords(Image& image, const std::string& map, const CVMapPtrToPtr& records) {
    for (const StoredRecord& entry : StoredRecords(records)) {
        addRecord(image, nameOf(map, entry.number()), entry.record->m_ID, fieldsOf(*entry.record));
    }
}

void addRecords(Image& image, const std::string& map, const Records& records) {
    for (const auto& [styleId, record] : records) addRecord(image, nameOf(map, styleId), styleId, record);
}

}  // namespace

Image imageOf(const CustomConfig& config) {
    Image image = {{"every icon hidden", static_cast<std::uint64_t>(config.m_allIconsHidden)}};
    if (config.m_gridColorSet != 0) image["grid colour"] = config.m_gridColor;
    image["slots in use"] = static_cast<std::uint64_t>(config.m_usedLevelSlots);
    for (const auto& [key, effect] : config.m_styleEffectLevels)
        image["effect of " + key] = static_cast<std::uint64_t>(effect);
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        image["slot of " + key] = static_cast<std::uint64_t>(slot - config.m_levelStyleMaps);
        addRecords(image, key, *slot);
    }
    for (int type = 0; type <= 72; ++type)
        addRecords(image, "base " + std::to_string(type), config.m_typeStyleMaps[type]);
    return image;
}

Image imageOf(const StyleModel& model) {
    Image image = {{"every icon hidden", model.everyIconHidden ? 1 : 0}, {"slots in use", model.keys.size()}};
    if (model.gridColour) image["grid colour"] = *model.gridColour;
    for (const auto& [key, effect] : model.effects) image["effect of " + key] = static_cast<std::uint64_t>(effect);
    for (std::size_t slot = 0; slot < model.keys.size(); ++slot) image["slot of " + model.keys[slot]] = slot;
    for (const auto& [key, records] : model.slots) addRecords(image, key, records);
    for (const auto& [type, records] : model.base) addRecords(image, "base " + std::to_string(type), records);
    return image;
}

std::vector<std::string> differences(const Image& expected, const Image& actual) {
    if (expected == actual) return {};
    std::set<std::string> names;
    for (const Image* image : {&expected, &actual}) {
        for (const auto& entry : *image) names.insert(entry.first);
    }
    std::vector<std::string> found;
    const auto show = [](const Image& image, const std::string& name) {
        return image.contains(name) ? std::to_string(image.at(name)) : std::string("nothing");
    };
    for (const std::string& name : names) {
        if (show(expected, name) != show(actual, name))
            found.push_back(name + ": " + show(expected, name) + " expected, " + show(actual, name) + " found");
    }
    return found;
}

}  // namespace customstyle_test::model
