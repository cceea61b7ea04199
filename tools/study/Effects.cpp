#include "tools/study/Effects.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <map>
#include <memory>
#include <set>
#include <tuple>

#include "tools/study/ComponentGuard.h"
#include "tools/study/Parts.h"
#include "tools/study/PatchedStore.h"
#include "tools/study/SpeakerAnswers.h"
#include "tools/study/StoreImage.h"
#include "tools/study/StoreKeys.h"
#include "tools/study/StyleKey.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::kFeatureTypeCount;
using _orvik_vi::cJSON;
using State = std::optional<tagCustomStyle>;  // none where a key has no slot

// Two settings of the whole map take part as if they were keys, their values as if they were records.
const std::string kGridKey = "grid";
const std::string kIconKey = "icons";

State gridState(bool isSet, std::uint64_t color) {
    tagCustomStyle style{};
    style.m_custom = isSet ? 1 : 0;
    style.m_fillColor = color;
    return style;
}

State iconState(bool isHidden) {
    tagCustomStyle style{};
    style.m_iconHidden = isHidden ? 1 : 0;
    return style;
}

bool isSame(const State& state, const tagCustomStyle* style) {
    return state.has_value() == (style != nullptr) && (!state || sameFields(*state, *style));
}

// The settings of the whole map that a step leaves behind, as if they were records.
struct Settings {
    State grid;
    State icons;

    explicit Settings(const ReplayStep& step) {
        if (step.gridColor) grid = gridState(true, *step.gridColor);
        if (step.hidesEveryIcon) icons = iconState(true);
    }
};

// Calls `visit(key, style)` for everything that a step leaves behind when nothing is left out; the style of a key
// without a slot is null.
template <typename Visit>
void forEachStateAfter(const ReplayStep& step, Visit visit) {
    for (const RecordTouch& touch : step.touches) visit(touch.key, &touch.after);
    for (const std::string& key : step.refused) visit(key, nullptr);
    const Settings settings(step);
    if (settings.grid) visit(kGridKey, &*settings.grid);
    if (settings.icons) visit(kIconKey, &*settings.icons);
}

// A step, and what it leaves behind differently once everything found idle so far is left out.
struct Work {
    const ReplayStep* step;
    std::size_t place;
    Tree document;
    std::map<std::string, State> adopted{};
    bool isLeftOut = false;
};

// ---- A store that can undo steps ------------------------------------------------------------------------------------

class UndoableStore {
public:
    explicit UndoableStore(const cJSON* mapping) { m_config.ParseMappingConfig(mapping); }

    /// Returns to the state before the first step.
    void startAgain() { forgetStyles(m_config); }

    void apply(const Work& work) {
        if (m_isMarked) {
            for (const std::string& key : work.step->keys) note(key);
        }
        m_config.ParseCustomConfig(work.document.get());
    }

    /// Takes back the last step; no step may have been left out.
    /// @param grid, icons  the settings before the step
    void stepBack(const ReplayStep& step, const State& grid, const State& icons) {
        for (const RecordTouch& touch : step.touches) write(touch.key, touch.before);
        forgetKeys(m_config, step.newKeys, m_config.m_usedLevelSlots - static_cast<int>(step.newKeys.size()));
        set(grid, icons);
    }

    State stateOf(const std::string& key) const {
        if (key == kGridKey) return gridState(m_config.m_gridColorSet != 0, m_config.m_gridColor);
        if (key == kIconKey) return iconState(m_config.m_allIconsHidden != 0);
        const auto* const slot = slotOf(m_config, key);
        if (slot == nullptr) return {};
        State state = tagCustomStyle{};
        forEachSlotRecord(*slot, [&](int, const tagCustomStyle& record) { state = record; });
        return state;
    }

    /// From here on all changes can be taken back.
    void mark() {
        m_isMarked = true;
        m_slots = m_config.m_usedLevelSlots;
        m_grid = stateOf(kGridKey);
        m_icons = stateOf(kIconKey);
    }

    void takeBack() {
        std::vector<std::string> added;
        for (const auto& [key, before] : m_before) before ? write(key, *before) : void(added.push_back(key));
        forgetKeys(m_config, added, m_slots);
        set(m_grid, m_icons);
        m_before.clear();
        m_isMarked = false;
    }

private:
    void note(const std::string& key) {
        if (!m_before.contains(key)) m_before.emplace(key, stateOf(key));
    }

    void write(const std::string& key, const tagCustomStyle& style) {
        forEachSlotRecord(*slotOf(m_config, key), [&](int, tagCustomStyle& record) { record = style; });
    }

    void set(const State& grid, const State& icons) {
        m_config.m_gridColorSet = grid->m_custom;
        m_config.m_gridColor = grid->m_fillColor;
        m_config.m_allIconsHidden = icons->m_iconHidden;
    }

    CustomConfig m_config;
    bool m_isMarked = false;
    int m_slots = 0;
    State m_grid;
    State m_icons;
    std::map<std::string, State> m_before;
};

// ---- Asking ---------------------------------------------------------------------------------------------------------

using LevelsByType = std::map<int, LevelSet>;

// The questions that can be answered differently once records are exchanged. Not for several threads at once.
class Questions {
public:
    explicit Questions(const StyleStudy& study)
        : m_before(study.spokenConfig()),
          m_speakers(study.mapping().speakers()),
          m_answersBefore(m_before, m_speakers),
          m_ofType(kFeatureTypeCount) {
        for (const Speaker& speaker : m_speakers) {
            for (const int type : speaker.types) m_ofType[static_cast<std::size_t>(type)].push_back(&speaker);
        }
    }

    /// What changes; without `details`, only whether anything changes.
    Effect compare(const CustomConfig& after, const LevelsByType& types, bool details) const {
        Effect effect;
        compareBackgrounds(effect, m_before, after);
        const Speaker& unlisted = m_speakers.back();
        if (m_before.m_allIconsHidden != after.m_allIconsHidden) compareStyleId(effect, after, unlisted, details);
        for (const auto& [type, levels] : types) {
            for (const Speaker* speaker : m_ofType[static_cast<std::size_t>(type)]) {
                if (effect.any() && !details) return effect;
                compareStyleId(effect, after, *speaker, details, levels);
            }
        }
        return effect;
    }

private:
    void compareStyleId(Effect& effect, const CustomConfig& after, const Speaker& speaker, bool details,
                        LevelSet levels = LevelSet().set()) const {
        for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
            if (!levels[levelClass] || (effect.styles[levelClass] && effect.icons[levelClass])) continue;
            const Answer right = ask(after, speaker.styleId, levelOfClass(levelClass));
            const bool isChanged = addDifference(effect, levelClass, m_answersBefore.at(speaker, levelClass), right);
            if (isChanged && !details) return;
        }
    }

    const CustomConfig& m_before;
    const std::vector<Speaker>& m_speakers;
    const SpeakerAnswers m_answersBefore;
    std::vector<std::vector<const Speaker*>> m_ofType;
};

// ---- One part -------------------------------------------------------------------------------------------------------

// What the parts share.
struct Proof {
    const StyleStudy& study;
    const ProofOptions& options;
    std::size_t all = 0;
    std::atomic<std::size_t> done = 0;
    std::atomic<bool> isStopped = false;

    bool isKept(std::size_t step) const { return step < options.kept.size() && options.kept[step]; }

    void tick() {
        const std::size_t now = ++done;
        if (options.progress) options.progress(std::min(now, all), all);
        watchTime();
    }

    void watchTime() {
        if (options.isTimeUp && options.isTimeUp()) isStopped = true;
    }
};

// Built from the single rules: the tree of a whole text would take much memory.
std::unique_ptr<CustomConfig> wholeStore(const StyleStudy& study) {
    auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(study.mapping().speakersTree());
    for (const SingleRule& single : study.singles()) config->ParseCustomConfig(single.document().get());
    return config;
}

// What a lane keeps from part to part: making the stores takes longer than proving a small part.
struct Lane {
    explicit Lane(const StyleStudy& study)
        : patched(wholeStore(study)), store(study.mapping().tracedTree()), questions(study) {}

    PatchedStore patched;
    UndoableStore store;
    Questions questions;
};

// What is left out besides the works in question.
enum class Without : std::uint8_t { Nothing, AllIdle };

class PartProof {
public:
    PartProof(Proof& proof, const std::vector<std::size_t>& steps, Lane& lane)
        : m_proof(proof), m_lane(lane), m_store(lane.store) {
        const StyleStudy& study = proof.study;
        for (const std::size_t step : steps) {
            m_works.push_back({&study.steps()[step], step, study.singles()[step].document()});
        }
    }

    // What is idle must be idle both from the last rule to the first and from the first to the last.
    Proofs run() {
        proveBackwards();
        while (!holdsForwards()) proveBackwards();
        return std::move(m_proofs);
    }

    /// Whether the store differs once some of what is idle is left out, even if no answer changes.
    bool leavesDifference() const { return m_leavesDifference; }

private:
    std::size_t ruleOf(std::size_t place) const { return m_works[place].step->rule; }
    bool isKept(std::size_t place) const { return m_proof.isKept(m_works[place].place); }

    // A work that hides others comes after them, so they are all still there when its turn comes.
    void proveBackwards() {
        startAgain();
        m_proofs = {};
        m_idle.clear();
        m_leavesDifference = false;
        for (std::size_t end = m_works.size(); end > 0;) {
            std::size_t begin = end - 1;
            while (begin > 0 && ruleOf(begin - 1) == ruleOf(begin)) --begin;
            proveRule(begin, end);
            end = begin;
        }
    }

    // Leaves out the idle works one after another, starting with the first rule. If one of them then changes an answer,
    // it is never considered idle again. If the time is up before the last one, none of them is proven.
    bool holdsForwards() {
        if (m_idle.size() < 3) return true;  // each alone, and both together, have been left out already
        startAgain();
        std::ranges::sort(m_idle);
        for (const auto& [begin, end] : m_idle) {
            m_proof.watchTime();
            if (m_proof.isStopped) {
                forgetIdle();
                return true;
            }
            for (; m_position < begin; ++m_position) {
                if (!m_works[m_position].isLeftOut) m_store.apply(m_works[m_position]);
            }
            if (effectWithout(begin, end, Without::AllIdle).any()) {
                m_neverIdle.insert({begin, end});
                return false;
            }
            m_leavesDifference |= !m_different.empty();
            adopt();
            for (std::size_t i = begin; i < end; ++i) m_works[i].isLeftOut = true;
        }
        return true;
    }

    void forgetIdle() {
        m_proofs.unproven += std::erase_if(m_proofs.effects, [](const ProvenEffect& each) { return each.isIdle; });
        m_leavesDifference = false;
    }

    void startAgain() {
        m_store.startAgain();
        m_position = 0;
        m_grids.clear();
        m_hidingIcons = 0;
        m_adopted.clear();
        for (Work& work : m_works) {
            work.adopted.clear();
            work.isLeftOut = false;
        }
    }

    void proveRule(std::size_t begin, std::size_t end) {
        bool isAnyKept = false;
        for (std::size_t i = begin; i < end; ++i) isAnyKept |= isKept(i);
        if (!isAnyKept && end - begin > 1 && prove(begin, end, {})) return;
        for (std::size_t i = end; i-- > begin;) {
            if (!isKept(i)) prove(i, i + 1, m_works[i].place);
        }
    }

    // Whether the works are idle; if so, they are left out from then on.
    bool prove(std::size_t begin, std::size_t end, std::optional<std::size_t> step) {
        if (m_proof.isStopped) {
            ++m_proofs.unproven;
            return false;
        }
        Effect effect;
        const bool isIdle = isIdleInEachWay(begin, end, effect);
        if (isIdle) adopt();
        if (isIdle) m_idle.emplace_back(begin, end);
        m_proofs.effects.push_back({ruleOf(begin), step, isIdle, effect});
        for (std::size_t i = begin; i < end; ++i) m_works[i].isLeftOut = isIdle;
        m_proof.tick();
        return isIdle;
    }

    bool isIdleInEachWay(std::size_t begin, std::size_t end, Effect& effect) {
        moveTo(begin);
        m_differsByOthers = false;
        effect = effectWithout(begin, end, Without::Nothing);
        if (effect.any() || m_neverIdle.contains({begin, end})) return false;
        const bool differsAlone = !m_different.empty();
        if (m_differsByOthers && effectWithout(begin, end, Without::AllIdle).any()) return false;
        m_leavesDifference |= differsAlone || !m_different.empty();
        return true;
    }

    // Brings the store to its state before a work, with all works before it applied.
    void moveTo(std::size_t place) {
        for (; m_position < place; ++m_position) {
            const Settings settings(*m_works[m_position].step);
            if (settings.grid) m_grids.push_back(*settings.grid);
            m_hidingIcons += settings.icons ? 1 : 0;
            m_store.apply(m_works[m_position]);
        }
        for (; m_position > place; --m_position) {
            const ReplayStep& step = *m_works[m_position - 1].step;
            const Settings settings(step);
            if (settings.grid) m_grids.pop_back();
            m_hidingIcons -= settings.icons ? 1 : 0;
            m_store.stepBack(step, m_grids.empty() ? gridState(false, 0) : m_grids.back(),
                             iconState(m_hidingIcons > 0));
        }
    }

    // Continues from the store's position without the works, until everything is as it is with them, or to the end.
    Effect effectWithout(std::size_t begin, std::size_t end, Without without) {
        m_different.clear();
        m_changed.clear();
        for (std::size_t i = begin; i < end; ++i) compare(i, without);
        if (m_different.empty()) return {};
        m_store.mark();
        for (std::size_t i = end; i < m_works.size() && !m_different.empty(); ++i) {
            m_differsByOthers |= m_works[i].isLeftOut;
            if (m_works[i].isLeftOut && without == Without::AllIdle) continue;
            m_store.apply(m_works[i]);
            compare(i, without);
        }
        const Effect effect = m_different.empty() ? Effect() : effectOfDifference(without);
        m_store.takeBack();
        return effect;
    }

    // Finds where the records of a work's keys differ from what they would be with the works that are being left out.
    void compare(std::size_t place, Without without) {
        Work& work = m_works[place];
        forEachStateAfter(*work.step, [&](const std::string& key, const tagCustomStyle* style) {
            const auto adopted = without == Without::Nothing ? work.adopted.end() : work.adopted.find(key);
            if (adopted != work.adopted.end()) style = adopted->second ? &*adopted->second : nullptr;
            const State now = m_store.stateOf(key);
            if (isSame(now, style)) {
                m_different.erase(key);
            } else {
                m_different.insert(key);
                m_changed.push_back({&work, key, now});
            }
        });
    }

    Effect effectOfDifference(Without without) {
        std::set<std::string> keys = m_different;
        if (without == Without::AllIdle) keys.insert(m_adopted.begin(), m_adopted.end());
        LevelsByType types;
        for (const std::string& key : keys) patch(key, types);
        const Effect effect = m_lane.questions.compare(m_lane.patched.config(), types, m_proof.options.details);
        m_lane.patched.takeBack();
        return effect;
    }

    void patch(const std::string& key, LevelsByType& types) {
        const State state = m_store.stateOf(key);
        if (key == kGridKey) return m_lane.patched.setGridColor(state->m_custom != 0, state->m_fillColor);
        if (key == kIconKey) return m_lane.patched.hideEveryIcon(state->m_iconHidden != 0);
        m_lane.patched.set(key, state);
        const auto [featureType, level] = parsedKey(key);
        types[featureType] |= level ? LevelSet().set(classOfLevel(*level)) : LevelSet().set();
    }

    void adopt() {
        for (Changed& changed : m_changed) changed.work->adopted[changed.key] = changed.state;
        m_adopted.insert(m_different.begin(), m_different.end());
    }

    struct Changed {
        Work* work;
        std::string key;
        State state;
    };

    Proof& m_proof;
    Lane& m_lane;
    UndoableStore& m_store;
    std::size_t m_position = 0;           // index of the work that the store applies next
    std::vector<tagCustomStyle> m_grids;  // written up to there, in order
    std::size_t m_hidingIcons = 0;        // number of works up to there that hide every icon
    std::vector<Work> m_works;
    Proofs m_proofs;
    using Places = std::pair<std::size_t, std::size_t>;  // of works: the first, and one past the last
    std::vector<Places> m_idle;
    std::set<Places> m_neverIdle;
    std::set<std::string> m_different;  // keys that differ now
    std::vector<Changed> m_changed;
    bool m_differsByOthers = false;   // whether the last walk passed works that are left out
    std::set<std::string> m_adopted;  // keys that differ from the whole style at the end, without changing an answer
    bool m_leavesDifference = false;
};

// ---- All parts ------------------------------------------------------------------------------------------------------

using Part = std::vector<std::size_t>;  // indices of steps, ascending

std::vector<Part> partsOf(const StyleStudy& study) {
    std::vector<Part> parts = independentParts(study.steps());
    std::vector<bool> isInPart(study.steps().size());
    for (const Part& part : parts) {
        for (const std::size_t step : part) isInPart[step] = true;
    }
    Part rest;
    for (std::size_t i = 0; i < isInPart.size(); ++i) {
        if (!isInPart[i]) rest.push_back(i);
    }
    if (!rest.empty()) parts.push_back(std::move(rest));
    return parts;
}

struct PartOutcome {
    Proofs proofs;
    bool leavesDifference = false;
};

// Preparing one more lane takes as long as proving hundreds of steps.
constexpr std::size_t kStepsWorthALane = 500;

std::vector<PartOutcome> proveParts(Proof& proof, const std::vector<Part>& parts) {
    const StyleStudy& study = proof.study;
    study.spokenConfig();  // computed now, not on first use: by then several threads may ask for it
    const Spread alone;
    const Spread& spread = proof.all < kStepsWorthALane ? alone : study.spread();
    std::vector<std::unique_ptr<Lane>> lanes(spread.lanes);
    std::vector<PartOutcome> outcomes(parts.size());
    spread.run(parts.size(), [&](std::size_t part, std::size_t lane) {
        if (lanes[lane] == nullptr) lanes[lane] = std::make_unique<Lane>(study);
        PartProof partProof(proof, parts[part], *lanes[lane]);
        outcomes[part].proofs = partProof.run();
        outcomes[part].leavesDifference = partProof.leavesDifference();
    });
    return outcomes;
}

// Each part is proven with nothing left out of the others, but different parts could cover for each other at a style id
// that is listed under types of both. That takes records that differ without changing an answer. It is rare, so that
// only the parts with such records are proven again, as one.
std::vector<PartOutcome> proveAll(Proof& proof) {
    const std::vector<Part> parts = partsOf(proof.study);
    std::vector<PartOutcome> outcomes = proveParts(proof, parts);
    if (std::ranges::count(outcomes, true, &PartOutcome::leavesDifference) < 2) return outcomes;
    Part joined;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (outcomes[i].leavesDifference) joined.insert(joined.end(), parts[i].begin(), parts[i].end());
    }
    std::ranges::sort(joined);
    std::erase_if(outcomes, [](const PartOutcome& each) { return each.leavesDifference; });
    outcomes.push_back(std::move(proveParts(proof, {joined}).front()));
    return outcomes;
}

auto orderOf(const ProvenEffect& effect) {
    return std::tuple(effect.rule, effect.step);
}

}  // namespace

Proofs proveEffects(const StyleStudy& study, const ProofOptions& options) {
    const ComponentGuard guard;
    Proof proof{study, options};
    proof.all = study.steps().size();
    Proofs all;
    for (const PartOutcome& each : proveAll(proof)) {
        all.effects.insert(all.effects.end(), each.proofs.effects.begin(), each.proofs.effects.end());
        all.unproven += each.proofs.unproven;
    }
    std::ranges::sort(all.effects, {}, orderOf);
    return all;
}

}  // namespace customstyle_tool
