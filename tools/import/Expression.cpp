#include "tools/import/Expression.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>
#include <vector>

namespace customstyle_tool {
namespace {

using Found = std::optional<MapValue>;

MapValue plain(MapJson json) {
    return {std::move(json), {}};
}

// A text that is a colour where one is wanted.
Found asColor(const Found& value) {
    if (!value || value->color || !value->json.is_string()) return value;
    const auto color = cssColorIn(value->json.get<std::string>());
    return color ? Found(MapValue{nullptr, color}) : value;
}

double part(std::uint64_t color, int shift) {
    return static_cast<double>(color >> shift & 0xff);
}

// Colours are mixed with their alpha multiplied in, as renderers do.
std::uint64_t mixedColor(std::uint64_t from, std::uint64_t to, double share) {
    const double alpha = part(from, 24) * (1 - share) + part(to, 24) * share;
    const auto channel = [&](int shift) {
        const double sum = part(from, shift) * part(from, 24) * (1 - share) + part(to, shift) * part(to, 24) * share;
        return alpha == 0 ? 0 : sum / alpha;
    };
    return packedRgba(channel(0), channel(8), channel(16), alpha / 255);
}

Found mixed(const Found& from, const Found& to, double share) {
    if (!from || !to) return {};
    if (from->json.is_number() && to->json.is_number()) {
        return plain(from->json.get<double>() * (1 - share) + to->json.get<double>() * share);
    }
    const Found first = asColor(from);
    const Found second = asColor(to);
    if (!first->color || !second->color) return {};
    return MapValue{nullptr, mixedColor(*first->color, *second->color, share)};
}

// How far an input is between two stops.
double shareOf(double input, double from, double to, double base) {
    if (base == 1) return (input - from) / (to - from);
    return (std::pow(base, input - from) - 1) / (std::pow(base, to - from) - 1);
}

// Evaluates expressions for one feature at one zoom.
class Evaluator {
public:
    Evaluator(const Feature& feature, double zoom) : m_feature(feature), m_zoom(zoom) {}

    Found value(const MapJson& json) const {
        if (json.is_object()) return ofStops(json);
        if (!json.is_array()) return plain(json);
        if (json.empty() || !json[0].is_string()) return plain(json);
        const auto known = std::ranges::find(kOperators, json[0].get<std::string>(), &Operator::name);
        if (known == std::end(kOperators) || json.size() - 1 < known->least) return {};
        return (this->*known->run)(json);
    }

    std::optional<bool> isTrue(const MapJson& json) const {
        const Found found = value(json);
        return found && found->json.is_boolean() ? std::optional(found->json.get<bool>()) : std::nullopt;
    }

private:
    struct Operator {
        std::string_view name;
        std::size_t least;  // of operands
        Found (Evaluator::*run)(const MapJson& json) const;
    };
    static const Operator kOperators[26];

    Found property(const std::string& name) const {
        if (name == "$type") return plain(m_feature.geometry);
        const auto found = m_feature.properties.find(name);
        return plain(found == m_feature.properties.end() ? MapJson(nullptr) : found->second);
    }

    // The older form of filters names a property where expressions have an operand.
    Found operand(const MapJson& json) const {
        return json.is_string() ? property(json.get<std::string>()) : value(json);
    }

    Found literal(const MapJson& json) const { return plain(json[1]); }
    Found zoom(const MapJson&) const { return plain(m_zoom); }
    Found geometryType(const MapJson&) const { return plain(m_feature.geometry); }

    Found get(const MapJson& json) const {
        if (json.size() != 2 || !json[1].is_string()) return {};
        return property(json[1].get<std::string>());
    }
    Found has(const MapJson& json) const {
        if (json.size() != 2 || !json[1].is_string()) return {};
        return plain(!property(json[1].get<std::string>())->json.is_null());
    }
    Found hasNot(const MapJson& json) const { return negated(has(json)); }

    static Found negated(const Found& found) {
        if (!found || !found->json.is_boolean()) return {};
        return plain(!found->json.get<bool>());
    }
    Found isNot(const MapJson& json) const { return negated(value(json[1])); }

    Found compared(const MapJson& json, const std::function<bool(const MapJson&, const MapJson&)>& holds) const {
        if (json.size() != 3) return {};
        const Found left = json[2].is_array() ? value(json[1]) : operand(json[1]);
        const Found right = value(json[2]);
        if (!left || !right) return {};
        return plain(holds(left->json, right->json));
    }
    Found equal(const MapJson& json) const {
        return compared(json, [](const MapJson& a, const MapJson& b) { return a == b; });
    }
    Found unequal(const MapJson& json) const { return negated(equal(json)); }

    // Other kinds than two numbers or two texts do not compare.
    Found ordered(const MapJson& json, const std::function<bool(const MapJson&, const MapJson&)>& holds) const {
        return compared(json, [&](const MapJson& a, const MapJson& b) {
            const bool areComparable = (a.is_number() && b.is_number()) || (a.is_string() && b.is_string());
            return areComparable && holds(a, b);
        });
    }
    Found less(const MapJson& json) const {
        return ordered(json, [](const MapJson& a, const MapJson& b) { return a < b; });
    }
    Found lessOrEqual(const MapJson& json) const {
        return ordered(json, [](const MapJson& a, const MapJson& b) { return a <= b; });
    }
    Found greater(const MapJson& json) const {
        return ordered(json, [](const MapJson& a, const MapJson& b) { return a > b; });
    }
    Found greaterOrEqual(const MapJson& json) const {
        return ordered(json, [](const MapJson& a, const MapJson& b) { return a >= b; });
    }

    // An operand that decides counts, even where another one is not understood.
    Found joined(const MapJson& json, bool decisive) const {
        bool isUnderstood = true;
        for (std::size_t i = 1; i < json.size(); ++i) {
            const auto holds = isTrue(json[i]);
            if (holds == decisive) return plain(decisive);
            isUnderstood = isUnderstood && holds.has_value();
        }
        return isUnderstood ? Found(plain(!decisive)) : Found();
    }
    Found all(const MapJson& json) const { return joined(json, false); }
    Found any(const MapJson& json) const { return joined(json, true); }
    Found none(const MapJson& json) const { return negated(any(json)); }

    static bool isIn(const MapJson& list, const MapJson& wanted) {
        return std::ranges::find(list, wanted) != list.end();
    }

    // ["in", needle, haystack], and the older ["in", property, value...].
    Found in(const MapJson& json) const {
        const bool isList = json.size() == 3 && json[2].is_array();
        if (isList) {
            const Found needle = value(json[1]);
            const Found haystack = value(json[2]);
            if (!needle || !haystack || !haystack->json.is_array()) return {};
            return plain(isIn(haystack->json, needle->json));
        }
        if (!json[1].is_string()) return {};
        const Found wanted = property(json[1].get<std::string>());
        return plain(std::find(json.begin() + 2, json.end(), wanted->json) != json.end());
    }
    Found notIn(const MapJson& json) const { return negated(in(json)); }

    Found match(const MapJson& json) const {
        const Found input = value(json[1]);
        if (!input) return {};
        for (std::size_t i = 2; i + 1 < json.size(); i += 2) {
            const bool isMatch = json[i].is_array() ? isIn(json[i], input->json) : json[i] == input->json;
            if (isMatch) return value(json[i + 1]);
        }
        return value(json.back());
    }

    Found cases(const MapJson& json) const {
        for (std::size_t i = 1; i + 1 < json.size(); i += 2) {
            const auto holds = isTrue(json[i]);
            if (!holds) return {};
            if (*holds) return value(json[i + 1]);
        }
        return value(json.back());
    }

    Found coalesce(const MapJson& json) const {
        for (std::size_t i = 1; i < json.size(); ++i) {
            Found found = value(json[i]);
            if (!found || !found->json.is_null() || found->color) return found;
        }
        return plain(nullptr);
    }

    Found step(const MapJson& json) const {
        const Found input = value(json[1]);
        if (!input || !input->json.is_number() || json.size() % 2 == 0) return {};
        const MapJson* chosen = &json[2];
        for (std::size_t i = 3; i + 1 < json.size(); i += 2) {
            if (!json[i].is_number()) return {};
            if (input->json.get<double>() >= json[i].get<double>()) chosen = &json[i + 1];
        }
        return value(*chosen);
    }

    Found interpolate(const MapJson& json) const {
        const MapJson& kind = json[1];
        if (!kind.is_array() || kind.empty()) return {};
        const bool isExponential = kind[0] == "exponential" && kind.size() == 2 && kind[1].is_number();
        if (kind[0] != "linear" && !isExponential) return {};
        const Found input = value(json[2]);
        if (!input || !input->json.is_number()) return {};
        std::vector<std::pair<double, const MapJson*>> stops;
        for (std::size_t i = 3; i + 1 < json.size(); i += 2) {
            if (!json[i].is_number()) return {};
            stops.emplace_back(json[i].get<double>(), &json[i + 1]);
        }
        return between(stops, input->json.get<double>(), isExponential ? kind[1].get<double>() : 1);
    }

    Found between(const std::vector<std::pair<double, const MapJson*>>& stops, double input, double base) const {
        if (stops.empty()) return {};
        const auto above = std::ranges::find_if(stops, [&](const auto& stop) { return stop.first > input; });
        if (above == stops.begin()) return value(*stops.front().second);
        if (above == stops.end()) return value(*stops.back().second);
        const auto& below = *(above - 1);
        const double share = shareOf(input, below.first, above->first, base);
        return share == 0 ? value(*below.second) : mixed(value(*below.second), value(*above->second), share);
    }

    // {"stops": [[zoom, value]...], "base": 1.2}: a function of the zoom; numbers and colours are interpolated.
    Found ofStops(const MapJson& json) const {
        const auto list = json.find("stops");
        if (list == json.end() || !list->is_array() || json.contains("property") || json.contains("type")) return {};
        std::vector<std::pair<double, const MapJson*>> stops;
        for (const MapJson& stop : *list) {
            if (!stop.is_array() || stop.size() != 2 || !stop[0].is_number()) return {};
            stops.emplace_back(stop[0].get<double>(), &stop[1]);
        }
        const auto base = json.find("base");
        return between(stops, m_zoom, base != json.end() && base->is_number() ? base->get<double>() : 1);
    }

    Found rgb(const MapJson& json) const {
        if (json.size() != 4 && json.size() != 5) return {};
        double parts[4] = {0, 0, 0, 1};
        for (std::size_t i = 1; i < json.size(); ++i) {
            const Found found = value(json[i]);
            if (!found || !found->json.is_number()) return {};
            parts[i - 1] = found->json.get<double>();
        }
        return MapValue{nullptr, packedRgba(parts[0], parts[1], parts[2], parts[3])};
    }
    Found toColor(const MapJson& json) const { return asColor(value(json[1])); }

    const Feature& m_feature;
    double m_zoom;
};

const Evaluator::Operator Evaluator::kOperators[] = {
    {"literal", 1, &Evaluator::literal},
    {"zoom", 0, &Evaluator::zoom},
    {"geometry-type", 0, &Evaluator::geometryType},
    {"get", 1, &Evaluator::get},
    {"has", 1, &Evaluator::has},
    {"!has", 1, &Evaluator::hasNot},
    {"!", 1, &Evaluator::isNot},
    {"==", 2, &Evaluator::equal},
    {"!=", 2, &Evaluator::unequal},
    {"<", 2, &Evaluator::less},
    {"<=", 2, &Evaluator::lessOrEqual},
    {">", 2, &Evaluator::greater},
    {">=", 2, &Evaluator::greaterOrEqual},
    {"all", 0, &Evaluator::all},
    {"any", 0, &Evaluator::any},
    {"none", 0, &Evaluator::none},
    {"in", 1, &Evaluator::in},
    {"!in", 1, &Evaluator::notIn},
    {"match", 2, &Evaluator::match},
    {"case", 1, &Evaluator::cases},
    {"coalesce", 1, &Evaluator::coalesce},
    {"step", 2, &Evaluator::step},
    {"interpolate", 4, &Evaluator::interpolate},
    {"rgb", 3, &Evaluator::rgb},
    {"rgba", 4, &Evaluator::rgb},
    {"to-color", 1, &Evaluator::toColor},
};

}  // namespace

std::optional<MapValue> valueOf(const MapJson& expression, const Feature& feature, double zoom) {
    return asColor(Evaluator(feature, zoom).value(expression));
}

std::optional<bool> passes(const MapJson& filter, const Feature& feature, double zoom) {
    return filter.is_null() ? true : Evaluator(feature, zoom).isTrue(filter);
}

}  // namespace customstyle_tool
