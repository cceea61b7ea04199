#include "tools/check/MappingCheck.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

#include "customstyle/CustomConfig.h"
#include "tools/check/DocumentFindings.h"
#include "tools/json/JsonScalars.h"
#include "tools/study/Answers.h"
#include "tools/study/Mapping.h"
#include "tools/study/SingleRules.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Synonyms.h"

namespace customstyle_tool {
namespace {

// The number of style ids that a message names before "and others".
constexpr std::size_t kNamedIds = 5;

std::string idsText(const std::vector<int>& ids) {
    const std::size_t named = std::min(ids.size(), kNamedIds);
    return fmt::format("{}{}", fmt::join(ids.begin(), ids.begin() + static_cast<std::ptrdiff_t>(named), ", "),
                       ids.size() > named ? fmt::format(" and {} others", ids.size() - named) : "");
}

class MappingFindings {
public:
    MappingFindings(const SourceFile& file, const JsonDocument& document) : m_file(file), m_root(document.root()) {}

    std::vector<Finding> run() {
        if (m_root.kind() != JsonKind::Object) {
            add(Code::MappingNotObject, m_root.range(), m_root,
                fmt::format("the mapping is {}, not an object; the component refuses it, and no style is loaded",
                            kindName(m_root.kind())));
            return std::move(m_findings);
        }
        for (const JsonValue member : m_root.children()) {
            m_firsts.try_emplace(inLowerCase(member.name()), member);
            checkMember(member);
        }
        addMissing();
        for (const std::string& name : mappedTypeNames()) checkType(name);
        addShared();
        return std::move(m_findings);
    }

private:
    Finding& add(Code code, TextRange range, JsonValue value, std::string message) {
        return m_findings.emplace_back(code, m_file, range, value.path(), std::move(message));
    }

    Finding& add(Code code, JsonValue value, std::string message) {
        return add(code, value.range(), value, std::move(message));
    }

    // ---- Names -----------------------------------------------------------------------------------------------------

    bool isTypeName(const std::string& name) const {
        return std::ranges::find(mappedTypeNames(), name) != mappedTypeNames().end();
    }

    // The member that the component uses.
    std::optional<JsonValue> memberOf(const std::string& typeName) const {
        const auto found = m_firsts.find(typeName);
        if (found == m_firsts.end()) return {};
        return found->second;
    }

    void checkMember(JsonValue member) {
        const JsonValue first = m_firsts.at(inLowerCase(member.name()));
        if (first != member) {
            Finding& finding =
                add(Code::MemberDoubled, member.nameRange(), member,
                    fmt::format("{} is repeated here; the component uses the first one", inQuotes(member.name())));
            finding.related.push_back({first.nameRange(), "the first one"});
        } else if (!isTypeName(inLowerCase(member.name()))) {
            addUnknown(member);
        } else if (!isTypeName(member.name())) {
            add(Code::MemberCaseAccepted, member.nameRange(), member,
                fmt::format("the component accepts {}, but feature types are spelt in lower case",
                            inQuotes(member.name())));
        }
    }

    void addUnknown(JsonValue member) {
        Finding& finding =
            add(Code::MappingNameUnknown, member.nameRange(), member,
                fmt::format("unknown feature type {}; the component ignores the list", inQuotes(member.name())));
        finding.remedy = featureTypeHint(member.name()).substr(2);
    }

    void addMissing() {
        std::vector<std::string> missing;
        std::ranges::copy_if(mappedTypeNames(), std::back_inserter(missing),
                             [&](const std::string& name) { return !memberOf(name); });
        if (missing.empty()) return;
        const TextRange start{m_root.range().begin, m_root.range().begin + 1};
        add(Code::MappingTypeMissing, start, m_root,
            fmt::format("{} missing: \"{}\"; the component refuses the mapping, and no style is loaded",
                        missing.size() == 1 ? "a feature type is" : fmt::format("{} feature types are", missing.size()),
                        fmt::join(missing, "\", \"")));
    }

    // ---- Lists -----------------------------------------------------------------------------------------------------

    void checkType(const std::string& name) {
        const auto list = memberOf(name);
        if (!list) return;
        if (list->kind() != JsonKind::Array) {
            add(Code::MappingNotList, *list,
                fmt::format("\"{}\" is {}, not a list; the component refuses the mapping, and no style is loaded", name,
                            kindName(list->kind())));
            return;
        }
        std::map<int, JsonValue> seen;
        int previous = 0;
        for (const JsonValue element : list->children()) {
            const int read = element.integer();
            const bool isDropped = read == 0 && previous == 0;
            if (checkId(element, isDropped)) checkRepeated(seen, element);
            if (!isDropped && canBeAskedFor(read)) noteId(name, element);
            previous = read;
        }
    }

    // Whether the style id is worth comparing with others.
    // @param isDropped  whether the component leaves the element out: a 0 at the start or after another 0
    bool checkId(JsonValue element, bool isDropped) {
        const int read = element.integer();
        if (element.kind() != JsonKind::Number) {
            add(Code::MappingNotNumber, element,
                fmt::format(
                    "{} is not a style id; it {}", kindName(element.kind()),
                    isDropped ? "counts as 0, and is dropped" : fmt::format("counts as the style id {}", read)));
        } else if (element.number() != std::floor(element.number())) {
            add(Code::MappingIdFraction, element,
                fmt::format("the fraction is cut off; it becomes the style id {}", read));
        } else if (element.number() != read) {
            add(Code::MappingIdOutOfRange, element,
                fmt::format("the number is out of range; it becomes the style id {}", read));
        } else if (read == 0) {
            add(Code::MappingIdZero, element,
                isDropped ? "0 is dropped at the start of a list and after another 0"
                          : "0 is a style id here; it is dropped only at the start of a list and after another 0");
        } else if (!canBeAskedFor(read)) {
            add(Code::MappingIdNeverFound, element, "the renderer never finds a negative style id");
        } else {
            return true;
        }
        return false;
    }

    void checkRepeated(std::map<int, JsonValue>& seen, JsonValue element) {
        const auto [first, isNew] = seen.try_emplace(element.integer(), element);
        if (isNew) return;
        Finding& finding = add(
            Code::MappingIdRepeated, element,
            fmt::format("the style id {} is already in this list; the repetition changes nothing", element.integer()));
        finding.related.push_back({first->second.range(), "the first one"});
    }

    // ---- Style ids under several types -----------------------------------------------------------------------------

    struct Listing {
        std::string type;
        JsonValue element;
    };

    void noteId(const std::string& type, JsonValue element) {
        std::vector<Listing>& listings = m_listings[element.integer()];
        if (listings.empty() || listings.back().type != type) listings.push_back({type, element});
    }

    // One finding for each pair of types, at the first style id that they share.
    void addShared() {
        struct Shared {
            JsonValue first;
            std::vector<int> ids;
        };
        std::map<std::pair<std::string, std::string>, Shared> pairs;
        for (const auto& [id, listings] : m_listings) {
            for (std::size_t i = 1; i < listings.size(); ++i) {
                Shared& shared =
                    pairs.try_emplace({listings[0].type, listings[i].type}, Shared{listings[i].element, {}})
                        .first->second;
                if (listings[i].element.range().begin < shared.first.range().begin) shared.first = listings[i].element;
                shared.ids.push_back(id);
            }
        }
        for (const auto& [types, shared] : pairs) addShared(types.first, types.second, shared.first, shared.ids);
    }

    void addShared(const std::string& first, const std::string& second, JsonValue place, const std::vector<int>& ids) {
        // Parents answer last, in the order of their ids.
        const bool yields = isParent(first) && !isParent(second);
        add(Code::MappingIdShared, place,
            fmt::format("\"{}\" and \"{}\" share {} style id{} ({}); if both customise one, \"{}\" answers", first,
                        second, ids.size(), ids.size() == 1 ? "" : "s", idsText(ids), yields ? second : first));
    }

    static bool isParent(const std::string& type) {
        return catalogue().IsParentFeatureType(catalogue().GetFeatureTypeId(type)) != 0;
    }

    const SourceFile& m_file;
    JsonValue m_root;
    std::unordered_map<std::string, JsonValue> m_firsts;  // of members with one name, by the name in small letters
    std::map<int, std::vector<Listing>> m_listings;
    std::vector<Finding> m_findings;
};

// Adds the component's log line about a mapping to each finding that makes it refuse the mapping.
void addLog(std::vector<Finding>& findings, const SourceFile& file, const RefusalLog& refusalLog) {
    const auto refuses = [](const Finding& finding) { return infoOf(finding.code).has(Trait::Refusal); };
    if (std::ranges::none_of(findings, refuses)) return;
    const std::string log = refusalLog(file);
    for (Finding& finding : findings) {
        if (refuses(finding)) finding.log = log;
    }
}

}  // namespace

std::vector<Finding> checkMapping(const SourceFile& file, bool effects, const RefusalLog& refusalLog) {
    std::vector<Finding> findings;
    const auto parsed = parseJson(file.text());
    if (const JsonError* error = std::get_if<JsonError>(&parsed)) {
        findings.push_back(jsonFinding(file, *error, "the component refuses the mapping, and no style is loaded"));
    } else {
        const JsonDocument& document = std::get<JsonDocument>(parsed);
        findings = MappingFindings(file, document).run();
        if (std::optional<Finding> behind = textBehindEnd(file, document)) findings.push_back(std::move(*behind));
    }
    if (refusalLog) addLog(findings, file, refusalLog);
    if (!effects)
        std::erase_if(findings, [](const Finding& finding) { return infoOf(finding.code).has(Trait::OnRequest); });
    sortFindings(findings);
    return findings;
}

}  // namespace customstyle_tool
