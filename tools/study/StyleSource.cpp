#include "tools/study/StyleSource.h"

#include <utility>

namespace customstyle_tool {

StyleSource::StyleSource(const SourceFile& file, JsonDocument document, bool isWhole)
    : m_file(&file), m_document(std::move(document)) {
    for (const JsonValue rule : m_document.root().children()) m_rules.push_back(rule);
    if (isWhole) return;
    m_readable = "[";
    for (const JsonValue rule : m_rules) {
        if (m_readable.size() > 1) m_readable += ',';
        m_readable += rule.source();
    }
    m_readable += ']';
}

}  // namespace customstyle_tool
