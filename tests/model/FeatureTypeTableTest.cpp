// The columns of the feature type table, against lists of ids that were written down apart from it.
#include <gmock/gmock.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "customstyle/FeatureTypeTable.h"
#include "tests/support/CaseName.h"

namespace {

using namespace _orvik_framework;
using customstyle_test::caseName;
using testing::ElementsAre;

/// The ids from `first` to `last`.
std::vector<int> ids(int first, int last) {
    std::vector<int> all;
    for (int id = first; id <= last; ++id) all.push_back(id);
    return all;
}

std::vector<int> operator+(std::vector<int> front, const std::vector<int>& back) {
    front.insert(front.end(), back.begin(), back.end());
    return front;
}

struct ColumnCase {
    const char* name;
    std::function<bool(const FeatureTypeRow&)> holds;
    std::vector<int> expected;
};

const ColumnCase kColumns[] = {
    {"CarriesLabels", [](const auto& row) { return row.carriesLabels; }, ids(1, 70)},
    {"LabelsKeptByItself", [](const auto& row) { return row.labelOwner == LabelOwner::Itself; }, {2, 6, 7, 8, 51}},
    {"LabelsOfNobody", [](const auto& row) { return row.labelOwner == LabelOwner::Nobody; }, {71, 72}},
    {"CanBeCompanion", [](const auto& row) { return row.canBeCompanion; }, ids(4, 70)},
    {"IsParent", [](const auto& row) { return row.isParent; }, {4, 45, 53}},
    {"HasFixedWeight", [](const auto& row) { return row.hasFixedWeight; }, {46}},
    {"IsOpaque", [](const auto& row) { return row.isOpaque; }, {46}},
    {"DrawsGeometry", [](const auto& row) { return row.drawsGeometry; }, ids(0, 25) + std::vector{46, 71}},
    {"FamilyOfManmade", [](const auto& row) { return row.family == 4; }, ids(6, 12)},
    {"FamilyOfDistrictLabel", [](const auto& row) { return row.family == 45; }, ids(47, 52)},
    {"FamilyOfPoiLabel", [](const auto& row) { return row.family == 53; }, ids(54, 70)},
    {"FamilyOfNone", [](const auto& row) { return row.family == 72; },
     ids(0, 5) + ids(13, 46) + std::vector{53, 71, 72}},
};

class Column : public testing::TestWithParam<ColumnCase> {};

TEST_P(Column, HoldsForItsTypesAndNoOthers) {
    std::vector<int> found;
    for (const FeatureTypeRow& row : kFeatureTypes) {
        if (GetParam().holds(row)) found.push_back(row.id);
    }
    EXPECT_EQ(found, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(FeatureTypeTable, Column, testing::ValuesIn(kColumns), caseName);

TEST(FeatureTypeTable, HasNoRowOutsideTheCatalogue) {
    for (const int id : {-1, 73, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(featureTypeRow(id), nullptr) << id;
        EXPECT_FALSE(isFeatureType(id)) << id;
        EXPECT_FALSE(isParentFeatureType(id)) << id;
        EXPECT_FALSE(applies(&FeatureTypeRow::carriesLabels, id)) << id;
    }
}

TEST(FeatureTypeTable, AnswersForASingleColumn) {
    EXPECT_TRUE(applies(&FeatureTypeRow::isOpaque, 46));
    EXPECT_FALSE(applies(&FeatureTypeRow::isOpaque, 45));
}

TEST(FeatureTypeTable, ListsTheParentsInTheOrderInWhichTheyAreAsked) {
    EXPECT_THAT(kParentFeatureTypes, ElementsAre(4, 45, 53));
    for (int id = 0; id <= 72; ++id) EXPECT_EQ(isParentFeatureType(id), id == 4 || id == 45 || id == 53) << id;
}

}  // namespace
