// Bytes of a fuzzer as decisions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace customstyle_fuzz {

/// Hands out the bytes of an input one after another; after the end all are 0. Read one value a statement: compilers
/// differ in the order of arguments and operands.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    bool isEmpty() const { return m_position >= m_size; }

    std::uint8_t byte() { return isEmpty() ? std::uint8_t{0} : m_data[m_position++]; }

    /// A number below `end`, which is 256 at most.
    std::size_t below(std::size_t end) { return byte() % end; }

    template <typename Value, std::size_t kCount>
    const Value& oneOf(const Value (&values)[kCount]) {
        return values[below(kCount)];
    }

    std::uint32_t word() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = value << 8 | byte();
        return value;
    }

    /// A text of up to `longest` bytes.
    std::string text(std::size_t longest) {
        std::string text;
        for (std::size_t size = below(longest + 1); size > 0 && !isEmpty(); --size) text += static_cast<char>(byte());
        return text;
    }

    /// All that is left.
    std::string_view rest() const { return {reinterpret_cast<const char*>(m_data) + m_position, m_size - m_position}; }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_position = 0;
};

}  // namespace customstyle_fuzz
