// CVLog: the engine's log.
#pragma once

#include <functional>
#include <string>

#include "vi/vos/VString.h"

namespace [[gnu::visibility("default")]] _orvik_vi {

/// Urgency of a log line, rising.
enum ELOGPRIORITY : int {
    ELOG_VERBOSE = 2,
    ELOG_DEBUG = 3,
    ELOG_INFO = 4,
    ELOG_WARN = 5,
    ELOG_ERROR = 6,
};

/// The log of the process. Setting the sink must not overlap with logging.
class CVLog {
public:
    /// Receives one log line in UTF-8, without a line end.
    using Sink = std::function<void(ELOGPRIORITY priority, const std::string& utf8)>;

    /// Logs a text as it is: a % in it has no meaning, so a user's words can be logged unseen.
    static void Log(ELOGPRIORITY priority, const CVString& text);

    /// Logs printf-like output.
    template <typename First, typename... Rest>
    static void Log(ELOGPRIORITY priority, const char* format, First first, Rest... rest) {
        CVString text;
        text.Format(format, first, rest...);
        Log(priority, text);
    }

    /// Hands all further lines to the host. An empty sink brings back the default: standard error, a line each, with
    /// control characters shown as escapes so that no text can forge a second line.
    static void SetSink(Sink sink);
};

}  // namespace _orvik_vi
