#include "tools/minify/Minifier.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "tools/minify/Compact.h"
#include "tools/minify/EveryMap.h"
#include "tools/minify/MinimalRule.h"
#include "tools/minify/ShrunkStyle.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/Mapping.h"
#include "tools/study/StoreDifference.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {
namespace {

// The attempts, best first, each made only if the one before failed the proof: a style that needs more style keys than
// there are slots depends on the order of all its rules, and may have to stay as it is.
Minified firstProven(const StyleSource& style, const std::string& mapping,
                     const std::vector<std::function<Minified()>>& attempts) {
    const auto wanted = storeOf(mapping, style.file().text());
    const std::size_t longest = compactText(style.document()).size();
    for (const auto& attempt : attempts) {
        Minified result = attempt();
        if (result.text.size() > longest) continue;
        if (!differenceBetween(*wanted, *storeOf(mapping, result.text)).any()) return result;
    }
    return {std::string(style.file().text()), style.rules().size(), Thoroughness::Nothing};
}

}  // namespace

Minified minified(const StyleSource& style, const std::optional<std::string>& mapping, const Spread& spread) {
    const ComponentGuard guard;
    const std::vector<MinimalRule> rules = minimalRules(style);
    const auto shrink = [&] {
        const ShrunkStyle shrunk =
            shrunkStyle(rules, mapping ? Mapping::given(*mapping).speakersText() : mappingFor(rules), spread);
        return Minified{textOf(shrunk.rules), shrunk.rules.size(),
                        shrunk.isComplete ? Thoroughness::Full : Thoroughness::ManyRules};
    };
    const auto clean = [&] { return Minified{textOf(rules), rules.size(), Thoroughness::EachRule}; };
    const auto compact = [&] {
        return Minified{compactText(style.document()), style.rules().size(), Thoroughness::Blanks};
    };
    return firstProven(style, mapping.value_or(Mapping::everyMap().text()), {shrink, clean, compact});
}

}  // namespace customstyle_tool
