// Every text that the component logs, as the log shows it after its prefix. Hosts match these texts: odd blanks and
// odd wording included, they are part of the interface.
#pragma once

#include <string>

#include "vi/vos/VString.h"

namespace _orvik_framework::messages {

using _orvik_vi::CVString;

inline constexpr char kPrefix[] = "ZRX Custom Map: ";

// Loading the two files. A missing style file is reported without its name.
inline constexpr char kMappingFileNotOpened[] = "CustomIndex file open failed";
inline constexpr char kMappingFileRefused[] = "CustomIndex file parse failed";
inline constexpr char kMappingFileNotJson[] = "CustomIndex file parse failed, format error";
inline constexpr char kStyleFileNotOpened[] = "open failed";
inline constexpr char kStyleFileRefused[] = "custom config file parse failed";
inline constexpr char kStyleFileNotJson[] = "custom config file parse failed, format error";

// The frame of a rule.
inline constexpr char kFeatureTypeAbsent[] = R"(warning, "featureType" is  illegal or absent)";  // two blanks
inline constexpr char kElementTypeAbsent[] = R"(warning, "elementType" is illegal or absent)";
inline constexpr char kStylersAbsent[] = R"(warning, "stylers" is illegal or absent)";
inline constexpr char kStylersEmpty[] = R"(warning, "stylers" is undefined)";

inline CVString featureTypeUnknown(const char* name) {
    return CVString(R"(warning, "featureType:)") + name + R"(" is illegal)";
}

// Colour and visibility also complain of "stylers" when their own value is the one that is missing: kStylersAbsent.
inline constexpr char kElementUnknown[] = R"(warning, "elementType" is invalid.)";
inline constexpr char kVisibilityIllegal[] = R"(warning, "visibility" is illegal or absent)";

inline constexpr char kWeightAbsent[] = R"(warning, "weight" is illegal or absent)";
inline constexpr char kWeightNotDigits[] = R"(Error, "weight" contain alpha, is illegal)";
inline constexpr char kElementUnknownToTypeWeight[] = R"(warning, "elementType" is invalid in setTypeWeight.)";
inline constexpr char kElementUnknownToFontWeight[] = R"(warning, "elementType" is invalid in setFontWeightStyle.)";

inline constexpr char kFontSizeAbsent[] = R"(Error, "fontsize" is illegal or absent)";
inline constexpr char kFontSizeNotDigits[] = R"(Error, "fontsize" contain alpha, is illegal)";
inline constexpr char kFontSizeNeedsLabelType[] = R"(Error, "featureType" not include labels element)";
inline constexpr char kElementUnknownToFontSizeWriter[] = R"(warning, "elementType" is invalid in setFontSizeStyle.)";

inline CVString fontSizeNeedsLabels(const CVString& elementType) {
    return R"(Error, ")" + elementType + R"(" not include labels element)";
}

inline CVString elementUnknownToFontSize(const CVString& elementType) {
    return R"(warning, ")" + elementType + R"(" is not set for font size style.)";
}

}  // namespace _orvik_framework::messages
