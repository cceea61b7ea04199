// Explainer: answers why, for the style ids that it was made for.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "tools/explain/Explanation.h"
#include "tools/explain/IntendedWrites.h"
#include "tools/explain/RecordHistory.h"
#include "tools/explain/StoreProbe.h"
#include "tools/replay/LoadedStyle.h"
#include "tools/replay/TracedReplay.h"

namespace customstyle_tool {

/// Traces a style for some style ids and finds the history of every answer for them.
///
/// What happened comes from the traced replay, and who answers is asked of the component: the rules of styling and of
/// the queries are known to neither this class nor its helpers.
class Explainer {
public:
    /// @param style  must outlive the explainer
    Explainer(const LoadedStyle& style, const std::set<unsigned int>& styleIds);

    /// @param styleId  one of those that the explainer was made for
    Explanation explain(unsigned int styleId, int level);

    const LoadedStyle& style() const { return m_style; }
    const TracedReplay& replay() const { return *m_replay; }
    const ReplayStep& step(std::size_t place) const { return m_replay->steps()[place]; }

private:
    using RecordName = std::pair<int, int>;  // feature type, style id

    void indexTouches();
    std::vector<int> featureTypesOf(int styleId) const;
    RecordVisits visitsTo(int featureType, int styleId, int level) const;
    History historyOf(const RecordVisits& record, std::size_t field);

    void explainRecords(Explanation& explanation);
    void explainType(Explanation& explanation, int featureType);
    Loss howSilent(const Explanation& explanation, const RecordVisits& record);
    void explainIcon(Explanation& explanation);
    void explainOneIcon(Explanation& explanation);
    void explainHiddenIcons(Explanation& explanation, std::size_t hidingStep);
    std::map<int, History> iconHistories(const Explanation& explanation);
    void explainLand(Explanation& explanation);
    void explainGrid(Explanation& explanation) const;

    const LoadedStyle& m_style;
    StoreProbe m_probe;
    std::string m_mapping;  // with the traced style ids only
    std::unique_ptr<TracedReplay> m_replay;
    IntendedWrites m_intended;
    std::map<RecordName, std::vector<Visit>> m_visits;
    std::map<int, std::vector<int>> m_featureTypes;  // by style id
};

}  // namespace customstyle_tool
