#include "ScriptInput.h"

#include "AcUtText.h"
#include "ConsoleBreak.h"

#include <cstdio>
#include <fstream>
#include <iostream>

#include <unistd.h>

namespace {
bool isComment(const std::wstring& line) {
    const std::size_t at = line.find_first_not_of(L" \t");
    return at != std::wstring::npos && line[at] == L';';
}
} // namespace

ScriptInput::ScriptInput(std::vector<ConsoleSource> sources) : mSources(std::move(sources)) {}

bool ScriptInput::canOpenAll() const {
    for (const ConsoleSource& source : mSources)
        if (source.isFile && source.text != "-" && !std::ifstream(source.text).good()) {
            std::fprintf(stderr, "korvant-console: the script %s cannot be read\n", source.text.c_str());
            return false;
        }
    return true;
}
bool ScriptInput::openNext() {
    if (mNext >= mSources.size())
        return false;
    const ConsoleSource& source = mSources[mNext++];
    mLine = 0;
    mFile.reset();
    if (!source.isFile) {
        mName = "-c " + std::to_string(mNext);
        mPeeked = acFromUtf8(source.text);
        mStream = nullptr;
        mLine = 1;
        return true;
    }
    mName = source.text == "-" ? "standard input" : source.text;
    if (source.text == "-") {
        mStream = &std::cin;
    } else {
        mFile = std::make_unique<std::ifstream>(source.text, std::ios::binary);
        mStream = mFile.get();
    }
    return true;
}
const std::wstring* ScriptInput::peek() {
    while (!mPeeked) {
        std::string bytes;
        if (mStream == &std::cin && isatty(STDIN_FILENO) != 0 && !consoleWaitForInput())
            return nullptr;
        if (mStream != nullptr && std::getline(*mStream, bytes)) {
            ++mLine;
            if (mLine == 1 && bytes.rfind("\xEF\xBB\xBF", 0) == 0)
                bytes.erase(0, 3);
            if (!bytes.empty() && bytes.back() == '\r')
                bytes.pop_back();
            std::wstring line = acFromUtf8(bytes);
            if (!isComment(line))
                mPeeked = std::move(line);
            continue;
        }
        if (!openNext())
            return nullptr;
    }
    return &*mPeeked;
}
std::optional<std::wstring> ScriptInput::nextLine(const std::wstring&) {
    if (mRefused || consoleBreakPending() || peek() == nullptr) {
        mEnded = true;
        return std::nullopt;
    }
    std::wstring line = std::move(*mPeeked);
    mPeeked.reset();
    acutPrintf(L"%s\n", line.c_str());
    return line;
}
std::optional<std::wstring> ScriptInput::nextDialogLine() {
    if (mRefused || consoleBreakPending())
        return std::nullopt;
    const std::wstring* const next = peek();
    if (next == nullptr || next->find_first_not_of(L" \t") == std::wstring::npos || (*next)[next->find_first_not_of(L" \t")] != L'@')
        return std::nullopt;
    std::wstring line = std::move(*mPeeked);
    mPeeked.reset();
    line.erase(0, line.find_first_not_of(L" \t"));
    acutPrintf(L"%s\n", line.c_str());
    return line;
}
void ScriptInput::refuse(const std::wstring& reason) {
    if (mRefused)
        return;
    mRefused = true;
    std::fflush(stdout);
    if (mName.rfind("-c ", 0) == 0 || mName.empty())
        std::fprintf(stderr, "%s: %s\n", mName.empty() ? "start" : mName.c_str(), acToUtf8(reason).c_str());
    else
        std::fprintf(stderr, "%s, line %d: %s\n", mName.c_str(), mLine, acToUtf8(reason).c_str());
}
bool ScriptInput::breakRequested() {
    return consoleBreakPending();
}
