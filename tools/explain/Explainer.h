// Explainer: answers why, for the style ids that it was made for.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "tools/study/Explanation.h"
#include "tools/study/StoreProbe.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// Finds the history of every answer.
///
/// What happened comes from the traced replay, and the component is asked who answers: neither this class nor its
/// helpers know the rules of styling or of the queries.
class Explainer {
public:
    /// @param style  must outlive the explainer
    explicit Explainer(const StyleStudy& style);

    Explanation explain(unsigned int styleId, int level);

    const StyleStudy& style() const { return m_style; }
    const ReplayStep& step(std::size_t place) const { return m_style.steps()[place]; }

private:
    std::vector<int> featureTypesOf(int styleId) const;
    StyleKey keyInEffect(int featureType, int level) const;
    History historyOf(const StyleKey& key, std::size_t field) const;
    std::optional<std::size_t> lastStepOn(const StyleKey& key) const;

    void explainRecords(Explanation& explanation);
    void explainType(Explanation& explanation, int featureType);
    Loss howSilent(const Explanation& explanation, const StyleKey& key) const;
    void explainIcon(Explanation& explanation);
    void explainOneIcon(Explanation& explanation);
    void explainHiddenIcons(Explanation& explanation, std::size_t hidingStep);
    std::map<int, History> iconHistories(const Explanation& explanation) const;
    void explainLand(Explanation& explanation);

    const StyleStudy& m_style;
    StoreProbe m_probe;
    std::optional<std::size_t> m_hidesEveryIcon;     // the first step that does
    std::map<int, std::vector<int>> m_featureTypes;  // by style id
};

}  // namespace customstyle_tool
