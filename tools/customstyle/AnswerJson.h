// Answers to the renderer as JSON.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "tools/study/Answers.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// A JSON document with a "version" and a list of answers, a line each, built up one after the other. Whether an icon
/// is hidden is the renderer's answer; the icon flag inside the record is not there.
class AnswerList {
public:
    /// @param name  of the list
    explicit AnswerList(std::string name);

    void add(const _orvik_framework::CustomConfig& config, unsigned int styleId, int level, const Answer& answer);
    void add(const _orvik_framework::CustomConfig& config, unsigned int styleId, const LevelSet& levels,
             const Answer& answer);

    /// A member beside the list: the colours of a background with their levels.
    void addBackground(const std::string& name, const std::vector<std::pair<std::uint64_t, LevelSet>>& colors);

    std::string text() const;

private:
    std::string m_name;
    std::string m_members;
    std::vector<std::string> m_lines;
};

}  // namespace customstyle_tool
