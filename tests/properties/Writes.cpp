#include "tests/properties/Writes.h"

#include <algorithm>
#include <iterator>

namespace customstyle_test::properties {
namespace {

bool isStyler(const std::string& name) {
    return turnOf(name) != kTurnCount;
}

// A value of 0 shows by its flag. Icons have none: an icon shown again only shows where it was hidden.
void addWrites(Written& writes, const Rule& rule, std::span<const Rule> before, bool iconsHidden) {
    model::StyleModel model;
    const model::Record empty = iconsHidden ? model::Record{{"iconHidden", 1}} : model::Record();
    for (int type = 0; type <= 72; ++type) model.base[type][1] = empty;
    for (const Rule& each : before) model.apply(each);
    for (auto& [key, records] : model.slots) records[1] = empty;
    model.gridColour.reset();
    model.everyIconHidden = false;
    model.apply(rule);
    for (const auto& [key, records] : model.slots) {
        const model::Record& record = records.at(1);
        for (const auto& [flag, set] : record) {
            if (!flag.ends_with("Set")) continue;
            const std::string field = flag.substr(0, flag.size() - 3);
            const auto value = record.find(field);
            writes[{key, field}] = value == record.end() ? 0 : value->second;
        }
        const bool isHidden = record.contains("iconHidden");
        if (isHidden != iconsHidden) writes[{key, "iconHidden"}] = isHidden ? 1 : 0;
    }
    if (model.gridColour) writes[{"grid", "colour"}] = *model.gridColour;
    if (model.everyIconHidden) writes[{"all", "icon"}] = 1;
}

}  // namespace

Written valuesOf(const Rule& rule, const std::string& styler, std::span<const Rule> before) {
    const Rule alone = styler.empty() ? rule : onlyStyler(rule, styler);
    Written writes;
    addWrites(writes, alone, before, false);
    addWrites(writes, alone, before, true);
    return writes;
}

std::set<Write> writesOf(const Rule& rule, const std::string& styler) {
    std::set<Write> writes;
    for (const auto& [write, value] : valuesOf(rule, styler)) writes.insert(write);
    return writes;
}

Rule onlyStyler(const Rule& rule, const std::string& styler) {
    Rule only = rule;
    if (!only.stylers) return only;
    std::erase_if(*only.stylers, [&](const auto& member) { return isStyler(member.first) && member.first != styler; });
    return only;
}

std::size_t turnOf(const std::string& styler) {
    return static_cast<std::size_t>(std::ranges::find(kStylers, styler, &ExampleOfStyler::name) - kStylers);
}

}  // namespace customstyle_test::properties
