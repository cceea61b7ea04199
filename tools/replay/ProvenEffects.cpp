#include "tools/replay/ProvenEffects.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <utility>

#include "tools/replay/LogRecording.h"
#include "tools/replay/SingleRules.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

// Whether a document is to be left out.
using IsLeftOut = std::function<bool(const SingleRule&)>;

class Proof {
public:
    Proof(std::string_view mapping, const StyleSource& style)
        : m_mapping(componentTree(mapping)), m_rules(singleRules(style)) {
        m_whole = load([](const SingleRule&) { return false; });
        listCases();
    }

    std::vector<ProvenEffect> prove(const Progress& progress) {
        std::vector<std::future<void>> workers;
        for (unsigned i = 0; i < std::max(1u, std::thread::hardware_concurrency()); ++i) {
            workers.push_back(std::async(std::launch::async, [this] { work(); }));
        }
        for (std::future<void>& worker : workers) {
            while (worker.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready) {
                if (progress) progress(m_done, m_cases.size());
            }
        }
        for (std::future<void>& worker : workers) worker.get();
        if (progress) progress(m_cases.size(), m_cases.size());
        return std::move(m_cases);
    }

private:
    // A rule as a whole, and each of its stylers where there are several.
    void listCases() {
        for (std::size_t i = 0; i < m_rules.size(); ++i) {
            const bool isFirst = i == 0 || m_rules[i - 1].rule != m_rules[i].rule;
            const bool isLast = i + 1 == m_rules.size() || m_rules[i + 1].rule != m_rules[i].rule;
            if (isFirst) m_cases.push_back({m_rules[i].rule, "", {}});
            if (!isFirst || !isLast) m_cases.push_back({m_rules[i].rule, m_rules[i].styler, {}});
        }
    }

    void work() {
        for (std::size_t i = m_next++; i < m_cases.size(); i = m_next++) {
            proveCase(m_cases[i]);
            ++m_done;
        }
    }

    void proveCase(ProvenEffect& each) const {
        const auto rest = load([&](const SingleRule& single) {
            return single.rule == each.rule && (each.styler.empty() || single.styler == each.styler);
        });
        each.effect = differenceBetween(*m_whole, *rest);
    }

    std::unique_ptr<CustomConfig> load(const IsLeftOut& isLeftOut) const {
        auto config = std::make_unique<CustomConfig>();
        config->ParseMappingConfig(m_mapping.get());
        for (const SingleRule& single : m_rules) {
            if (!isLeftOut(single)) config->ParseCustomConfig(single.document.get());
        }
        return config;
    }

    Tree m_mapping;
    std::vector<SingleRule> m_rules;
    LogSilence m_quiet;  // behind the rules, whose making records the log
    std::unique_ptr<CustomConfig> m_whole;
    std::vector<ProvenEffect> m_cases;
    std::atomic<std::size_t> m_next = 0;
    std::atomic<std::size_t> m_done = 0;
};

}  // namespace

std::vector<ProvenEffect> proveEffects(std::string_view mapping, const StyleSource& style, const Progress& progress) {
    const int wasEnabled = std::exchange(g_zrsdk_custom_style_enable, 1);
    std::vector<ProvenEffect> effects = Proof(mapping, style).prove(progress);
    g_zrsdk_custom_style_enable = wasEnabled;
    return effects;
}

}  // namespace customstyle_tool
