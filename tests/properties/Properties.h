// What has to hold for every style and every map, whatever the tools say about them.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "tests/properties/Trial.h"

namespace customstyle_test::properties {

struct Failure {
    std::string claim;   ///< what does not hold
    std::string detail;  ///< where
};

using Check = std::optional<Failure> (*)(const Trial&);

struct Property {
    const char* name;  ///< the subcommand that makes the claims
    Check check;
};

/// What minify makes of a text on a trial's map.
std::string minifiedText(const Trial& trial, const std::string& text);

std::optional<Failure> checkHolds(const Trial& trial);
std::optional<Failure> minifyHolds(const Trial& trial);
std::optional<Failure> diffHolds(const Trial& trial);
std::optional<Failure> explainHolds(const Trial& trial);
std::optional<Failure> dumpHolds(const Trial& trial);
std::optional<Failure> formatHolds(const Trial& trial);

inline constexpr Property kProperties[] = {
    {"check", checkHolds},     {"minify", minifyHolds}, {"diff", diffHolds},
    {"explain", explainHolds}, {"dump", dumpHolds},     {"format", formatHolds},
};

/// The property's check; what it throws is a failure too.
std::optional<Failure> tried(const Property& property, const Trial& trial);

/// A trial as small as possible of which the same claim fails.
Trial shrunk(const Property& property, Trial trial, const Failure& failure);

/// Describes a failure so that it can be repeated by hand.
std::string report(const Property& property, unsigned seed, const Trial& trial, const Failure& failure);

}  // namespace customstyle_test::properties
