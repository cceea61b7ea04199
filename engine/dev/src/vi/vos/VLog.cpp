#include "vi/vos/VLog.h"

#include <cstdio>
#include <utility>

namespace _orvik_vi {
namespace {

CVLog::Sink& installedSink() {
    static CVLog::Sink sink;
    return sink;
}

bool isControl(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

std::string onOneLine(const CVString& text) {
    CVString line;
    for (int i = 0; i < text.GetLength(); ++i) {
        const char16_t unit = text[i];
        CVString shown = text.Mid(i, 1);
        if (isControl(unit)) shown.Format("\\x%02x", static_cast<unsigned>(unit));
        line += shown;
    }
    return line.ToUtf8() + '\n';
}

}  // namespace

void CVLog::Log(ELOGPRIORITY priority, const CVString& text) {
    if (installedSink()) {
        installedSink()(priority, text.ToUtf8());
    } else {
        std::fputs(onOneLine(text).c_str(), stderr);
    }
}

void CVLog::SetSink(Sink sink) {
    installedSink() = std::move(sink);
}

}  // namespace _orvik_vi
