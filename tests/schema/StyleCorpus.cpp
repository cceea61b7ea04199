#include "tests/schema/StyleCorpus.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <string_view>

#include "customstyle/CustomConfig.h"
#include "tests/support/StyleBuilder.h"

namespace customstyle_test {
namespace {

constexpr const char* kPaths[] = {"all",
                                  "geometry",
                                  "geometry.fill",
                                  "geometry.stroke",
                                  "geometry.topsurface",
                                  "labels",
                                  "labels.text.fill",
                                  "labels.text.stroke",
                                  "labels.icon",
                                  "icon",
                                  "fill",
                                  "stroke",
                                  "topsurface",
                                  "labels.fill",
                                  "labels.text.topsurface",
                                  "labels.text",
                                  "geometry.icon",
                                  "geometry.labels",
                                  "wall.fill",
                                  "all.stroke",
                                  "geometry.all",
                                  "Geometry",
                                  "",
                                  ".fill",
                                  "geometry..fill",
                                  "geometry.",
                                  "filling",
                                  "label.fill",
                                  "x.labels.y.icon",
                                  "geometry.fill "};

struct Styler {
    const char* name;
    const char* value;
};

constexpr Styler kStylers[] = {
    {"color", "#3366cc"}, {"visibility", "on"}, {"visibility", "off"}, {"weight", "3"}, {"fontsize", "12"}};

// One of each kind of type, for what takes time.
constexpr const char* kAskedTypes[] = {"land", "water", "highway", "poilabel", "boundary", "grid", "all"};

std::string styleWith(std::string_view type, std::string_view path, const Styler& styler) {
    return "[" + rule(type, path).styler(styler.name, quoted(styler.value)).json() + "]";
}

std::string styleWithStylers(std::string_view stylers) {
    return R"([{"featureType": "highway", "elementType": "labels.text.fill", "stylers": {)" + std::string(stylers) +
           "}}]";
}

std::string boundaryWithColor(std::string_view color) {
    return styleOf({rule("boundary", "geometry.stroke").color(color)});
}

constexpr const char* kStylersObjects[] = {
    R"("color": "#3366CC")",
    R"("color": "#3366cc80")",
    R"("color": "#36c")",
    R"("color": "3366cc")",
    R"("color": "red")",
    R"("color": "#3366c")",
    R"("color": "#3366cc8")",
    R"("color": "#3366cc801")",
    R"("color": "#3366cg")",
    R"("color": "")",
    R"("color": 3368652)",
    R"("color": null)",
    R"("weight": "0")",
    R"("weight": "9")",
    R"("weight": "007")",
    R"("weight": "99")",
    R"("weight": "100")",
    R"("weight": "199")",
    R"("weight": "200")",
    R"("weight": "249")",
    R"("weight": "250")",
    R"("weight": "255")",
    R"("weight": "0255")",
    R"("weight": "256")",
    R"("weight": "260")",
    R"("weight": "300")",
    R"("weight": "1000")",
    R"("weight": "-1")",
    R"("weight": "2.5")",
    R"("weight": " 3")",
    R"("weight": "3px")",
    R"("weight": "")",
    R"("weight": 3)",
    R"("weight": "٣")",
    R"("fontsize": "12")",
    R"("fontsize": "256")",
    R"("fontsize": "12px")",
    R"("fontsize": "")",
    R"("fontsize": 12)",
    R"("visibility": "off")",
    R"("visibility": "OFF")",
    R"("visibility": "none")",
    R"("visibility": false)",
    R"("visibility": "")",
    R"("color": "#3366cc", "level": "4")",
    R"("color": "#3366cc", "level": "9")",
    R"("color": "#3366cc", "level": "10")",
    R"("color": "#3366cc", "level": "19")",
    R"("color": "#3366cc", "level": "20")",
    R"("color": "#3366cc", "level": "21")",
    R"("color": "#3366cc", "level": "012")",
    R"("color": "#3366cc", "level": "3")",
    R"("color": "#3366cc", "level": "22")",
    R"("color": "#3366cc", "level": "0")",
    R"("color": "#3366cc", "level": "-5")",
    R"("color": "#3366cc", "level": "10.9")",
    R"("color": "#3366cc", "level": " 12")",
    R"("color": "#3366cc", "level": "+12")",
    R"("color": "#3366cc", "level": "twelve")",
    R"("color": "#3366cc", "level": "")",
    R"("color": "#3366cc", "level": 12)",
    R"("color": "#3366cc", "note": "blue")",
    R"("color": "#3366cc", "Comment": "blue")",
    R"("color": "#3366cc", "_why": "blue")",
    R"("color": "#3366cc", "minLevel": "12")",
    R"("color": "#3366cc", "featureType": "water")",
    R"("Color": "#3366cc")",
    R"("colour": "#3366cc")",
    R"("color": "#3366cc", "Level": "12")",
    R"("level": "12")",
    R"("color": "#3366cc", "weight": 3)",
    "",
};

constexpr const char* kFrames[] = {
    R"([])",
    R"({})",
    R"("text")",
    R"(12)",
    R"([null])",
    R"([12])",
    R"(["highway"])",
    R"([["highway"]])",
    R"([{}])",
    R"({"one": {"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}}})",
    R"([{"elementType": "geometry", "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": "water", "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": "water", "elementType": "geometry"}])",
    R"([{"featureType": "lake", "elementType": "geometry", "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": "Water", "elementType": "geometry", "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": "water ", "elementType": "geometry", "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": "", "elementType": "geometry", "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": 2, "elementType": "geometry", "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": null, "elementType": "geometry", "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": "water", "elementType": 1, "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": "water", "elementType": ["geometry"], "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": [{"color": "#3366cc"}]}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": "#3366cc"}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": null}])",
    R"([{"FeatureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}, "level": "12"}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}, "note": "blue"}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}, "TODO": "blue"}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}, "// x": "blue"}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}, "$x": "blue"}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}, "kind": "blue"}])",
    R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}, "notes2": "blue"}])",
};

std::string randomRule(std::mt19937& random, const std::vector<std::string>& types) {
    const auto below = [&](std::size_t bound) { return random() % bound; };
    RuleBuilder builder = rule(types[below(types.size())], kPaths[below(std::size(kPaths))]);
    if (below(2) != 0) builder.color("#3366cc");
    if (below(3) == 0) builder.visibility(below(2) != 0 ? "on" : "off");
    if (below(3) == 0) builder.weight("3");
    if (below(3) == 0) builder.fontsize("12");
    if (below(3) == 0) builder.level("12");
    return builder.json();
}

std::vector<std::string> featureTypes() {
    const _orvik_framework::CustomConfig catalogue;
    std::vector<std::string> names;
    for (int i = 0; i < _orvik_framework::kFeatureTypeCount; ++i) names.push_back(catalogue.GetFeatureTypeName(i));
    return names;
}

}  // namespace

std::vector<CorpusStyle> singleStylers() {
    std::vector<CorpusStyle> styles;
    for (const std::string& type : featureTypes()) {
        const bool isAsked = std::ranges::find(kAskedTypes, type) != std::end(kAskedTypes);
        for (const char* path : kPaths) {
            for (const Styler& styler : kStylers) styles.push_back({styleWith(type, path, styler), isAsked});
        }
    }
    return styles;
}

std::vector<CorpusStyle> peculiarStyles() {
    std::vector<CorpusStyle> styles;
    for (const char* stylers : kStylersObjects) styles.push_back({styleWithStylers(stylers), true});
    for (const char* frame : kFrames) styles.push_back({frame, true});
    for (const char* color : {"#3366cc", "#3366ccff", "#3366ccFF", "#3366cc80", "#3366cc00"}) {
        styles.push_back({boundaryWithColor(color), true});
    }
    return styles;
}

std::vector<CorpusStyle> randomStyles() {
    std::mt19937 random(7);
    const std::vector<std::string> types = featureTypes();
    std::vector<CorpusStyle> styles;
    for (int i = 0; i < 400; ++i) styles.push_back({"[" + randomRule(random, types) + "]", true});
    return styles;
}

}  // namespace customstyle_test
