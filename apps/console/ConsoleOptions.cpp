#include "ConsoleOptions.h"

const char* const kConsoleUsage =
    "Usage: korvant-console [DRAWING.dwg] [-s FILE] [-c LINE]... [--new] [--no-module] [--module PATH]\n"
    "  -s FILE        run the lines of a script; - is standard input\n"
    "  -c LINE        run one line; scripts and lines run in the order given\n"
    "  --new          begin with a new drawing\n"
    "  --no-module    do not load the module\n"
    "  --module PATH  load this module instead of the one beside the program\n"
    "Exit status: 0 done, 1 a line was refused or a command failed, 2 usage, 3 the drawing cannot be\n"
    "opened, 4 the module refused to load.\n";

std::optional<ConsoleOptions> consoleParse(int argc, char** argv, std::string& reason) {
    ConsoleOptions options;
    bool isNew = false;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const bool takesValue = argument == "-s" || argument == "-c" || argument == "--module";
        if (takesValue && i + 1 >= argc) {
            reason = argument + " needs a value";
            return std::nullopt;
        }
        if (argument == "-s" || argument == "-c")
            options.sources.push_back({argument == "-s", argv[++i]});
        else if (argument == "--module")
            options.module = argv[++i];
        else if (argument == "--no-module")
            options.loadModule = false;
        else if (argument == "--new")
            isNew = true;
        else if (argument == "--help" || argument == "-h")
            options.showHelp = true;
        else if (argument.size() > 1 && argument.front() == '-') {
            reason = "unknown option " + argument;
            return std::nullopt;
        } else if (!options.drawing.empty()) {
            reason = "more than one drawing";
            return std::nullopt;
        } else {
            options.drawing = argument;
        }
    }
    if (isNew && !options.drawing.empty()) {
        reason = "--new and a drawing exclude each other";
        return std::nullopt;
    }
    return options;
}
