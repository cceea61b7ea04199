#include "tests/model_check/RandomProgram.h"

#include "tests/model_check/ModelTables.h"

namespace customstyle_test::model {
namespace {

const std::vector<std::string> kPaths = {
    "all",
    "labels",
    "geometry",
    "geometry.fill",
    "geometry.stroke",
    "icon",
    "labels.icon",
    "labels.text.fill",
    "labels.text.stroke",
    "labels.geometry",
    "labels.text",
    "fill",
    "stroke",
    "topsurface",
    "labels.topsurface",
    "wall.fill",
    "geometry.all",
    "all.stroke",
    "all.icon",
    "small.labels",
    "",
    ".fill",
    ".labels",
    "geometry..fill",
    "labels.fill.",
    "Fill",
    "fill ",
    "标签.fill",
    "geometry.topsurface",
    "a.b.c.stroke",
};

const std::vector<std::string> kNumbers = {
    "0", "7",  "00012", "254", "255", "256", "999", "0255", "0000000000", "1000000000000",
    "",  "-1", "1.5",   " 3",  "3px", "+4",  "４"};

const std::vector<std::string> kLevels = {"0", "3", "22", "-7", "x", "", "10.9", " 12", "+13", "0x15", "99999", "٥"};

const std::vector<std::string> kOtherJson = {"null", "true", "13", "1.5", "[]", "{}"};

}  // namespace

RandomProgram::RandomProgram(unsigned seed) : m_random(seed) {
    m_types = {below(73), below(73), below(73), 9 + below(17)};
    m_types.push_back(kCompanions.contains(m_types[3]) ? kCompanions.at(m_types[3]) : m_types[3]);
    for (const int type : {0, 4, 45, 46, 53, 71, 72}) {
        if (oneIn(2)) m_types.push_back(type);
    }
    m_levels = {4, 21, 4 + below(18), 4 + below(18)};
}

std::vector<int> RandomProgram::styleIds() {
    std::vector<int> ids;
    for (int count = below(5); count > 0; --count) ids.push_back(oneIn(8) && !ids.empty() ? ids.back() : below(20) - 3);
    return ids;
}

Value RandomProgram::text(const std::string& text) {
    if (oneIn(40)) return {std::nullopt, kOtherJson[at(kOtherJson.size())]};
    return {text};
}

Rule RandomProgram::rule() {
    Rule rule;
    const std::string& name = kNames[static_cast<std::size_t>(m_types[at(m_types.size())])];
    if (!oneIn(60)) rule.frame.emplace_back("featureType", text(oneIn(60) ? "Lake %s\n\x1b[2J" : name));
    if (!oneIn(60)) rule.frame.emplace_back(oneIn(20) ? "ElementType" : "elementType", text(kPaths[at(kPaths.size())]));
    if (!oneIn(60)) rule.stylers = stylers();
    return rule;
}

Members RandomProgram::stylers() {
    Members members;
    const auto add = [&](const char* name, const char* otherName, const std::string& value) {
        members.emplace_back(oneIn(40) ? otherName : name, text(value));
    };
    if (oneIn(2)) add("color", "Color", colour());
    if (oneIn(2)) add("visibility", "colour", oneIn(15) ? "OFF" : oneIn(2) ? "on" : "off");
    if (oneIn(3)) add("weight", "WEIGHT", number());
    if (oneIn(3)) add("fontsize", "fontSize", number());
    if (oneIn(20)) add("color", "weight", "#010203");
    if (!oneIn(3)) add("level", "Level", oneIn(8) ? kLevels[at(kLevels.size())] : std::to_string(level()));
    return members;
}

std::string RandomProgram::number() {
    return oneIn(2) ? std::to_string(below(300)) : kNumbers[at(kNumbers.size())];
}

std::string RandomProgram::colour() {
    std::string text = oneIn(10) ? "?" : "#";
    for (int count = 6 + below(4); count > 0; --count) text += "0123456789abcdefABCDEFg-"[below(24)];
    return text;
}

Writing RandomProgram::writing() {
    const std::vector<std::string> elements = {"all",  "geometry", "labels", "stroke", "fill", "topsurface",
                                               "icon", "",         "text",   "Fill",   "地"};
    Writing writing;
    writing.writer = static_cast<Writer>(below(6));
    writing.featureType = m_types[at(m_types.size())];
    writing.element = elements[at(elements.size())];
    writing.value = writing.writer == Writer::Icon ? at(2) : at(256);
    writing.allLevels = oneIn(2) ? 1 : 0;
    writing.level = oneIn(10) ? below(60) - 30 : level();
    return writing;
}

}  // namespace customstyle_test::model
