// What each step reached, and what its author may have expected it to reach.
#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <vector>

#include "customstyle/FeatureTypeTable.h"
#include "tools/check/DocumentFindings.h"
#include "tools/check/StyleFindings.h"
#include "tools/study/Probe.h"
#include "tools/study/StyleKey.h"
#include "tools/vocabulary/Elements.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::applies;
using _orvik_framework::FeatureTypeRow;
using _orvik_framework::isParentFeatureType;

/// What a step did, in short.
struct Reach {
    std::set<int> types;  // the types that it touched
    std::set<FieldPart> wrote;
};

Reach reachOf(const ReplayStep& step) {
    Reach reach;
    for (const RecordTouch& touch : step.touches) {
        reach.types.insert(touch.featureType);
        for (std::size_t field = 0; field < kMarkField; ++field) {
            if (touch.origins[field] == Origin::Written) reach.wrote.insert(styleFields()[field].part);
        }
    }
    return reach;
}

bool drawsGeometry(int type) {
    return applies(&FeatureTypeRow::drawsGeometry, type);
}

std::vector<FeatureTypeRow> familyOf(int parent) {
    std::vector<FeatureTypeRow> family;
    std::ranges::copy_if(_orvik_framework::kFeatureTypes, std::back_inserter(family), [&](const FeatureTypeRow& row) {
        return isParentFeatureType(parent) && row.family == parent;
    });
    return family;
}

class ReachCheck {
public:
    ReachCheck(StyleFindings& found, const std::set<int>& touchedTypes, const ReplayStep& step)
        : m_found(found),
          m_touchedTypes(touchedTypes),
          m_step(step),
          m_rule(found.ruleOf(step)),
          m_reach(reachOf(step)) {
        if (const auto value = m_rule.textMember("visibility")) m_visibility = value->text();
    }

    void run() {
        if (m_step.styler.empty() || !m_step.log.empty()) return;
        checkGlobal();
        if (!m_step.gridColor && !m_step.hidesEveryIcon && m_reach.types.empty()) return checkNothing();
        checkElementPath();
        if (m_reach.types.empty()) return;
        checkParts();
        checkRestored();
        checkTypes();
    }

private:
    void add(Code code, const std::string& message) { m_found.add(code, m_step, message); }

    void checkGlobal() {
        const auto level = m_rule.textMember("level");
        if (m_step.gridColor && level) {
            m_found.add(Code::GridLevelLost, m_rule, {level->nameRange().begin, level->range().end}, level->path(),
                        "the grid has one colour for all levels; the level is lost");
        }
        if (m_step.hidesEveryIcon && (isOn() || level)) {
            add(Code::IconOnAll, isOn() ? "\"on\" hides every icon of the map too, at every level"
                                        : "every icon of the map is hidden, at every level and not only at this one");
        }
    }

    // ---- Steps that do nothing -------------------------------------------------------------------------------------

    void checkNothing() {
        if (!m_step.refused.empty()) return;
        if (!m_step.keys.empty()) return addWithoutRecords();
        if (isOn()) return addIdleOn();
        const bool hasFixedWeight = applies(&FeatureTypeRow::hasFixedWeight, m_rule.typeId);
        const bool isLand = m_rule.typeId == _orvik_framework::EMAPCUSTOMSTYLE_LAND;
        if (m_step.styler == "weight" && hasFixedWeight)
            return add(Code::WeightOnBoundary, "a boundary has no weight; nothing happens");
        if (is(StylerKind::Color) && isLand) return add(Code::StrokeOnLand, "the land has no stroke; nothing happens");
        add(Code::NothingReached, fmt::format("nothing happens: {} does nothing on {} of {}", m_step.styler,
                                              inQuotes(m_rule.path), inQuotes(m_rule.typeName)));
    }

    void addWithoutRecords() {
        if (m_rule.typeId == _orvik_framework::EMAPCUSTOMSTYLE_ALL) {
            return add(Code::AllReachesNothing, "\"all\" does not mean the other types; nothing on the map changes");
        }
        add(Code::TypeWithoutIds,
            fmt::format("the mapping lists no style id that the rule could reach for \"{}\"; nothing changes",
                        m_rule.typeName));
    }

    // With "on" nothing is logged about the element; with "off" it would be.
    void addIdleOn() {
        const AloneOutcome off = outcomeAlone(m_rule.typeName, m_rule.path, "visibility", "off");
        if (!off.log.empty()) {
            const JsonValue element = *m_rule.elementType;
            m_found.add(Code::ElementUnknown, m_rule, element,
                        fmt::format("unknown element {}; nothing happens, and nothing is logged with \"on\"",
                                    inQuotes(m_rule.path)));
        } else if (off.store->m_keyStyleMaps.empty()) {
            add(Code::NothingReached, fmt::format("nothing happens: {} of {} has nothing to show",
                                                  inQuotes(m_rule.path), inQuotes(m_rule.typeName)));
        } else {
            add(Code::OnRestoresNoColor,
                fmt::format("nothing happens: \"on\" shows icons only, and gives {} no colour back",
                            inQuotes(m_rule.path)));
        }
    }

    // ---- Paths -----------------------------------------------------------------------------------------------------

    bool isUsualPath() const {
        const auto& words = m_rule.words;
        const auto text = std::ranges::find(words, "text");
        const bool isTextOfLabels = text == words.end() || (text != words.begin() && *(text - 1) == "labels");
        return std::ranges::all_of(words, isUsualWord) && isTextOfLabels;
    }

    void checkElementPath() {
        if (isUsualPath()) return;
        const JsonValue element = *m_rule.elementType;
        const std::string rule(m_rule.value.source());
        const auto isSame = [&](const Element& usual) {
            return doTheSame(m_rule.textWith(element.range(), fmt::format("\"{}\"", usual.path)), rule);
        };
        const auto same = std::ranges::find_if(elements(), isSame);
        Finding& finding =
            m_found.add(Code::ElementUnusual, m_rule, element,
                        same == elements().end()
                            ? fmt::format("{} is not a usual element; only its last word counts", inQuotes(m_rule.path))
                            : fmt::format("{} has the effect of \"{}\"", inQuotes(m_rule.path), same->path));
        if (same != elements().end())
            finding.remedy = fmt::format("write \"{}\" if you mean that, or another element", same->path);
    }

    // ---- Geometry, text and icons ----------------------------------------------------------------------------------

    void checkParts() {
        const std::string& last = m_rule.words.back();
        const bool isLabelsPath = m_rule.words.front() == "labels";
        if (isLabelsPath && wrote(FieldPart::Geometry) && drawsGeometry(m_rule.typeId)) addGeometryChanged();
        if (is(StylerKind::Color) && last == "all" && !wrote(FieldPart::Geometry) && drawsGeometry(m_rule.typeId)) {
            add(Code::AllColorsNamesOnly,
                fmt::format("only the names of \"{}\" get the colour; the geometry stays as it is", m_rule.typeName));
        }
        const bool keepsLabels = catalogue().UpdateFeatureTypeId(m_rule.typeId) == m_rule.typeId;
        const bool hides = is(StylerKind::Visibility) && !isOn();
        const bool hasLabels = catalogue().IsFeatureTypeIncludeLabels(m_rule.typeId) != 0;
        if (hides && m_rule.names("geometry") && wrote(FieldPart::Text) && keepsLabels && hasLabels &&
            drawsGeometry(m_rule.typeId)) {
            add(Code::GeometryHidesNames,
                fmt::format("the names of \"{}\" are hidden with the geometry", m_rule.typeName));
        }
    }

    void addGeometryChanged() {
        add(Code::LabelsChangeGeometry,
            wrote(FieldPart::Text)
                ? fmt::format("the {} of the geometry of \"{}\" changes as well as that of the labels", m_step.styler,
                              m_rule.typeName)
                : fmt::format("\"{}\" has no labels; the {} of its geometry changes", m_rule.typeName, m_step.styler));
    }

    // "on" for something that is still fully transparent.
    void checkRestored() {
        if (!isOn()) return;
        const bool isHidden = std::ranges::any_of(m_step.touches, [](const RecordTouch& touch) {
            return std::ranges::any_of(styleFields(), [&](const StyleField& field) {
                return field.kind == FieldKind::Color && appliesIn(field, touch.after) &&
                       valueOf(field, touch.after) == 0;
            });
        });
        if (isHidden && m_rule.words.back() != "icon") {
            add(Code::OnRestoresNoColor,
                "\"on\" brings back icons only; what \"off\" made transparent stays transparent");
        }
    }

    // ---- Types -----------------------------------------------------------------------------------------------------

    void checkTypes() {
        checkNamesake();
        const bool isIcon = m_rule.words.back() == "icon" && is(StylerKind::Visibility);
        if (isIcon && !m_reach.types.contains(m_rule.typeId)) {
            const int companion = *m_reach.types.begin();
            add(Code::IconsOfCompanion, fmt::format("this changes the icons of \"{}\"; those of \"{}\" do not change",
                                                    catalogue().GetFeatureTypeName(companion), m_rule.typeName));
        }
        checkFamily();
    }

    void checkNamesake() {
        const int namesake = catalogue().GetFeatureTypeId(m_rule.typeName + "label");
        const bool isLabels = m_rule.names("labels") && wrote(FieldPart::Text);
        const bool isParent = catalogue().IsParentFeatureType(namesake) != 0;
        const auto isNamesake = [&](const std::string& key) { return parsedKey(key).featureType == namesake; };
        if (!isLabels || namesake == -1 || isParent || std::ranges::any_of(m_step.keys, isNamesake)) return;
        m_found
            .add(Code::NamesakeNotReached, m_rule, *m_rule.featureType,
                 fmt::format("the names belong to \"{}label\", which this rule does not reach", m_rule.typeName))
            .remedy = fmt::format("write the rule for \"{}label\"", m_rule.typeName);
    }

    // A rule for a parent in a file that leaves most of its family alone was probably meant for all of it.
    void checkFamily() {
        const std::vector<FeatureTypeRow> family = familyOf(m_rule.typeId);
        const auto touched =
            std::ranges::count_if(family, [&](const FeatureTypeRow& row) { return m_touchedTypes.contains(row.id); });
        if (2 * touched >= std::ssize(family)) return;
        m_found.add(Code::ParentAnswersLast, m_rule, *m_rule.featureType,
                    fmt::format("the rule for \"{}\" applies to its own style ids only, not to \"{}\" to \"{}\"",
                                m_rule.typeName, family.front().name, family.back().name));
    }

    bool is(StylerKind kind) const { return isOfKind(m_step.styler, kind); }
    bool wrote(FieldPart part) const { return m_reach.wrote.contains(part); }
    bool isOn() const { return is(StylerKind::Visibility) && m_visibility == "on"; }

    StyleFindings& m_found;
    const std::set<int>& m_touchedTypes;
    const ReplayStep& m_step;
    const RuleView& m_rule;
    Reach m_reach;
    std::string m_visibility;
};

}  // namespace

std::vector<Finding> findReach(const StyleStudy& study) {
    StyleFindings found(study);
    std::set<int> touchedTypes;
    for (const ReplayStep& step : found.steps()) touchedTypes.merge(reachOf(step).types);
    for (const ReplayStep& step : found.steps()) ReachCheck(found, touchedTypes, step).run();
    return found.take();
}

}  // namespace customstyle_tool
