// What the model knows: the feature types, which cases a rule falls into, and which fields a writer sets.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/model_check/StyleModel.h"

namespace customstyle_test::model {

/// The names of the feature types 0 to 72.
extern const std::vector<std::string> kNames;

/// Geometry types and the types that carry their labels.
extern const std::map<int, int> kCompanions;

enum class Whom { Itself, Companion, OtherCompanion };

struct Step {
    Writer writer;
    Whom whom;
};

/// The steps of one case. The first case that fits a rule is the one that counts.
struct Case {
    std::set<std::string> elements;
    std::set<int> featureTypes;
    bool labelsOnly;  ///< fits only when the whole element type mentions labels
    std::vector<Step> steps;
};

extern const std::vector<Case> kColourCases;
extern const std::vector<Case> kHidingCases;
extern const std::vector<Case> kShowingCases;
extern const std::vector<Case> kWeightCases;
extern const std::vector<Case> kFontSizeCases;

/// The fields that a writer sets for some elements. Each but the icon's has a flag of its own, its name with "Set".
struct Fields {
    Writer writer;
    std::set<std::string> elements;
    std::vector<std::string> fields;
};

extern const std::vector<Fields> kFields;

/// What a writer says for each record when it does not know the element; writers without an entry are silent.
extern const std::map<Writer, std::string> kUnknownElement;

}  // namespace customstyle_test::model
