#include "tests/properties/Properties.h"

#include <exception>
#include <utility>
#include <vector>

#include "tests/model_check/ModelTables.h"

namespace customstyle_test::properties {
namespace {

class Shrinking {
public:
    Shrinking(const Property& property, Trial trial, std::string claim)
        : m_property(property), m_trial(std::move(trial)), m_claim(std::move(claim)) {}

    Trial shrink() {
        for (bool isSmaller = true; isSmaller;) {
            isSmaller = removeRules();
            isSmaller |= removeStylers();
            isSmaller |= emptyLists();
        }
        return m_trial;
    }

private:
    bool keepIfFailing(Trial candidate) {
        const auto failure = tried(m_property, candidate);
        if (!failure || failure->claim != m_claim) return false;
        m_trial = std::move(candidate);
        return true;
    }

    bool removeRules() {
        bool isSmaller = false;
        for (std::size_t i = m_trial.rules.size(); i-- > 0;) {
            Trial candidate = m_trial;
            candidate.rules.erase(candidate.rules.begin() + static_cast<std::ptrdiff_t>(i));
            isSmaller |= keepIfFailing(std::move(candidate));
        }
        return isSmaller;
    }

    bool removeStylers() {
        bool isSmaller = false;
        for (std::size_t i = 0; i < m_trial.rules.size(); ++i) {
            if (!m_trial.rules[i].stylers) continue;
            for (std::size_t j = m_trial.rules[i].stylers->size(); j-- > 0;) {
                Trial candidate = m_trial;
                auto& stylers = *candidate.rules[i].stylers;
                stylers.erase(stylers.begin() + static_cast<std::ptrdiff_t>(j));
                isSmaller |= keepIfFailing(std::move(candidate));
            }
        }
        return isSmaller;
    }

    bool emptyLists() {
        bool isSmaller = false;
        for (std::size_t type = 0; m_trial.mapping && type < m_trial.mapping->size(); ++type) {
            for (std::size_t i = (*m_trial.mapping)[type].size(); i-- > 0;) {
                Trial candidate = m_trial;
                auto& ids = (*candidate.mapping)[type];
                ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(i));
                isSmaller |= keepIfFailing(std::move(candidate));
            }
        }
        return isSmaller;
    }

    const Property& m_property;
    Trial m_trial;
    std::string m_claim;
};

std::string mappingReport(const Trial& trial) {
    if (!trial.mapping) return "no mapping";
    std::string text = "mapping, other lists empty:";
    for (std::size_t type = 0; type < trial.mapping->size(); ++type) {
        if ((*trial.mapping)[type].empty()) continue;
        text += " " + model::kNames[type] + " [";
        for (const int id : (*trial.mapping)[type]) text += std::to_string(id) + " ";
        text.back() = ']';
    }
    return text;
}

}  // namespace

std::optional<Failure> tried(const Property& property, const Trial& trial) {
    try {
        return property.check(trial);
    } catch (const std::exception& error) {
        return Failure{"ends without an exception", error.what()};
    }
}

Trial shrunk(const Property& property, Trial trial, const Failure& failure) {
    return Shrinking(property, std::move(trial), failure.claim).shrink();
}

std::string report(const Property& property, unsigned seed, const Trial& trial, const Failure& failure) {
    return std::string(property.name) + ", seed " + std::to_string(seed) + ": " + failure.claim + ": " +
           failure.detail + "\n" + written(trial.rules).text + mappingReport(trial) + "\n";
}

}  // namespace customstyle_test::properties
