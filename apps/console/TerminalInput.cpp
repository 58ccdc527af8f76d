#include "TerminalInput.h"

#include "AcUtText.h"
#include "ConsoleBreak.h"
#include "core/EdCommandRunner.h"

#include <cerrno>

#include <unistd.h>

TerminalInput::TerminalInput() : mIsTerminal(isatty(STDIN_FILENO) != 0) {}

bool TerminalInput::fill() {
    char bytes[4096];
    ssize_t count = 0;
    do
        count = read(STDIN_FILENO, bytes, sizeof bytes);
    while (count < 0 && errno == EINTR);
    if (count > 0) {
        mBytes.append(bytes, static_cast<std::size_t>(count));
        return true;
    }
    // A terminal that was hung up ends like Ctrl-D, but is none any more.
    mIsGone = count < 0 || isatty(STDIN_FILENO) == 0;
    return false;
}
// Text in UTF-8; nothing after Ctrl-C or at the end, which closes a line without its end.
std::optional<std::wstring> TerminalInput::readLine(bool isCommand) {
    std::size_t end = 0;
    while ((end = mBytes.find('\n')) == std::string::npos) {
        if (!consoleWaitForInput()) {
            mBytes.clear();
            return std::nullopt;
        }
        if (fill())
            continue;
        if (mBytes.empty()) {
            mEnded = isCommand || !mIsTerminal || mIsGone;
            return std::nullopt;
        }
        mBytes += '\n';
        acutPrintf(L"\n"); // which the user has not typed
    }
    std::string line = mBytes.substr(0, end);
    mBytes.erase(0, end + 1);
    std::erase(line, '\r');
    return acFromUtf8(line);
}
std::optional<std::wstring> TerminalInput::nextLine(const std::wstring& prompt) {
    if (mEnded)
        return std::nullopt;
    auto line = readLine(prompt == kEdCommandPrompt);
    consoleTakeBreak();
    if (line)
        acNoteLineStart(); // the terminal has shown what was typed and the end of its line
    else if (!mEnded)
        acutPrintf(L"*Cancel*\n");
    return line;
}
std::optional<std::wstring> TerminalInput::nextDialogLine() {
    acutPrintf(L"@: ");
    auto line = nextLine(L"");
    if (line)
        line->erase(0, line->find_first_not_of(L" \t"));
    return line;
}
bool TerminalInput::breakRequested() {
    return consoleTakeBreak();
}
