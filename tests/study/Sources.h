// Style sources from texts.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "tests/support/RandomFiles.h"
#include "tests/support/StyleBuilder.h"
#include "tools/json/SourceFile.h"
#include "tools/study/SingleRules.h"
#include "tools/study/StyleSource.h"

namespace customstyle_test {

/// A style file that exists only in memory.
class StyleText {
public:
    explicit StyleText(std::string text)
        : m_file(std::make_unique<customstyle_tool::SourceFile>("style.json", std::move(text))),
          m_style(*m_file, std::get<customstyle_tool::JsonDocument>(customstyle_tool::parseJson(m_file->text()))) {}

    const customstyle_tool::StyleSource& source() const { return m_style; }

    /// The rules one at a time.
    std::vector<customstyle_tool::SingleRule> singles() const { return customstyle_tool::singleRules(m_style); }

private:
    std::unique_ptr<customstyle_tool::SourceFile> m_file;
    customstyle_tool::StyleSource m_style;
};

inline std::string randomStyle(RandomFiles& files, int rules) {
    std::string text = "[" + files.rule();
    for (int i = 1; i < rules; ++i) text += ",\n" + files.rule();
    return text + "]";
}

}  // namespace customstyle_test
