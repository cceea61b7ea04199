#include "tools/check/StyleCheck.h"

#include <algorithm>
#include <iterator>

#include "tools/check/DocumentFindings.h"
#include "tools/check/EffectFindings.h"
#include "tools/check/StyleFindings.h"

namespace customstyle_tool {
namespace {

constexpr std::vector<Finding> (*kFinders[])(const StyleStudy&) = {
    findInDocument, findMembers, findLogged, findValues, findReach, findHistory, findBackgrounds, findKeys};

void append(std::vector<Finding>& findings, std::vector<Finding> more) {
    findings.reserve(findings.size() + more.size());
    std::ranges::move(more, std::back_inserter(findings));
}

}  // namespace

std::vector<Finding> checkStyle(const StyleStudy& study, const CheckOptions& options) {
    study.spokenConfig();  // briefly needs a tree of the whole text, so this comes before the steps use memory
    std::vector<Finding> findings;
    for (const auto finder : kFinders) append(findings, finder(study));
    markIdle(study, findings);
    // What the rules of a broken file would do to each other is not known yet.
    if (study.source().isWhole() && options.proofs) {
        append(findings,
               findEffects(study, findings,
                           {.details = options.effects, .progress = options.progress, .isTimeUp = options.isTimeUp}));
    }
    if (!options.effects) {
        std::erase_if(findings, [](const Finding& finding) { return infoOf(finding.code).has(Trait::OnRequest); });
    }
    sortFindings(findings);
    return findings;
}

CheckedStyle checkStyle(std::shared_ptr<const SourceFile> file, const Mapping& mapping, const CheckOptions& options,
                        const Spread& spread, const RefusalLog& refusalLog) {
    JsonReading read = readJson(file->text());
    CheckedStyle checked;
    for (const JsonError& error : read.errors) {
        checked.findings.push_back(
            jsonFinding(*file, error, "the component refuses the whole file, and no rule applies"));
        if (refusalLog) checked.findings.back().log = refusalLog(*file);
    }
    if (!read.document) return checked;
    checked.study = std::make_unique<StyleStudy>(file, std::move(*read.document), mapping, spread, read.errors.empty());
    append(checked.findings, checkStyle(*checked.study, options));
    sortFindings(checked.findings);
    if (file->isBuilt()) std::ranges::for_each(checked.findings, leadBack);
    return checked;
}

}  // namespace customstyle_tool
