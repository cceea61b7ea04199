#include "tools/layout/Columns.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace customstyle_tool {
namespace {

constexpr std::size_t kBraces = 2;

std::size_t plainWidth(const Row& row) {
    std::size_t width = kBraces + row.cells.size() - 1;
    for (const std::string& cell : row.cells) width += widthOf(cell);
    return width;
}

// The columns that a growing set of rows needs.
class Columns {
public:
    explicit Columns(std::size_t cells) : m_widths(cells) {}

    void take(const Row& row) {
        for (std::size_t i = 0; i < m_widths.size(); ++i) m_widths[i] = std::max(m_widths[i], widthOf(row.cells[i]));
    }
    std::size_t lineWidth() const {
        return std::accumulate(m_widths.begin(), m_widths.end(), kBraces + m_widths.size() - 1);
    }
    const std::vector<std::size_t>& widths() const { return m_widths; }

private:
    std::vector<std::size_t> m_widths;
};

// Aligns as many rows as fit, starting with the shortest.
void alignEqualNames(std::vector<Row*>& rows, std::size_t room) {
    std::ranges::stable_sort(rows, {}, [](const Row* row) { return plainWidth(*row); });
    Columns columns(rows.front()->cells.size());
    std::size_t count = 0;
    for (; count < rows.size(); ++count) {
        Columns wider = columns;
        wider.take(*rows[count]);
        if (wider.lineWidth() > room) break;
        columns = std::move(wider);
    }
    for (std::size_t i = 0; i < count; ++i) rows[i]->columns = columns.widths();
}

}  // namespace

std::size_t widthOf(std::string_view text) {
    const auto startsCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; };
    return static_cast<std::size_t>(std::ranges::count_if(text, startsCharacter));
}

void alignColumns(std::span<Row* const> rows, std::size_t room) {
    std::map<std::string_view, std::vector<Row*>> rowsOf;
    for (Row* row : rows) rowsOf[row->names].push_back(row);
    for (auto& [names, equal] : rowsOf) alignEqualNames(equal, room);
}

std::string textOf(const Row& row) {
    std::string text = "{";
    for (std::size_t i = 0; i + 1 < row.cells.size(); ++i) {
        const std::size_t width = widthOf(row.cells[i]);
        const std::size_t column = row.columns.empty() ? width : row.columns[i];
        text += row.cells[i];
        text.append(1 + column - width, ' ');
    }
    return text + row.cells.back() + "}";
}

}  // namespace customstyle_tool
