// Files for the base library where there is no disk.
#pragma once

#include <string>

namespace customstyle_studio {

/// Makes a file with a content, or replaces it.
void putFile(const std::string& path, std::string content);

void removeAllFiles();

}  // namespace customstyle_studio
