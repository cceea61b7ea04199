// The component's state that belongs to the whole process: its log and its switch.
#pragma once

#include <string>
#include <vector>

namespace customstyle_tool {

/// While one exists, the renderer's questions are answered, and the log goes only to those who record it. Guards nest;
/// when the outermost one ends, the switch is restored, and the log goes to standard error again. The outermost one
/// must not be created or end while other threads use the component.
class ComponentGuard {
public:
    ComponentGuard();
    ~ComponentGuard();
    ComponentGuard(const ComponentGuard&) = delete;
    ComponentGuard& operator=(const ComponentGuard&) = delete;
};

/// Records what the component logs on this thread while it exists.
class LogRecording {
public:
    /// @param lines  receives the lines, prefix included
    explicit LogRecording(std::vector<std::string>& lines);
    ~LogRecording();
    LogRecording(const LogRecording&) = delete;
    LogRecording& operator=(const LogRecording&) = delete;

private:
    ComponentGuard m_guard;
    std::vector<std::string>* m_outer;
};

}  // namespace customstyle_tool
