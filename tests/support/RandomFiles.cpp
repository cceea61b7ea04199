#include "tests/support/RandomFiles.h"

#include <iterator>

#include "tests/support/StyleBuilder.h"

namespace customstyle_test {
namespace {

constexpr const char* kElements[] = {
    "all",
    "labels",
    "geometry",
    "geometry.fill",
    "geometry.stroke",
    "labels.icon",
    "icon",
    "geometry.topsurface",
    "labels.text.fill",
    "labels.text.stroke",
    "labels.fill",
    "labels.stroke",
    "labels.topsurface",
    "labels.geometry",
    "all.geometry",
    "fill",
    "stroke",
    "topsurface",
    "wall",
    "wall.fill",
    "",
    ".",
    ".fill",
    "labels.",
    "geometry..fill",
    "Fill",
    "labels.text",
    "labels.%s%n",
    "\xFF",
    "标签",
};

constexpr const char* kNumbers[] = {"0",   "1",  "12",  "254", "255", "256", "0000000007", "99999999999999999999",
                                    "1.5", "-5", "abc", "",    " 3",  "3px", "4294967303"};

constexpr const char* kLevels[] = {"0", "3", "22", "-1", "x", "", "10.9", " 12", "99999999999999999999"};

constexpr const char* kValues[] = {"null", "true",  "13",           "-1.5",           "[]",
                                   "{}",   R"("")", R"("highway")", R"([{"a":null}])"};

}  // namespace

std::string RandomFiles::mapping() {
    std::string json;
    for (int type = 0; type <= 71; ++type) {
        json +=
            (type == 0 ? "{" : ",") + customstyle_test::quoted(m_catalogue.GetFeatureTypeName(type)) + ":" + styleIds();
    }
    return json + "}";
}

std::string RandomFiles::rule() {
    if (oneIn(20)) return anyValue();
    std::string json = "{\"note\":1";
    if (!oneIn(30)) json += ",\"featureType\":" + (oneIn(30) ? anyValue() : featureType());
    if (!oneIn(30)) json += ",\"elementType\":" + (oneIn(30) ? anyValue() : elementType());
    if (!oneIn(30)) json += ",\"stylers\":" + (oneIn(30) ? anyValue() : stylers());
    return json + "}";
}

std::string RandomFiles::styleIds() {
    std::string json;
    for (int count = below(7); count > 0; --count) {
        json += (json.empty() ? "" : ",") + std::to_string(oneIn(10) ? -below(5) : below(60));
    }
    return "[" + json + "]";
}

std::string RandomFiles::featureType() {
    if (oneIn(30)) return R"("lake")";
    return customstyle_test::quoted(m_catalogue.GetFeatureTypeName(below(73)));
}

std::string RandomFiles::elementType() {
    return customstyle_test::quoted(kElements[below(std::size(kElements))]);
}

std::string RandomFiles::stylers() {
    std::string json;
    const auto add = [&](const char* name, const std::string& value) {
        json += (json.empty() ? "" : ",") + customstyle_test::quoted(oneIn(30) ? "Color" : name) + ":" +
                (oneIn(30) ? anyValue() : customstyle_test::quoted(value));
    };
    if (oneIn(2)) add("color", colour());
    if (oneIn(3)) add("visibility", oneIn(10) ? "none" : oneIn(2) ? "on" : "off");
    if (oneIn(3)) add("weight", number());
    if (oneIn(3)) add("fontsize", number());
    if (!oneIn(3)) add("level", oneIn(10) ? kLevels[below(std::size(kLevels))] : std::to_string(4 + below(18)));
    return "{" + json + "}";
}

std::string RandomFiles::colour() {
    std::string text = "#";
    for (int count = oneIn(10) ? below(12) : 6 + 2 * below(2); count > 0; --count)
        text += "0123456789abcdefg"[below(17)];
    return text;
}

std::string RandomFiles::number() {
    return oneIn(2) ? std::to_string(below(300)) : kNumbers[below(std::size(kNumbers))];
}

std::string RandomFiles::anyValue() {
    return kValues[below(std::size(kValues))];
}

}  // namespace customstyle_test
