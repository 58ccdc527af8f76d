// What a test hands to a shell.
#pragma once

#include <string>

// One word of a command line, whatever letters a checkout's path has.
inline std::string testShellWord(const std::string& text) {
    std::string word = "'";
    for (const char c : text)
        word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}
