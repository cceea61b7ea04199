// The store's capacity.
#include <fmt/format.h>

#include <set>
#include <string>

#include "tools/check/StyleUnderCheck.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::kStyleSlotCount;

constexpr std::size_t kNearlyFull = static_cast<std::size_t>(kStyleSlotCount) * 4 / 5;

// The step that needs the first key beyond `limit`, and all keys that the file needs.
struct Need {
    const ReplayStep* beyond = nullptr;
    std::set<std::string> keys;
};

Need needOf(const StyleUnderCheck& check, std::size_t limit) {
    Need need;
    for (const ReplayStep& step : check.steps()) {
        need.keys.insert(step.keys.begin(), step.keys.end());
        if (need.beyond == nullptr && need.keys.size() > limit) need.beyond = &step;
    }
    return need;
}

}  // namespace

void findKeys(StyleUnderCheck& check) {
    const Need need = needOf(check, kStyleSlotCount);
    if (need.keys.size() > kStyleSlotCount) {
        check.add(
            Code::SlotsExceeded, *need.beyond,
            fmt::format("the file needs {} style keys, {} more than the store holds; from here on rules for a further "
                        "type or level are dropped",
                        need.keys.size(), need.keys.size() - kStyleSlotCount));
    } else if (const Need most = needOf(check, kNearlyFull); most.beyond != nullptr) {
        check.add(Code::SlotsNearlyFull, *most.beyond,
                  fmt::format("the file needs {} of the {} style keys that the store holds", most.keys.size(),
                              kStyleSlotCount));
    }
}

}  // namespace customstyle_tool
