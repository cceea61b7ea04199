#include "tests/minify/RandomStyle.h"

#include <iterator>
#include <nlohmann/json.hpp>

#include "tests/support/StyleBuilder.h"

namespace customstyle_test {
namespace {

constexpr const char* kTypes[] = {"land",          "water",    "manmade", "education", "highway", "highwaylabel",
                                  "districtlabel", "boundary", "city",    "poilabel",  "grid",    "all"};
constexpr const char* kPaths[] = {"all",    "geometry",          "geometry.fill",       "geometry.stroke",
                                  "labels", "labels.text.fill",  "labels.text.stroke",  "labels.icon",
                                  "icon",   "labels.topsurface", "geometry.topsurface", "wall"};
constexpr const char* kColors[] = {"#3366cc", "#cc3366FF", "#3366cc80", "#f00"};
constexpr const char* kSizes[] = {"3", "012", "300", "x"};
constexpr const char* kLevels[] = {"4", "12", "012", "99"};

template <typename List>
const char* oneOf(std::mt19937& random, const List& list) {
    return list[random() % std::size(list)];
}

std::string randomRule(std::mt19937& random) {
    RuleBuilder builder = rule(oneOf(random, kTypes), oneOf(random, kPaths));
    if (random() % 2 == 0) builder.color(oneOf(random, kColors));
    if (random() % 3 == 0) builder.visibility(random() % 2 == 0 ? "on" : "off");
    if (random() % 3 == 0) builder.weight(oneOf(random, kSizes));
    if (random() % 3 == 0) builder.fontsize(oneOf(random, kSizes));
    if (random() % 2 == 0) builder.level(oneOf(random, kLevels));
    if (random() % 8 == 0) builder.styler("note", "12");
    return builder.json();
}

}  // namespace

std::string randomStyle(std::mt19937& random, int rules) {
    std::string text;
    for (int i = 0; i < rules; ++i) text += (i == 0 ? "" : ",\n ") + randomRule(random);
    return "[" + text + "]";
}

std::string withoutOneRule(std::mt19937& random, const std::string& style) {
    nlohmann::ordered_json rules = nlohmann::ordered_json::parse(style);
    rules.erase(random() % rules.size());
    return rules.dump();
}

}  // namespace customstyle_test
