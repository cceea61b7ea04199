#include "tools/check/FindingCodes.h"

#include <algorithm>
#include <iterator>

namespace customstyle_tool {
namespace {

using enum Severity;
using enum Trait;

// clang-format off
constexpr CodeInfo kInfos[] = {
    // ---- The text of a file -----------------------------------------------------------------------------------------
    {Code::JsonSyntax, "json-syntax", Error, Style | Refusal, "the file is not JSON",
     "The component reads a file whole or not at all: one wrong character, and none of its rules apply.",
     "correct the text at this position",
     R"([{"featureType": "water"<< >>"elementType": "geometry", "stylers": {"color": "#3366cc"}}])"},
    {Code::JsonComment, "json-comment", Error, Style | Refusal, "a comment",
     "JSON has no comments. The component refuses the whole file.",
     R"(write it in a member "note" of the rule)",
     R"([<<//>> water
  {"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}}])"},
    {Code::JsonTooDeep, "json-too-deep", Error, Style | Refusal, "nested too deep",
     "The component reads lists and objects up to 1,000 deep and refuses a file that goes deeper.",
     "remove brackets: a style file is a list of objects, each with one object in it",
     R"((1000 x [)<<[>>)"},
    {Code::JsonEncoding, "json-encoding", Error, Style | Refusal, "not UTF-8",
     "The file is in an encoding that the component cannot read; it refuses the whole file.",
     "save the file as UTF-8",
     "<<(FF)>>(FE)["},
    {Code::JsonEmpty, "json-empty", Error, Style | Refusal, "an empty file",
     "A file without any value is not JSON. The component refuses it.",
     "write at least the empty list []",
     "<<>>"},
    {Code::JsonLenient, "json-lenient", Warning, Style, "text that other programs refuse as JSON",
     "The component reads numbers such as 007, 1. and -.5, line breaks inside a string, \\u without four hexadecimal "
     "digits (as \\u0000), and bytes that are not UTF-8. Strict readers, such as most editors and build tools, refuse "
     "the whole file.",
     "write valid JSON",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}, "note": <<007>>}])"},
    {Code::TextAfterEnd, "text-after-end", Warning, Style, "text after the end",
     "The component stops reading after the first complete value, so rules after it are ignored. "
     "Zero bytes count as spaces.",
     "move the text into the list, or delete it",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}}]
<<[{"featureType": "green", "elementType": "geometry", "stylers": {"color": "#33cc66"}}]>>)"},
    {Code::TextCutAtNul, "text-cut-at-nul", Warning, Style, "a string with a zero character",
     "The component reads a string up to the first \\u0000; the rest is lost.",
     "remove the \\u0000",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": <<"#3366cc\u000080">>}}])"},
    {Code::NotAList, "not-a-list", Warning, Style, "the outermost value is not a list",
     "A style file is a list of rules. The component reads the members of an object as rules; in any "
     "other value it finds none.",
     "put the rules between [ and ]",
     R"(<<{>>"first": {"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}}})"},
    {Code::NoRules, "no-rules", Note, Style, "a style without rules",
     "There is nothing in it: the map is drawn as if it had no style.",
     "add a rule, or load no style",
     "<<[]>>"},

    // ---- The members of a rule ----------------------------------------------------------------------------------------
    {Code::RuleNotObject, "rule-not-object", Error, Style, "a rule that is not an object",
     "Each element of the list has to be an object. Any other value counts as a rule without a feature type and is "
     "skipped.",
     "write an object with \"featureType\", \"elementType\" and \"stylers\"",
     R"([<<"water">>])"},
    {Code::TypeMissing, "type-missing", Error, Style, "no featureType",
     "A rule that does not name a feature type is skipped.",
     "add \"featureType\" with the name of a feature type",
     R"([<<{>>"elementType": "geometry", "stylers": {"color": "#3366cc"}}])"},
    {Code::TypeNotText, "type-not-text", Error, Style, "featureType is not a string",
     "A feature type is named by a string. With a number, null or anything else the rule is skipped.",
     "write the name of a feature type in double quotes",
     R"([{"featureType": <<2>>, "elementType": "geometry", "stylers": {"color": "#3366cc"}}])"},
    {Code::TypeUnknown, "type-unknown", Error, Style, "an unknown feature type",
     "The name is not one of the 73 feature types, letter by letter and in lower case; the rule is skipped.",
     "use one of the names of the feature types",
     R"([{"featureType": <<"lake">>, "elementType": "geometry", "stylers": {"color": "#3366cc"}}])"},
    {Code::ElementMissing, "element-missing", Error, Style, "no elementType",
     "A rule that does not say which element it means is skipped.",
     "add \"elementType\", for instance \"geometry.fill\"",
     R"([<<{>>"featureType": "water", "stylers": {"color": "#3366cc"}}])"},
    {Code::ElementNotText, "element-not-text", Error, Style, "elementType is not a string",
     "An element is named by a string. With anything else the rule is skipped.",
     "write an element in double quotes, for instance \"geometry.fill\"",
     R"([{"featureType": "water", "elementType": <<["geometry"]>>, "stylers": {"color": "#3366cc"}}])"},
    {Code::StylersMissing, "stylers-missing", Error, Style, "no stylers",
     "A rule without stylers is skipped.",
     "add \"stylers\" with an object, for instance {\"color\": \"#3366cc\"}",
     R"([<<{>>"featureType": "water", "elementType": "geometry"}])"},
    {Code::StylersNotObject, "stylers-not-object", Error, Style, "stylers is not an object",
     "The stylers of a rule are the members of one object. A rule with a list, a string or anything else is skipped.",
     "write the stylers between { and }",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": <<[{"color": "#3366cc"}]>>}])"},
    {Code::NoStyler, "no-styler", Error, Style, "stylers without a styler",
     "\"color\", \"visibility\", \"weight\" and \"fontsize\" are all missing, so the rule is skipped. A level alone "
     "styles nothing.",
     "add a styler, or remove the rule",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": <<{"level": "12"}>>}])"},

    // ---- Members ----------------------------------------------------------------------------------------------------
    {Code::MemberUnknown, "member-unknown", Warning, Style, "an unknown member",
     "The component looks only at the members that it knows; any other is ignored without a message. Members with names such as "
     "\"note\" and \"comment\", or that start with _, $, # or //, count as notes.",
     "remove it, or call it \"note\" if it is one",
     R"([{"featureType": "water", "elementType": "geometry", <<"minLevel">>: "12", "stylers": {"color": "#3366cc"}}])"},
    {Code::MemberMisplaced, "member-misplaced", Warning, Style, "a member in the wrong object",
     "Stylers and the level belong inside \"stylers\"; \"featureType\" and \"elementType\" belong beside it. Anywhere "
     "else they are ignored without a message.",
     "move it to where the component looks for it",
     R"([{"featureType": "water", "elementType": "geometry", <<"level">>: "12", "stylers": {"color": "#3366cc"}}])"},
    {Code::MemberDoubled, "member-doubled", Warning, Style, "a repeated member",
     "The component uses the first of two members with the same name, whatever their letter case. Most other programs "
     "use the last, so what they show is not what is drawn.",
     "keep one of the two",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc", <<"color">>: "#cc3366"}}])"},
    {Code::MemberLetterCase, "member-letter-case", Error, Style, "a styler in the wrong letter case",
     "Styler names are lower case. A styler in any other letter case is ignored.",
     "write the name in lower case",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {<<"Weight">>: "3", "color": "#3366cc"}}])"},
    {Code::MemberCaseAccepted, "member-case-accepted", Note, Style, "a member in an unusual letter case",
     "The component finds this member in any letter case, but other programs do not.",
     "write the name as the component spells it",
     R"([{<<"featuretype">>: "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}}])"},
    {Code::ValueNotText, "value-not-text", Error, Style, "a styler that is not a string",
     "Every styler is a string, numbers too. A styler with a number, true, false or null is ignored; with such a "
     "\"level\" the rule applies at all levels.",
     "put the value in double quotes",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc", "weight": <<3>>}}])"},

    // ---- Elements and stylers ---------------------------------------------------------------------------------------
    {Code::ElementUnknown, "element-unknown", Error, Style, "an unknown element",
     "The component looks at the last word of the element path. It has to be all, labels, geometry, fill, stroke, "
     "topsurface or icon, in lower case; otherwise the styler is dropped.",
     "write one of these elements",
     R"([{"featureType": "water", "elementType": <<"labels.text">>, "stylers": {"color": "#3366cc"}}])"},
    {Code::ElementNotForStyler, "element-not-for-styler", Error, Style, "a styler that does not apply to the element",
     "Icons have no colour, weight or font size, and top surfaces have no weight. The styler is dropped.",
     "name an element that has the styler",
     R"([{"featureType": "water", "elementType": <<"labels.icon">>, "stylers": {"color": "#3366cc"}}])"},
    {Code::ElementUnusual, "element-unusual", Warning, Style, "an unusual element path",
     "Two things count in a path: its last word, and whether \"labels\" or \"all\" occurs anywhere in it, even inside "
     "another word. Other words are not checked.",
     "write the path that you mean",
     R"([{"featureType": "building", "elementType": <<"wall.fill">>, "stylers": {"color": "#3366cc"}}])"},
    {Code::ElementMatchesNothing, "element-matches-nothing", Warning, Style | Settles, "an element that disables styles",
     "The rule reaches records that do not have this element. It writes nothing into them, but they no longer count as "
     "customised: what other rules wrote there is not drawn.",
     "name an element that the labels have",
     R"([{"featureType": "highwaylabel", "elementType": "labels.text.topsurface", "stylers": {<<"color": "#3366cc">>}}])"},
    {Code::HiddenByRule, "hidden-by-rule", Warning, Style | Settles, "hidden by a rule that matches nothing",
     "A later rule reaches the same records with an element that they do not have. From then on they no longer count as "
     "customised, and nothing in them is drawn.",
     "correct the element of the rule that hides this one",
     R"([{"featureType": "town", "elementType": "labels.text.fill", "stylers": {<<"color": "#3366cc">>}},
 {"featureType": "town", "elementType": "labels.text.topsurface", "stylers": {"color": "#3366cc"}}])"},
    {Code::FontsizeWithoutLabels, "fontsize-without-labels", Error, Style, "a font size without labels",
     "Only labels have a font size. On \"land\", \"grid\" and \"all\", and with an element path without \"labels\", it "
     "is dropped.",
     "name a type with labels and a labels element",
     R"([{"featureType": "city", "elementType": <<"geometry.fill">>, "stylers": {"fontsize": "12"}}])"},

    // ---- Values -----------------------------------------------------------------------------------------------------
    {Code::ColorShort, "color-short", Error, Style, "a short colour",
     "The component does not know the form with one digit for each channel. It reads pairs of digits at fixed positions, "
     "and missing digits count as 0: another colour is drawn.",
     "write each digit twice",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": <<"#f00">>}}])"},
    {Code::ColorName, "color-name", Error, Style, "the name of a colour",
     "Colours have no names. The letters are read as if they were digits, and another colour is drawn.",
     "write the colour as #RRGGBB",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": <<"red">>}}])"},
    {Code::ColorWithoutSign, "color-without-sign", Error, Style, "a colour without #",
     "The first character is skipped, whatever it is. Without the #, that is a digit, and all others move by one: another "
     "colour is drawn.",
     "write a # in front",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": <<"ff0000">>}}])"},
    {Code::ColorBadDigit, "color-bad-digit", Error, Style, "a colour with a wrong digit",
     "A character that is not a hexadecimal digit counts as 0: another colour is drawn.",
     "use the digits 0 to 9 and a to f",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": <<"#gg0000">>}}])"},
    {Code::ColorLength, "color-length", Error, Style, "a colour of the wrong length",
     "A colour is # and six digits, or eight with alpha. Missing digits count as 0; extra digits are ignored.",
     "write #RRGGBB or #RRGGBBAA",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": <<"#ff00008">>}}])"},
    {Code::ColorInvisible, "color-invisible", Warning, Style, "an invisible colour",
     "The last two of eight digits are alpha, and 00 is fully transparent. Some tools write alpha first.",
     "write alpha after the colour; to hide something, use \"visibility\": \"off\"",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": <<"#80ff0000">>}}])"},
    {Code::ColorAlphaIgnored, "color-alpha-ignored", Warning, Style, "alpha that is ignored",
     "A boundary is always drawn opaque.",
     "remove the alpha, or choose a paler colour",
     R"([{"featureType": "boundary", "elementType": "geometry.stroke", "stylers": {"color": <<"#3366cc40">>}}])"},
    {Code::VisibilityUnknown, "visibility-unknown", Error, Style, "neither on nor off",
     "Visibility is \"on\" or \"off\", in lower case. Any other value is dropped.",
     "write \"on\" or \"off\"",
     R"([{"featureType": "water", "elementType": "all", "stylers": {"visibility": <<"OFF">>}}])"},
    {Code::SizeNotDigits, "size-not-digits", Error, Style, "a size that is not only digits",
     "Weights and font sizes are whole numbers in digits only. With a sign, a point, a unit or a space the styler is "
     "dropped.",
     "write a whole number from 0 to 255",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"weight": <<"2.5">>}}])"},
    {Code::SizeClamped, "size-clamped", Warning, Style, "a size out of range",
     "Weights and font sizes are at most 255; larger ones become 255.",
     "write a number from 0 to 255",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"weight": <<"300">>}}])"},
    {Code::LevelMalformed, "level-malformed", Error, Style, "a level that is not a whole number",
     "A level is read up to the first character that is not a digit; without any digit it is 0. Then it is clamped to 4 "
     "to 21. There are no ranges of levels.",
     "write one level from 4 to 21, and a rule for each level",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc", "level": <<"12-14">>}}])"},
    {Code::LevelClamped, "level-clamped", Warning, Style, "a level out of range",
     "Levels are 4 to 21. A lower level becomes 4, a higher one 21.",
     "write a level from 4 to 21",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc", "level": <<"25">>}}])"},

    // ---- What a rule reaches ----------------------------------------------------------------------------------------
    {Code::WeightOnBoundary, "weight-on-boundary", Warning, Style, "a weight on boundary",
     "Boundaries are drawn in the renderer's own width; a weight is dropped without a message.",
     "remove the weight",
     R"([{"featureType": "boundary", "elementType": "geometry.stroke", "stylers": {<<"weight": "3">>}}])"},
    {Code::StrokeOnLand, "stroke-on-land", Warning, Style, "a stroke on land",
     "The land has no stroke; the colour is dropped without a message.",
     "use \"geometry.fill\" for the colour of the land",
     R"([{"featureType": "land", "elementType": "geometry.stroke", "stylers": {<<"color": "#3366cc">>}}])"},
    {Code::AllReachesNothing, "all-reaches-nothing", Warning, Style, "the type all",
     "No style id belongs to the type \"all\", and it does not mean all the other types: a rule for it changes "
     "nothing. Only \"icon\" is different: it hides every icon.",
     "write a rule for each type",
     R"([{"featureType": "all", "elementType": "geometry.fill", "stylers": {<<"color": "#3366cc">>}}])"},
    {Code::TypeWithoutIds, "type-without-ids", Warning, Style, "a type without style ids",
     "The mapping file lists no style id for the types that the rule reaches, so there is nothing to style.",
     "remove the rule, or complete the mapping file",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {<<"color": "#3366cc">>}}])",
     R"({"water": [], (every type but "water")})"},
    {Code::NothingReached, "nothing-reached", Warning, Style, "a styler without effect here",
     "For this type and element the component does nothing, without a message.",
     "remove the rule, or name another element",
     R"([{"featureType": "land", "elementType": "labels", "stylers": {<<"visibility": "off">>}}])"},
    {Code::OnRestoresNoColor, "on-restores-no-color", Warning, Style, "on restores no colour",
     "\"off\" makes geometry and text fully transparent. \"on\" shows icons again, but the colours are lost.",
     "remove the rule with \"off\", or give the element a colour again",
     R"([{"featureType": "green", "elementType": "all", "stylers": {"visibility": "off"}},
 {"featureType": "green", "elementType": "geometry.fill", "stylers": {<<"visibility": "on">>}}])"},
    {Code::IconOnAll, "icon-on-all", Warning, Style, "an icon rule for all",
     "An \"icon\" rule for the type \"all\" hides every icon of the map at every level, with \"on\" as well, and no "
     "rule shows them again.",
     "write rules for the types whose icons you mean",
     R"([{"featureType": "all", "elementType": "labels.icon", "stylers": {<<"visibility": "on">>}}])"},
    {Code::GridLevelLost, "grid-level-lost", Warning, Style, "a level for the grid",
     "The grid has one colour for all levels; the level of the rule is lost.",
     "remove the level",
     R"([{"featureType": "grid", "elementType": "geometry.fill", "stylers": {"color": "#3366cc", <<"level": "12">>}}])"},
    {Code::GridUnchanged, "grid-unchanged", Warning, Style, "a grid rule that does not change the grid",
     "The background grid takes its colour from \"geometry.fill\", \"geometry.stroke\" and \"all\" only, and it cannot be "
     "hidden. Other rules for \"grid\" change the style ids that the mapping lists under it, not the background.",
     "write \"geometry.fill\" with a \"color\"",
     R"([{"featureType": "grid", "elementType": "geometry", "stylers": {<<"color": "#3366cc">>}}])"},
    {Code::LandInvisible, "land-invisible", Warning, Style, "the land's background becomes invisible",
     "Once a rule customises the land, the renderer uses the land's fill as the background. A rule that "
     "writes something else and no fill makes the background fully transparent.",
     "give the land a fill too: \"geometry.fill\" with a \"color\"",
     R"([{"featureType": "land", "elementType": "geometry", "stylers": {<<"weight": "3">>}}])"},
    {Code::LandHidden, "land-hidden", Note, Style, "the land's background is hidden",
     "Hiding the geometry of the land makes its background fully transparent.",
     "nothing, if that is what you mean",
     R"([{"featureType": "land", "elementType": "geometry", "stylers": {<<"visibility": "off">>}}])"},
    {Code::AllColorsNamesOnly, "all-colors-names-only", Warning, Style, "all colours only the names",
     "For a type with labels, \"all\" colours the text of the labels and not the geometry.",
     "add a rule for \"geometry\", or write \"labels\" if you mean the names",
     R"([{"featureType": "highway", "elementType": "all", "stylers": {<<"color": "#3366cc">>}}])"},
    {Code::LabelsChangeGeometry, "labels-change-geometry", Warning, Style, "a labels rule that changes geometry",
     "A weight on \"labels\" also changes the geometry of the type, and for a type without labels \"labels\" means the "
     "geometry.",
     "write \"labels.text.fill\" or \"labels.text.stroke\" for the text, and \"geometry\" for the rest",
     R"([{"featureType": "highway", "elementType": "labels", "stylers": {<<"weight": "6">>}}])"},
    {Code::GeometryHidesNames, "geometry-hides-names", Note, Style, "hiding geometry hides names",
     "Hiding the geometry of a type whose names belong to the same type makes the names transparent too.",
     "to keep the names, give them a colour again after this rule",
     R"([{"featureType": "water", "elementType": "geometry", "stylers": {<<"visibility": "off">>}}])"},
    {Code::NamesakeNotReached, "namesake-not-reached", Warning, Style, "names under another type",
     "The names of this type belong to the type of the same name with \"label\", and a rule for one type does not reach "
     "the other.",
     "write the rule for the label type",
     R"([{"featureType": <<"education">>, "elementType": "labels.text.fill", "stylers": {"color": "#3366cc"}}])"},
    {Code::IconsOfCompanion, "icons-of-companion", Note, Style, "icons of the label type",
     "With \"labels.icon\" a type that has a label type of its own changes the icons of that label type only.",
     "write \"icon\" for the type's own icons",
     R"([{"featureType": "highway", "elementType": "labels.icon", "stylers": {<<"visibility": "off">>}}])"},
    {Code::ParentAnswersLast, "parent-answers-last", Note, Style, "a type that is not a group",
     "\"manmade\", \"districtlabel\" and \"poilabel\" are not groups of the types that belong to them. Rules for them apply to "
     "their own style ids, and only if no other type customises those.",
     "write a rule for each type that you mean",
     R"([{"featureType": <<"poilabel">>, "elementType": "labels.text.fill", "stylers": {"color": "#3366cc"}}])"},

    // ---- Rules together -------------------------------------------------------------------------------------
    {Code::LevelReset, "level-reset", Warning, Style | Settles, "lost to a later rule for the same level",
     "If a type has a style for all levels, each styler for one level starts over from that style. What earlier "
     "stylers wrote for the level is lost, even in other fields and even in the same rule.",
     "only the last styler for a level remains: write the others for all levels, or give the type no style for all levels",
     R"([{"featureType": "nationalway", "elementType": "geometry.fill", "stylers": {"color": "#3366cc"}},
 {"featureType": "nationalway", "elementType": "geometry.stroke", "stylers": {<<"color": "#cc3366">>, "level": "12"}},
 {"featureType": "nationalway", "elementType": "geometry.fill", "stylers": {"weight": "6", "level": "12"}}])"},
    {Code::LevelResetsItself, "level-resets-itself", Warning, Style, "a rule that resets its own values",
     "Hiding writes several times, and so does a weight for geometry and texts. At a level each write starts over from the "
     "style for all levels, and only the last one remains.",
     "give the type no style for all levels, but one for each level",
     R"([{"featureType": "town", "elementType": "labels.text.fill", "stylers": {"color": "#3366cc"}},
 {"featureType": "town", "elementType": "labels", "stylers": {<<"visibility": "off">>, "level": "9"}}])"},
    {Code::ShutOutByLevel, "shut-out-by-level", Warning, Style, "shut out by a style for a level",
     "A style for one level replaces the style for all levels completely. It starts as a copy of that style at the "
     "first rule for the level; later rules for all levels do not reach the level.",
     "write rules for all levels before rules for one level",
     R"([{"featureType": "arterial", "elementType": "geometry.fill", "stylers": {"weight": "6", "level": "14"}},
 {"featureType": "arterial", "elementType": "geometry.fill", "stylers": {<<"color": "#3366cc">>}}])"},
    {Code::NoEffect, "no-effect", Warning, Style, "no effect, proven",
     "The file was loaded again without this rule or styler, and every answer of the component stayed the same: for all "
     "style ids, all levels and all four queries; without --mapping, on every map. Whatever is reported "
     "with this code can be removed: each alone, and all of it together. If you remove some of it, check again: two rules "
     "that say the same can each be needed once a third is gone.",
     "remove it",
     R"([{"featureType": "country", "elementType": "labels.text.fill", "stylers": {<<"color": "#3366cc">>}},
 {"featureType": "country", "elementType": "labels.text.fill", "stylers": {"color": "#cc3366"}}])"},
    {Code::SharedIdsLost, "shared-ids-lost", Note, Style, "style ids that follow another type",
     "A style id can belong to several types of the mapping. The first of those that customise it answers, so the values of "
     "this rule are not drawn for it.",
     "write the same rule for the type that answers",
     R"([{"featureType": "nationalwaysign", "elementType": "labels.text.fill", "stylers": {"color": "#3366cc"}},
 {"featureType": "provincialwaysign", "elementType": "labels.text.fill", "stylers": {<<"color": "#cc3366">>}}])",
     R"({"nationalwaysign": [1, 2], "provincialwaysign": [2, 3], (every type but "nationalwaysign" and "provincialwaysign")})"},
    {Code::PartialEffect, "partial-effect", Note, Style | OnRequest, "a partial effect, proven",
     "Without this rule or styler the component's answers change, but only at some levels, or only on icons. Shown with "
     "--effects.",
     "nothing, if that is what you mean",
     R"([{"featureType": "city", "elementType": "labels.text.fill", "stylers": {<<"color": "#3366cc">>}},
 {"featureType": "city", "elementType": "labels.text.fill", "stylers": {"color": "#cc3366", "level": "9"}}])"},
    {Code::EffectsUnproven, "effects-unproven", Warning, Style, "not enough time for all proofs",
     "The time for proofs (--proof-time) ran out before every rule and styler had been tested. Some without effect "
     "may be missing here.",
     "allow more time; \"--proof-time 0\" sets no limit",
     ""},
    {Code::SlotsNearlyFull, "slots-nearly-full", Warning, Style, "nearly too many style keys",
     "Each type, and each type at each level, that a rule styles needs one of the 1,241 slots of the store. The file "
     "needs more than four fifths of them.",
     "write rules for all levels instead of rules for each level",
     R"((70 types at levels 4 to 18))"},
    {Code::SlotsExceeded, "slots-exceeded", Error, Style, "too many style keys",
     "The store has 1,241 slots for types and for types at one level. All are taken; this styler and later ones that "
     "need a new slot are dropped without a message.",
     "write rules for all levels instead of rules for each level",
     R"((1,242 rules for as many types and levels))"},
    {Code::OtherLogLine, "other-log-line", Warning, Style, "a log line",
     "The component logs a line that this tool cannot explain.",
     "see the log line",
     ""},

    // ---- The mapping file -------------------------------------------------------------------------------------------
    {Code::MappingNotObject, "mapping-not-object", Error, Mapping | Refusal, "the mapping is not an object",
     "The mapping file is one object with a list of style ids for each feature type. The component refuses it, and no "
     "style is loaded.",
     "write an object with a member for each feature type",
     R"(<<[]>>)"},
    {Code::MappingTypeMissing, "mapping-type-missing", Error, Mapping | Refusal, "a feature type without a list",
     "The mapping has to name all 72 feature types from \"land\" to \"grid\". The component stops at the first that is "
     "missing, and no style is loaded.",
     "add the missing types, with an empty list [] where there are no style ids",
     R"(<<{>>(every type but "water")})"},
    {Code::MappingNotList, "mapping-not-list", Error, Mapping | Refusal, "a feature type that is not a list",
     "The style ids of a type are a list. The component stops at any other value, and no style is loaded.",
     "write the style ids between [ and ]",
     R"({"water": <<2101>>, (every type but "water")})"},
    {Code::MappingNameUnknown, "mapping-name-unknown", Warning, Mapping, "an unknown name",
     "The component ignores members with other names.",
     "use the name of a feature type, or remove the member",
     R"({<<"lake">>: [1], (every type)})"},
    {Code::MappingNotNumber, "mapping-not-number", Error, Mapping, "a style id that is not a number",
     "A string, null or list among the style ids counts as 0, and true as 1.",
     "write the style id without quotes",
     R"({"water": [2101, <<"2102">>], (every type but "water")})"},
    {Code::MappingIdZero, "mapping-id-zero", Warning, Mapping, "the style id 0",
     "A style id 0 is dropped at the start of a list and after another 0, and kept elsewhere.",
     "remove the 0",
     R"({"water": [<<0>>, 2101], (every type but "water")})"},
    {Code::MappingIdRepeated, "mapping-id-repeated", Warning, Mapping, "a style id twice in one list",
     "Repeating a style id in one list changes nothing.",
     "remove one of the two",
     R"({"water": [2101, 2102, <<2101>>], (every type but "water")})"},
    {Code::MappingIdFraction, "mapping-id-fraction", Warning, Mapping, "a style id with a fraction",
     "Style ids are whole numbers; the fraction is cut off.",
     "write a whole number",
     R"({"water": [<<2101.5>>], (every type but "water")})"},
    {Code::MappingIdOutOfRange, "mapping-id-out-of-range", Warning, Mapping, "a style id out of range",
     "Style ids have 31 bits. A larger number becomes 2147483647, so the style is found under that id only.",
     "use a style id up to 2147483647",
     R"({"water": [<<2147483648>>], (every type but "water")})"},
    {Code::MappingIdNeverFound, "mapping-id-never-found", Warning, Mapping, "a style id that is never found",
     "The renderer asks for unsigned style ids, so a negative style id is never found.",
     "use a style id from 1 to 2147483647",
     R"({"water": [<<-5>>], (every type but "water")})"},
    {Code::MappingIdShared, "mapping-id-shared", Note, Mapping | OnRequest, "style ids under several types",
     "Of several types that customise a style id, the first answers, parent types last; the styles of the "
     "others are not drawn. Shown with --effects.",
     "nothing, if the first type should answer",
     R"({"green": [2001], "water": [2101, <<2001>>], (every type but "green" and "water")})"},
};
// clang-format on

constexpr bool eachInfoStandsAtItsCode() {
    for (std::size_t i = 0; i < std::size(kInfos); ++i) {
        if (kInfos[i].code != static_cast<Code>(i)) return false;
    }
    return std::size(kInfos) == kCodeCount;
}
static_assert(eachInfoStandsAtItsCode());

}  // namespace

std::string_view severityName(Severity severity) {
    constexpr std::string_view kNames[] = {"error", "warning", "note"};
    return kNames[static_cast<std::size_t>(severity)];
}

std::span<const CodeInfo> codeInfos() {
    return kInfos;
}

const CodeInfo& infoOf(Code code) {
    return kInfos[static_cast<std::size_t>(code)];
}

std::optional<Code> codeNamed(std::string_view name) {
    const auto named = [&](const CodeInfo& info) { return info.name == name; };
    const auto* const found = std::ranges::find_if(kInfos, named);
    if (found == std::end(kInfos)) return {};
    return found->code;
}

std::string shownExample(const CodeInfo& info) {
    std::string text = info.example;
    for (const char* mark : {"<<", ">>"}) {
        if (const std::size_t at = text.find(mark); at != std::string::npos) text.erase(at, 2);
    }
    return text;
}

}  // namespace customstyle_tool
