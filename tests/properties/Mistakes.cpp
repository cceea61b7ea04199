#include "tests/properties/Mistakes.h"

#include <iterator>
#include <random>

namespace customstyle_test::properties {
namespace {

using model::Members;

class Mistakes {
public:
    explicit Mistakes(unsigned seed) : m_random(seed) {}

    void makeIn(Rule& rule) {
        static constexpr void (Mistakes::*kKinds[])(Rule&) = {&Mistakes::rename, &Mistakes::repeat, &Mistakes::misplace,
                                                              &Mistakes::invent, &Mistakes::forget, &Mistakes::unquote,
                                                              &Mistakes::retype};
        (this->*kKinds[below(std::size(kKinds))])(rule);
    }

    std::size_t below(std::size_t end) { return m_random() % end; }

private:
    Members& someObject(Rule& rule) { return rule.stylers && below(2) == 0 ? *rule.stylers : rule.frame; }

    void rename(Rule& rule) {
        Members& members = someObject(rule);
        if (members.empty()) return;
        char& letter = members[below(members.size())].first[0];
        letter = static_cast<char>(letter ^ ('a' ^ 'A'));
    }

    void repeat(Rule& rule) {
        Members& members = someObject(rule);
        if (members.empty()) return;
        auto again = members[below(members.size())];
        if (below(2) == 0) again.second = {"water"};
        members.insert(members.begin() + static_cast<std::ptrdiff_t>(below(members.size() + 1)), again);
    }

    void misplace(Rule& rule) {
        static constexpr const char* kNames[] = {"level", "color", "featureType", "elementType", "weight"};
        someObject(rule).push_back({kNames[below(std::size(kNames))], {"12"}});
    }

    void invent(Rule& rule) {
        static constexpr const char* kNames[] = {"colour", "minLevel", "opacity", "customstyle", "x", "fontSizes"};
        someObject(rule).push_back({kNames[below(std::size(kNames))], {"12"}});
    }

    void forget(Rule& rule) {
        Members& members = someObject(rule);
        if (!members.empty()) members.erase(members.begin() + static_cast<std::ptrdiff_t>(below(members.size())));
    }

    void unquote(Rule& rule) {
        static constexpr const char* kValues[] = {"12", "true", "null", "[]", "{}", "1.5"};
        Members& members = someObject(rule);
        if (!members.empty()) members[below(members.size())].second = {{}, kValues[below(std::size(kValues))]};
    }

    void retype(Rule& rule) {
        static constexpr const char* kTexts[] = {"Water", "labels.text", "lake", "geometry.Fill",
                                                 "Off",   "3px",         "",     "all"};
        Members& members = someObject(rule);
        if (!members.empty()) members[below(members.size())].second = {kTexts[below(std::size(kTexts))]};
    }

    std::mt19937 m_random;
};

}  // namespace

Trial withMistakes(Trial trial) {
    Mistakes mistakes(trial.variant);
    for (Rule& rule : trial.rules) {
        if (mistakes.below(2) == 0) mistakes.makeIn(rule);
    }
    return trial;
}

}  // namespace customstyle_test::properties
