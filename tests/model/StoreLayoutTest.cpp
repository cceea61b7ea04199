// The layout of records and store in memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <variant>

#include "tests/support/RecordTable.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using namespace _orvik_framework;

// Offsets in the record, by the alignment of 64-bit integers: 8 bytes nearly everywhere, 4 on 32-bit x86.
struct RecordPlace {
    std::string_view what;
    std::size_t actual;
    std::size_t alignedTo8;
    std::size_t alignedTo4;
};

constexpr RecordPlace kRecordPlaces[] = {
    {"m_ID", offsetof(tagCustomStyle, m_ID), 0, 0},
    {"m_textFillColor", offsetof(tagCustomStyle, m_textFillColor), 8, 4},
    {"m_textStrokeColor", offsetof(tagCustomStyle, m_textStrokeColor), 16, 12},
    {"m_textFillColorSet", offsetof(tagCustomStyle, m_textFillColorSet), 24, 20},
    {"m_textStrokeColorSet", offsetof(tagCustomStyle, m_textStrokeColorSet), 28, 24},
    {"m_textFillWeight", offsetof(tagCustomStyle, m_textFillWeight), 32, 28},
    {"m_textStrokeWeight", offsetof(tagCustomStyle, m_textStrokeWeight), 33, 29},
    {"m_textFillWeightSet", offsetof(tagCustomStyle, m_textFillWeightSet), 36, 32},
    {"m_textStrokeWeightSet", offsetof(tagCustomStyle, m_textStrokeWeightSet), 40, 36},
    {"m_fontSize", offsetof(tagCustomStyle, m_fontSize), 44, 40},
    {"m_fontSizeSet", offsetof(tagCustomStyle, m_fontSizeSet), 48, 44},
    {"m_fillColor", offsetof(tagCustomStyle, m_fillColor), 56, 48},
    {"m_borderColor", offsetof(tagCustomStyle, m_borderColor), 64, 56},
    {"m_fillWeight", offsetof(tagCustomStyle, m_fillWeight), 72, 64},
    {"m_borderWeight", offsetof(tagCustomStyle, m_borderWeight), 73, 65},
    {"m_fillColorSet", offsetof(tagCustomStyle, m_fillColorSet), 76, 68},
    {"m_borderColorSet", offsetof(tagCustomStyle, m_borderColorSet), 80, 72},
    {"m_iconHidden", offsetof(tagCustomStyle, m_iconHidden), 84, 76},
    {"m_fillWeightSet", offsetof(tagCustomStyle, m_fillWeightSet), 88, 80},
    {"m_borderWeightSet", offsetof(tagCustomStyle, m_borderWeightSet), 92, 84},
    {"m_topSurfaceColor", offsetof(tagCustomStyle, m_topSurfaceColor), 96, 88},
    {"m_topSurfaceColorSet", offsetof(tagCustomStyle, m_topSurfaceColorSet), 104, 96},
    {"m_custom", offsetof(tagCustomStyle, m_custom), 108, 100},
    {"the end", sizeof(tagCustomStyle), 112, 104},
};

struct ColourBehindAByte {
    char byte;
    std::uint64_t colour;
};

// The renderer reads the record by these offsets.
TEST(StyleRecord, FieldsStandAtTheirOffsets) {
    constexpr std::size_t alignment = offsetof(ColourBehindAByte, colour);
    ASSERT_TRUE(alignment == 8 || (alignment == 4 && sizeof(void*) == 4));
    for (const RecordPlace& place : kRecordPlaces) {
        EXPECT_EQ(place.actual, alignment == 8 ? place.alignedTo8 : place.alignedTo4) << place.what;
    }
}

// The other tests read the record through their table, so its members must have the names that they say.
TEST(StyleRecord, TheTableOfTheTestsNamesItsMembers) {
    const tagCustomStyle record{};
    const auto expectPlace = [&](const std::string& member, const auto& place) {
        const auto named = std::ranges::find(kRecordPlaces, member, &RecordPlace::what);
        ASSERT_NE(named, std::end(kRecordPlaces)) << member;
        EXPECT_EQ(reinterpret_cast<const char*>(&place) - reinterpret_cast<const char*>(&record),
                  static_cast<std::ptrdiff_t>(named->actual))
            << member;
    };
    for (const RecordField& field : kRecordFields) {
        const std::string member = std::string("m_") + field.member;
        std::visit([&](auto value) { expectPlace(member, record.*value); }, field.value);
        expectPlace(member + "Set", record.*field.applies);
    }
}

TEST(StyleRecord, IsPlainData) {
    static_assert(std::is_standard_layout_v<tagCustomStyle> && std::is_trivial_v<tagCustomStyle>);
    static_assert(std::is_aggregate_v<tagCustomStyle>);
}

TEST(StyleRecord, FieldsHaveTheirTypes) {
    static_assert(std::is_same_v<decltype(tagCustomStyle::m_ID), std::int32_t>);
    static_assert(std::is_same_v<decltype(tagCustomStyle::m_textFillColor), std::uint64_t>);
    static_assert(std::is_same_v<decltype(tagCustomStyle::m_textFillWeight), std::uint8_t>);
    static_assert(std::is_same_v<decltype(tagCustomStyle::m_fontSize), std::uint8_t>);
    static_assert(std::is_same_v<decltype(tagCustomStyle::m_fillColor), std::uint64_t>);
    static_assert(std::is_same_v<decltype(tagCustomStyle::m_fillWeight), std::uint8_t>);
    static_assert(std::is_same_v<decltype(tagCustomStyle::m_iconHidden), std::int32_t>);
    static_assert(std::is_same_v<decltype(tagCustomStyle::m_custom), std::int32_t>);
}

struct Place {
    const char* member;
    std::size_t offset;
    std::size_t size;
    std::size_t alignment;
};

template <typename Object, typename Member>
Place placeOf(const char* name, const Object& object, const Member& member) {
    const auto offset = reinterpret_cast<const char*>(&member) - reinterpret_cast<const char*>(&object);
    return {name, static_cast<std::size_t>(offset), sizeof(Member), alignof(Member)};
}

std::size_t alignedUp(std::size_t offset, std::size_t alignment) {
    return (offset + alignment - 1) / alignment * alignment;
}

/// Expects that an object consists of these members in this order and of nothing else.
template <typename Object>
void expectMembersOnly(const std::initializer_list<Place>& places) {
    std::size_t end = 0;
    for (const Place& place : places) {
        EXPECT_EQ(place.offset, alignedUp(end, place.alignment)) << place.member;
        end = place.offset + place.size;
    }
    EXPECT_EQ(sizeof(Object), alignedUp(end, alignof(Object)));
}

TEST(RuleRecorder, HoldsTypeElementAndMarkInThisOrder) {
    const stFeatureTypeStyleRecorder r{};
    expectMembersOnly<stFeatureTypeStyleRecorder>({placeOf("m_featureType", r, r.m_featureType),
                                                   placeOf("m_elementType", r, r.m_elementType),
                                                   placeOf("m_recorded", r, r.m_recorded)});
    static_assert(std::is_same_v<decltype(r.m_featureType), int>);
    static_assert(std::is_same_v<decltype(r.m_recorded), int>);
    static_assert(std::is_same_v<decltype(r.m_elementType), CVString>);
}

TEST(StoreLayout, HoldsItsMembersInTheGivenOrderAndNoOthers) {
    const CustomConfig c;
    expectMembersOnly<CustomConfig>(
        {placeOf("m_typeStyleMaps", c, c.m_typeStyleMaps), placeOf("m_gridColor", c, c.m_gridColor),
         placeOf("m_gridColorSet", c, c.m_gridColorSet), placeOf("m_allIconsHidden", c, c.m_allIconsHidden),
         placeOf("m_styleEffectLevels", c, c.m_styleEffectLevels), placeOf("m_keyStyleMaps", c, c.m_keyStyleMaps),
         placeOf("m_levelStyleMaps", c, c.m_levelStyleMaps), placeOf("m_usedLevelSlots", c, c.m_usedLevelSlots),
         placeOf("m_featureTypeIds", c, c.m_featureTypeIds), placeOf("m_featureTypeNames", c, c.m_featureTypeNames)});
}

TEST(StoreLayout, MembersHaveTheirTypes) {
    using C = CustomConfig;
    static_assert(std::is_same_v<decltype(C::m_typeStyleMaps), CVMapPtrToPtr[73]>);
    static_assert(std::is_same_v<decltype(C::m_levelStyleMaps), CVMapPtrToPtr[1241]>);
    static_assert(std::is_same_v<decltype(C::m_gridColor), std::uint64_t>);
    static_assert(std::is_same_v<decltype(C::m_styleEffectLevels)::value_type, std::pair<const std::string, int>>);
    static_assert(
        std::is_same_v<decltype(C::m_keyStyleMaps)::value_type, std::pair<const std::string, CVMapPtrToPtr*>>);
    static_assert(std::is_same_v<decltype(C::m_featureTypeIds)::value_type, std::pair<const std::string, int>>);
    static_assert(std::is_same_v<decltype(C::m_featureTypeNames)::value_type, std::pair<const int, std::string>>);
}

TEST(StoreLayout, StaysUnder64Kilobytes) {
    EXPECT_LT(sizeof(CustomConfig), 65'536u);
}

TEST(StoreLayout, IsOnePlainClassThatIsNeitherCopiedNorMoved) {
    static_assert(!std::is_polymorphic_v<CustomConfig>);
    static_assert(!std::is_copy_constructible_v<CustomConfig> && !std::is_copy_assignable_v<CustomConfig>);
    static_assert(!std::is_move_constructible_v<CustomConfig> && !std::is_move_assignable_v<CustomConfig>);
}

}  // namespace
}  // namespace customstyle_test
