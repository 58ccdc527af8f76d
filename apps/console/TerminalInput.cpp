#include "TerminalInput.h"

#include "AcUtText.h"
#include "ScriptInput.h"

#include <cstdio>

#include <unistd.h>

namespace {
// One line of standard input in UTF-8; nothing at its end or after Ctrl-C.
std::optional<std::wstring> readLine(bool& ended) {
    std::string bytes;
    for (;;) {
        char c = 0;
        const ssize_t count = read(STDIN_FILENO, &c, 1);
        if (count < 0)
            return std::nullopt; // Ctrl-C: what asks is cancelled
        if (count == 0) {
            ended = bytes.empty();
            return bytes.empty() ? std::nullopt : std::optional<std::wstring>(acFromUtf8(bytes));
        }
        if (c == '\n')
            return acFromUtf8(bytes);
        if (c != '\r')
            bytes += c;
    }
}
} // namespace

std::optional<std::wstring> TerminalInput::nextLine(const std::wstring&) {
    auto line = readLine(mEnded);
    consoleTakeBreak();
    acNoteLineStart(); // the terminal has shown what was typed and the end of its line
    return line;
}
std::optional<std::wstring> TerminalInput::nextDialogLine() {
    acutPrintf(L"@: ");
    auto line = nextLine(L"");
    if (!line || line->empty() || line->front() != L'@')
        return std::nullopt;
    return line;
}
bool TerminalInput::breakRequested() {
    return consoleTakeBreak();
}
