#include "tools/check/StyleCheck.h"

#include "tools/check/DocumentFindings.h"
#include "tools/check/LoadLog.h"
#include "tools/check/StyleUnderCheck.h"

namespace customstyle_tool {
namespace {

void findOutermost(StyleUnderCheck& check) {
    const JsonValue root = check.style().document().root();
    const TextRange start{root.range().begin, root.range().begin + 1};
    if (root.kind() == JsonKind::Object) {
        check.addToFile(
            Code::NotAList, start,
            "the file is an object, not a list of rules; the component takes the values of its members for rules");
    } else if (root.kind() != JsonKind::Array) {
        check.addToFile(Code::NotAList, root.range(),
                        std::string("the file is ") + std::string(kindName(root.kind())) +
                            ", not a list of rules; no rule applies");
    } else if (check.rules().empty()) {
        check.addToFile(Code::NoRules, root.range(), "the list has no rules; nothing is customised");
    }
}

void findInDocument(StyleUnderCheck& check) {
    const SourceFile& file = check.style().file();
    if (std::optional<Finding> behind = textBehindEnd(file, check.style().document())) {
        check.findings().push_back(std::move(*behind));
    }
    for (Finding& cut : textsCutAtNul(file, check.style().document())) check.findings().push_back(std::move(cut));
    findOutermost(check);
}

}  // namespace

std::vector<Finding> checkStyle(const SourceFile& file, std::string_view mapping, const CheckOptions& options) {
    const auto parsed = parseJson(file.text());
    if (const JsonError* error = std::get_if<JsonError>(&parsed)) {
        Finding finding = jsonFinding(file, *error, "the component refuses the whole file, and no rule applies");
        finding.log = logOfStyle(file);
        return {std::move(finding)};
    }
    const StyleSource style(file, std::get<JsonDocument>(parsed));
    StyleUnderCheck check(style, mapping);
    findInDocument(check);
    findMembers(check);
    findLogged(check);
    findValues(check);
    findReach(check);
    findHistory(check);
    findKeys(check);
    findEffects(check, mapping, options.progress);
    std::vector<Finding> findings = std::move(check.findings());
    if (!options.effects) {
        std::erase_if(findings, [](const Finding& finding) { return isShownOnRequest(finding.code); });
    }
    sortFindings(findings);
    return findings;
}

}  // namespace customstyle_tool
