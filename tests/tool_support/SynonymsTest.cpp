#include <gtest/gtest.h>

#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "tools/vocabulary/Synonyms.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

// Words that authors know from other kinds of maps.
struct Meaning {
    const char* name;  // in a style
    const char* words;
};

std::vector<std::string> wordsOf(const Meaning& meaning) {
    std::istringstream words(meaning.words);
    return {std::istream_iterator<std::string>(words), {}};
}

std::string nameOf(const testing::TestParamInfo<Meaning>& info) {
    std::string name = info.param.name;
    std::erase(name, '.');
    return name;
}

void PrintTo(const Meaning& meaning, std::ostream* out) {
    *out << meaning.name;
}

class FeatureTypeMeant : public testing::TestWithParam<Meaning> {};

TEST_P(FeatureTypeMeant, ByWordsOfOtherMaps) {
    for (const std::string& word : wordsOf(GetParam())) EXPECT_EQ(meantFeatureType(word), GetParam().name) << word;
}

INSTANTIATE_TEST_SUITE_P(
    Words, FeatureTypeMeant,
    testing::Values(Meaning{"green", "park forest wood grass tree garden Park landuse.forest wood_label"},
                    Meaning{"water", "lake river sea ocean canal ocaen river-label"},
                    Meaning{"highway", "motorway motorways road.highway high"},
                    Meaning{"arterial", "road primary secondary secondry road.arterial"},
                    Meaning{"local", "street residential residental"}, Meaning{"nationalway", "trunk"},
                    Meaning{"tertiaryway", "tertiary"}, Meaning{"subway", "metro underground transit transit.line"},
                    Meaning{"railway", "tram train rail"}, Meaning{"land", "landscape background"},
                    Meaning{"building", "house"}, Meaning{"medical", "hospital clinic"},
                    Meaning{"education", "school university"}, Meaning{"hotellabel", "hotel"},
                    Meaning{"airportlabel", "airport"}, Meaning{"financelabel", "bank"}, Meaning{"shopping", "shop"},
                    Meaning{"boundary", "border administrative admin"}, Meaning{"town", "village"},
                    Meaning{"province", "state region"}),
    nameOf);

TEST(FeatureTypeMeant, IsOneWithThisVeryNameBeforeOneThatBeginsWithIt) {
    EXPECT_EQ(meantFeatureType("road.subway"), "subway");
    EXPECT_EQ(meantFeatureType("subway.lake"), "subway");
}

TEST(FeatureTypeMeant, IsNoneForLessThanThreeLetters) {
    for (const char* word : {"", "w", "wa", "la", "to", "a.b", "._-"})
        EXPECT_EQ(meantFeatureType(word), std::nullopt) << word;
}

class LikelyFeatureType : public testing::TestWithParam<Meaning> {};

TEST_P(LikelyFeatureType, IsMisspeltOrMeant) {
    for (const std::string& word : wordsOf(GetParam())) {
        EXPECT_EQ(likelyFeatureType(word), GetParam().name) << word;
        EXPECT_EQ(featureTypeHint(word), std::string("; did you mean \"") + GetParam().name + "\"?") << word;
    }
}

INSTANTIATE_TEST_SUITE_P(Words, LikelyFeatureType,
                         testing::Values(Meaning{"water", "watr WATER wter lake river-label"},
                                         Meaning{"highway", "highwy Highwway motorway"},
                                         Meaning{"estate", "estat state"}, Meaning{"province", "provinc region"}),
                         nameOf);

TEST(LikelyFeatureType, IsNoneForOtherWords) {
    EXPECT_EQ(likelyFeatureType("xyz"), std::nullopt);
    EXPECT_EQ(featureTypeHint("xyz"), "; all names: customstyle list types");
}

class StylerMeant : public testing::TestWithParam<Meaning> {};

TEST_P(StylerMeant, ByWordsOfOtherMaps) {
    for (const std::string& word : wordsOf(GetParam())) EXPECT_EQ(meantStyler(word), GetParam().name) << word;
}

INSTANTIATE_TEST_SUITE_P(
    Words, StylerMeant,
    testing::Values(Meaning{"color",
                            "hue fill stroke opacity alpha saturation lightness gamma brightness fill-color opacty"},
                    Meaning{"weight", "width linewidth strokewidth thickness line-width"},
                    Meaning{"level", "zoom minzoom maxzoom minlevel maxlevel min_zoom"},
                    Meaning{"fontsize", "size font textsize text-size"},
                    Meaning{"visibility", "display visible hidden"}),
    nameOf);

class RuleMemberMeant : public testing::TestWithParam<Meaning> {};

TEST_P(RuleMemberMeant, ByWordsOfOtherMaps) {
    for (const std::string& word : wordsOf(GetParam())) EXPECT_EQ(meantRuleMember(word), GetParam().name) << word;
}

INSTANTIATE_TEST_SUITE_P(Words, RuleMemberMeant,
                         testing::Values(Meaning{"featureType", "feature type layer selector source-layer"},
                                         Meaning{"elementType", "element part"},
                                         Meaning{"stylers", "style styling paint properties propertie"}),
                         nameOf);

class ElementMeant : public testing::TestWithParam<Meaning> {};

TEST_P(ElementMeant, ByWordsOfOtherMaps) {
    const std::vector<std::string> elements = {
        "geometry",    "geometry.fill",    "geometry.stroke",    "labels",
        "labels.icon", "labels.text.fill", "labels.text.stroke", "geometry.topsurface"};
    for (const std::string& word : wordsOf(GetParam()))
        EXPECT_EQ(meantElement(word, elements), GetParam().name) << word;
}

INSTANTIATE_TEST_SUITE_P(Words, ElementMeant,
                         testing::Values(Meaning{"labels", "label"}, Meaning{"labels.icon", "symbol image marker icon"},
                                         Meaning{"labels.text.fill", "text name font labels.text"},
                                         Meaning{"labels.text.stroke", "halo labels.halo"},
                                         Meaning{"geometry", "shape"},
                                         Meaning{"geometry.fill", "background area inside fill"},
                                         Meaning{"geometry.stroke", "outline casing border line geometry.outlin"},
                                         Meaning{"geometry.topsurface", "roof top"}),
                         nameOf);

TEST(ElementMeant, IsOneOfThoseThatTheRuleCanHave) {
    EXPECT_EQ(meantElement("halo", std::vector<std::string>{"geometry.fill"}), std::nullopt);
}

class VisibilityMeant : public testing::TestWithParam<Meaning> {};

TEST_P(VisibilityMeant, ByWordsOfOtherMaps) {
    for (const std::string& word : wordsOf(GetParam())) EXPECT_EQ(meantVisibility(word), GetParam().name) << word;
}

INSTANTIATE_TEST_SUITE_P(Words, VisibilityMeant,
                         testing::Values(Meaning{"on", "true yes 1 show shown visible TRUE visble"},
                                         Meaning{"off", "false no 0 of hide hidden none invisible None"}),
                         nameOf);

}  // namespace
}  // namespace customstyle_test
