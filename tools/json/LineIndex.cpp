#include "tools/json/LineIndex.h"

#include <algorithm>

namespace customstyle_tool {
namespace {

// Known counts are this many bytes apart, so that finding a column takes no longer in a very long line than in a short
// one.
constexpr std::size_t kBlockSize = 4096;

bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, beginsCharacter));
}

}  // namespace

LineIndex::LineIndex(std::string_view text) : m_text(text), m_lineBegins{0}, m_charactersBeforeBlock{0} {
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n', end + 1)) {
        m_lineBegins.push_back(end + 1);
    }
    for (std::size_t block = 0; block + kBlockSize <= text.size(); block += kBlockSize) {
        m_charactersBeforeBlock.push_back(m_charactersBeforeBlock.back() +
                                          characterCount(text.substr(block, kBlockSize)));
    }
}

LinePosition LineIndex::position(std::size_t offset) const {
    offset = std::min(offset, m_text.size());
    const auto nextLine = std::ranges::upper_bound(m_lineBegins, offset);
    const std::size_t begin = *(nextLine - 1);
    const bool behindMark = begin == 0 && offset >= kByteOrderMark.size() && m_text.starts_with(kByteOrderMark);
    const std::size_t characters = charactersBefore(offset) - charactersBefore(begin) - (behindMark ? 1 : 0);
    return {static_cast<std::size_t>(nextLine - m_lineBegins.begin()), 1 + characters, 1 + offset - begin};
}

std::size_t LineIndex::offset(std::size_t line, std::size_t column) const {
    if (line == 0 || line > lineCount()) return line == 0 ? 0 : m_text.size();
    std::size_t at = m_lineBegins[line - 1];
    if (at == 0 && m_text.starts_with(kByteOrderMark)) at += kByteOrderMark.size();
    const std::size_t end = m_lineBegins[line - 1] + lineText(line).size();
    for (; column > 1 && at < end; --column) {
        for (++at; at < end && !beginsCharacter(m_text[at]);) ++at;
    }
    return at;
}

std::string_view LineIndex::lineText(std::size_t line) const {
    const std::size_t begin = m_lineBegins[line - 1];
    if (line == lineCount()) return m_text.substr(begin);
    std::string_view text = m_text.substr(begin, m_lineBegins[line] - 1 - begin);
    if (text.ends_with('\r')) text.remove_suffix(1);
    return text;
}

std::size_t LineIndex::charactersBefore(std::size_t offset) const {
    const std::size_t block = offset / kBlockSize;
    return m_charactersBeforeBlock[block] + characterCount(m_text.substr(block * kBlockSize, offset % kBlockSize));
}

}  // namespace customstyle_tool
