#include "tests/model_check/StyleModel.h"

#include <strings.h>

#include <algorithm>
#include <cstdlib>

#include "tests/model_check/ModelTables.h"
#include "tests/support/StyleBuilder.h"

namespace customstyle_test::model {

constexpr std::size_t kSlots = 1241;
constexpr int kBoundary = 46;
const std::vector<int> kParents = {4, 45, 53};

// ---- Values ---------------------------------------------------------------------------------------------------------

namespace {

// Member names are found in any letter case, the first one of several.
const std::pair<std::string, Value>* findMember(const Members& members, const std::string& name) {
    for (const auto& member : members) {
        if (strcasecmp(member.first.c_str(), name.c_str()) == 0) return &member;
    }
    return nullptr;
}

std::optional<std::string> textOf(const Members& members, const std::string& name) {
    const auto* member = findMember(members, name);
    return member == nullptr ? std::nullopt : member->second.text;
}

// A styler is applied only under its exact name.
std::optional<std::string> stylerOf(const Members& stylers, const std::string& name) {
    const auto* member = findMember(stylers, name);
    return member == nullptr || member->first != name ? std::nullopt : member->second.text;
}

std::uint64_t hexDigit(const std::string& text, std::size_t position) {
    const std::string digits = "0123456789abcdef";
    const char character = position < text.size() ? text[position] : '?';
    const std::size_t value = digits.find(static_cast<char>(std::tolower(static_cast<unsigned char>(character))));
    return value == std::string::npos ? 0 : value;
}

std::uint64_t channel(const std::string& text, std::size_t position) {
    return 16 * hexDigit(text, position) + hexDigit(text, position + 1);
}

// #rrggbb or #rrggbbaa becomes alpha, blue, green, red. Boundaries are always opaque, and so is a shorter text.
std::uint64_t colourOf(const std::string& text, int featureType) {
    const std::uint64_t alpha = text.size() <= 7 || featureType == kBoundary ? 255 : channel(text, 7);
    return ((alpha * 256 + channel(text, 5)) * 256 + channel(text, 3)) * 256 + channel(text, 1);
}

std::optional<std::uint64_t> wholeNumberTo255(const std::string& text) {
    if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
    const std::string significant = text.substr(std::min(text.size() - 1, text.find_first_not_of('0')));
    return significant.size() > 3 ? 255 : std::min(255, std::stoi(significant));
}

std::string typeKey(int featureType) {
    return std::to_string(featureType);
}

std::string levelKey(int featureType, int level) {
    return std::to_string(featureType) + ":" + std::to_string(level);
}

int companionOf(int featureType) {
    const auto companion = kCompanions.find(featureType);
    return companion == kCompanions.end() ? featureType : companion->second;
}

std::string warning(const std::string& subject, const std::string& tail) {
    return "warning, \"" + subject + "\"" + tail;
}

std::string error(const std::string& subject, const std::string& tail) {
    return "Error, \"" + subject + "\"" + tail;
}

}  // namespace

// ---- Rules ----------------------------------------------------------------------------------------------------------

/// What a rule says to each of its stylers.
struct StyleModel::Frame {
    int featureType;
    std::string element;  ///< the last component
    bool mentionsLabels;  ///< the whole element type does
    const Members& stylers;
    int allLevels;
    int level;

    const Case* find(const std::vector<Case>& cases) const {
        for (const Case& each : cases) {
            if (each.elements.contains(element) && each.featureTypes.contains(featureType) &&
                (mentionsLabels || !each.labelsOnly))
                return &each;
        }
        return nullptr;
    }

    void run(StyleModel& model, const Case& found, std::uint64_t value, std::uint64_t iconValue = 0) const {
        for (const Step& step : found.steps) {
            const int whom = step.whom == Whom::Itself ? featureType : companionOf(featureType);
            if (step.whom == Whom::OtherCompanion && whom == featureType) continue;
            const bool isIcon = step.writer == Writer::Icon;
            model.write({step.writer, whom, element, isIcon ? iconValue : value, allLevels, level});
        }
    }
};

void StyleModel::apply(const Rule& rule) {
    const auto name = textOf(rule.frame, "featureType");
    if (!name) return log.push_back(warning("featureType", " is  illegal or absent"));
    const auto found = std::find(kNames.begin(), kNames.end(), *name);
    if (found == kNames.end()) return log.push_back(warning("featureType:" + *name, " is illegal"));
    const auto path = textOf(rule.frame, "elementType");
    if (!path) return log.push_back(warning("elementType", " is illegal or absent"));
    if (!rule.stylers) return log.push_back(warning("stylers", " is illegal or absent"));

    std::string element = *path;
    for (auto dot = element.find('.'); dot != std::string::npos && dot != 0; dot = element.find('.'))
        element = element.substr(dot + 1);
    const bool mentionsLabels = path->find("labels") != std::string::npos || path->find("all") != std::string::npos;
    const auto level = textOf(*rule.stylers, "level");
    const Frame frame{static_cast<int>(found - kNames.begin()),
                      element,
                      mentionsLabels,
                      *rule.stylers,
                      level ? 0 : 1,
                      level ? static_cast<int>(std::clamp(std::strtol(level->c_str(), nullptr, 10), 4L, 21L)) : 0};

    if (stylerOf(frame.stylers, "color")) applyColour(frame);
    if (stylerOf(frame.stylers, "visibility")) applyVisibility(frame);
    if (stylerOf(frame.stylers, "weight")) applyWeight(frame);
    if (stylerOf(frame.stylers, "fontsize")) applyFontSize(frame);
    for (const char* each : {"color", "visibility", "weight", "fontsize"}) {
        if (stylerOf(frame.stylers, each)) return;
    }
    log.push_back(warning("stylers", " is undefined"));
}

void StyleModel::applyColour(const Frame& frame) {
    const Case* found = frame.find(kColourCases);
    if (found == nullptr) return log.push_back(warning("elementType", " is invalid."));
    frame.run(*this, *found, colourOf(*stylerOf(frame.stylers, "color"), frame.featureType));
}

void StyleModel::applyVisibility(const Frame& frame) {
    const std::string word = *stylerOf(frame.stylers, "visibility");
    if (word != "on" && word != "off") return log.push_back(warning("visibility", " is illegal or absent"));
    const std::set<std::string> known = {"all", "labels", "geometry", "stroke", "fill", "topsurface", "icon"};
    if (word == "off" && !known.contains(frame.element)) return log.push_back(warning("elementType", " is invalid."));
    const Case* found = frame.find(word == "off" ? kHidingCases : kShowingCases);
    if (found != nullptr) frame.run(*this, *found, 0, word == "off" ? 1 : 0);
}

void StyleModel::applyWeight(const Frame& frame) {
    if (frame.featureType == kBoundary) return;
    const auto weight = wholeNumberTo255(*stylerOf(frame.stylers, "weight"));
    if (!weight) return log.push_back(error("weight", " contain alpha, is illegal"));
    const Case* found = frame.find(kWeightCases);
    if (found == nullptr) return log.push_back(warning("elementType", " is invalid."));
    frame.run(*this, *found, *weight);
}

void StyleModel::applyFontSize(const Frame& frame) {
    const auto size = wholeNumberTo255(*stylerOf(frame.stylers, "fontsize"));
    if (!size) return log.push_back(error("fontsize", " contain alpha, is illegal"));
    if (frame.featureType < 1 || frame.featureType > 70)
        return log.push_back(error("featureType", " not include labels element"));
    if (!frame.mentionsLabels) return log.push_back(error(frame.element, " not include labels element"));
    const Case* found = frame.find(kFontSizeCases);
    if (found == nullptr) return log.push_back(warning(frame.element, " is not set for font size style."));
    frame.run(*this, *found, *size);
}

// ---- Writing --------------------------------------------------------------------------------------------------------

void StyleModel::addStyleIds(int featureType, const std::vector<int>& styleIds) {
    int previous = 0;
    for (const int styleId : styleIds) {
        if (styleId != previous) base[featureType][styleId] = {};
        previous = styleId;
    }
}

// A key that finds no free slot is not taken note of at all.
bool StyleModel::registerKey(const std::string& key, int featureType, int allLevels) {
    if (slots.contains(key)) return true;
    if (keys.size() == kSlots) return false;
    keys.push_back(key);
    effects[key] = allLevels;
    slots[key] = base[featureType];
    return true;
}

void StyleModel::write(const Writing& writing) {
    if (writing.writer == Writer::GridColour) gridColour = writing.value;
    if (writing.writer == Writer::EveryIcon) everyIconHidden = true;
    if (writing.writer == Writer::GridColour || writing.writer == Writer::EveryIcon) return;

    const std::string ofType = typeKey(writing.featureType);
    const std::string key = writing.allLevels != 0 ? ofType : levelKey(writing.featureType, writing.level);
    if (!registerKey(key, writing.featureType, writing.allLevels)) return;
    for (auto& [styleId, record] : slots[key]) {
        // A level starts from what holds at all levels, at every write anew.
        if (writing.allLevels == 0 && slots.contains(ofType) && slots[ofType].contains(styleId))
            record = slots[ofType][styleId];
        writeRecord(record, writing);
    }
}

void StyleModel::writeRecord(Record& record, const Writing& writing) {
    record["custom"] = writing.writer == Writer::Icon ? 1 : 0;
    bool known = false;
    for (const Fields& row : kFields) {
        if (row.writer != writing.writer || !row.elements.contains(writing.element)) continue;
        known = true;
        for (const std::string& field : row.fields) {
            record[field] = writing.value;
            if (writing.writer != Writer::Icon) record[field + "Set"] = 1;
        }
        record["custom"] = 1;
    }
    std::erase_if(record, [](const auto& field) { return field.second == 0; });
    if (!known && kUnknownElement.contains(writing.writer)) log.push_back(kUnknownElement.at(writing.writer));
}

// ---- Answers --------------------------------------------------------------------------------------------------------

const Records* StyleModel::effectiveRecords(int featureType, int level) const {
    for (const auto& [key, effect] : {std::pair(levelKey(featureType, level), 0), std::pair(typeKey(featureType), 1)}) {
        const auto found = effects.find(key);
        if (found != effects.end() && found->second == effect) return &slots.at(key);
    }
    return nullptr;
}

const Record* StyleModel::findRecord(int featureType, unsigned styleId, int level) const {
    // Stored with their sign and asked for without it: where pointers are wide, negative ids are never found.
    if (sizeof(void*) > sizeof(int) && styleId > 0x7fffffff) return nullptr;
    const Records* records = effectiveRecords(featureType, level);
    if (records == nullptr) return nullptr;
    const auto found = records->find(static_cast<int>(styleId));
    return found == records->end() ? nullptr : &found->second;
}

namespace {

// All types but the wildcard, parents last.
std::vector<int> orderOfQuestions() {
    std::vector<int> order;
    for (int type = 0; type <= 71; ++type) {
        if (std::find(kParents.begin(), kParents.end(), type) == kParents.end()) order.push_back(type);
    }
    order.insert(order.end(), kParents.begin(), kParents.end());
    return order;
}

}  // namespace

std::pair<int, const Record*> StyleModel::findStyle(unsigned styleId, int level) const {
    for (const int type : orderOfQuestions()) {
        const Record* record = findRecord(type, styleId, level);
        if (record != nullptr && record->contains("custom")) return {type, record};
    }
    return {-1, nullptr};
}

bool StyleModel::isIconHidden(unsigned styleId, int level) const {
    if (everyIconHidden) return true;
    for (const int type : orderOfQuestions()) {
        const Record* record = findRecord(type, styleId, level);
        const bool isParent = std::find(kParents.begin(), kParents.end(), type) != kParents.end();
        // The first type that has the style id decides; a parent only when it hides the icon.
        if (record != nullptr && (record->contains("iconHidden") || !isParent)) return record->contains("iconHidden");
    }
    return false;
}

// ---- JSON -----------------------------------------------------------------------------------------------------------

namespace {

std::string jsonOf(const Members& members) {
    std::string json;
    for (const auto& [name, value] : members) {
        json += (json.empty() ? "" : ",") + quoted(name) + ":" + (value.text ? quoted(*value.text) : value.otherJson);
    }
    return json;
}

}  // namespace

std::string jsonOf(const Rule& rule) {
    const std::string frame = jsonOf(rule.frame);
    return "{" + frame + (frame.empty() ? "" : ",") +
           "\"stylers\":" + (rule.stylers ? "{" + jsonOf(*rule.stylers) + "}" : "[]") + "}";
}

}  // namespace customstyle_test::model
