// CVFile over files that exist only in the test and break off where it says. A program that compiles FaultyFile.cpp
// has no other files.
#pragma once

#include <cstddef>
#include <string>

namespace customstyle_test {

struct FaultyFile {
    std::string content;
    std::size_t toldLength;      ///< the length as it was when the file was opened
    std::size_t readableLength;  ///< reading fails after it
};

/// Puts a file under a path, replacing an earlier one.
void provideFile(const std::string& path, const FaultyFile& file);

/// Files that are open now.
int openFaultyFiles();

}  // namespace customstyle_test
