// The command line of korvant-console.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct ConsoleSource {
    bool isFile = false; // -s: a script file, "-" is standard input; otherwise one line
    std::string text;
};
struct ConsoleOptions {
    std::string drawing; // empty: a new one
    std::vector<ConsoleSource> sources;
    bool loadModule = true;
    std::string module; // a path; empty: the one beside the program
    bool showHelp = false;
};
// Nothing where the arguments make no sense, with the reason.
std::optional<ConsoleOptions> consoleParse(int argc, char** argv, std::string& reason);
extern const char* const kConsoleUsage;
