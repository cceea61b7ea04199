// Lists of a few values for the cells of tables.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>

namespace _orvik_framework {

/// At most `Capacity` values, held in place. A longer list does not compile where it is a constant.
template <typename Value, std::size_t Capacity>
class ShortList {
public:
    constexpr ShortList() = default;
    constexpr ShortList(std::initializer_list<Value> values) : m_size(values.size()) {
        std::copy(values.begin(), values.end(), m_values);
    }

    constexpr const Value* begin() const { return m_values; }
    constexpr const Value* end() const { return m_values + m_size; }
    constexpr bool empty() const { return m_size == 0; }

private:
    Value m_values[Capacity] = {};
    std::size_t m_size = 0;
};

}  // namespace _orvik_framework
