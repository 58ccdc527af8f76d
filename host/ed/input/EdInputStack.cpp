#include "EdInputStack.h"

#include "AcFault.h"
#include "AcUtText.h"
#include "EdParse.h"

EdInput* edInput() {
    return EdInputStack::instance().top();
}
void edPushInput(EdInput* input) {
    EdInputStack::instance().push(input);
}
void edPopInput() {
    EdInputStack::instance().pop();
}

void edFreshLine() {
    if (!acPrintAtLineStart())
        acutPrintf(L"\n");
}
void edSay(const std::wstring& line) {
    edFreshLine();
    acutPrintf(L"%s\n", line.c_str());
}
void edFail(const std::wstring& reason) {
    edSay(reason);
    EdInputStack::instance().refuse(reason);
}
void edGuarded(const wchar_t* who, const std::function<void()>& call) {
    try {
        call();
    } catch (...) {
        edFail(std::wstring(who) + L" failed: " + acFaultText());
    }
}

EdInputStack& EdInputStack::instance() {
    static EdInputStack theStack;
    return theStack;
}
EdInput* EdInputStack::top() const {
    return mFrames.empty() ? nullptr : mFrames.back().input;
}
void EdInputStack::push(EdInput* input) {
    mFrames.emplace_back();
    mFrames.back().input = input;
}
void EdInputStack::pop() {
    if (!mFrames.empty())
        mFrames.pop_back();
}
void EdInputStack::typeAhead(const std::wstring& lines) {
    if (mFrames.empty())
        return;
    std::wstring text = lines;
    if (!text.empty() && text.back() == L'\n')
        text.pop_back();
    for (std::wstring& line : edSplitAt(text, L'\n'))
        mFrames.back().ahead.push_back(std::move(line));
}
std::optional<std::wstring> EdInputStack::takePending() {
    if (mFrames.empty())
        return std::nullopt;
    Frame& frame = mFrames.back();
    if (frame.pending) {
        std::optional<std::wstring> line = std::move(frame.pending);
        frame.pending.reset();
        return line;
    }
    if (frame.ahead.empty())
        return std::nullopt;
    std::wstring line = std::move(frame.ahead.front());
    frame.ahead.pop_front();
    return line;
}
bool EdInputStack::takeOption(const std::wstring& keyword) {
    if (mFrames.empty() || !mFrames.back().pending)
        return false;
    EdSplitLine split = edSplitLine(*mFrames.back().pending);
    if (!edMatchKeyword(edParseKeywords(keyword), split.first))
        return false;
    acutPrintf(L"%s\n", split.first.c_str());
    if (split.rest.empty())
        mFrames.back().pending.reset();
    else
        mFrames.back().pending = std::move(split.rest);
    return true;
}
void EdInputStack::dropPending() {
    if (mFrames.empty())
        return;
    mFrames.back().pending.reset();
    mFrames.back().ahead.clear();
}
void EdInputStack::breakAt(int count) {
    mBreakAt = count;
    mBreakTests = 0;
}
bool EdInputStack::breakRequested() {
    if (mBreakAt > 0 && ++mBreakTests == mBreakAt) {
        mBreakAt = 0;
        return true;
    }
    EdInput* const input = top();
    return input != nullptr && input->breakRequested();
}
std::optional<int> EdInputStack::endBreakCount() {
    if (mBreakAt == 0)
        return std::nullopt;
    mBreakAt = 0;
    return mBreakTests;
}
void EdInputStack::refuse(const std::wstring& reason) {
    mRefused = true;
    mCancelled = true;
    dropPending();
    if (EdInput* const input = top())
        input->refuse(reason);
}
std::optional<std::wstring> EdInputStack::nextRaw(const std::wstring& prompt) {
    if (auto line = takePending())
        return line; // shown by who asks, as far as it is taken
    EdInput* const input = top();
    return input != nullptr ? input->nextLine(prompt) : std::nullopt;
}
std::optional<std::wstring> EdInputStack::ask(const std::wstring& prompt, EdTake take) {
    acutPrintf(L"%s", prompt.c_str());
    const bool fresh = mFrames.empty() || !mFrames.back().pending;
    const bool shown = !hasPending(); // an input shows what it gives
    auto line = nextRaw(prompt);
    if (line && (*line == L"^C" || *line == L"*Cancel*" || *line == L"\x1b")) {
        acutPrintf(L"*Cancel*\n");
        line.reset();
    }
    if (!line) {
        edFreshLine();
        mCancelled = true;
        dropPending();
        return std::nullopt;
    }
    if (take != EdTake::kWholeLine && !(take == EdTake::kName && fresh) && !mFrames.empty() && mFrames.back().input->splitsAtBlanks()) {
        EdSplitLine split = edSplitLine(*line);
        if (!split.rest.empty())
            mFrames.back().pending = std::move(split.rest);
        line = std::move(split.first);
    }
    if (!shown)
        acutPrintf(L"%s\n", line->c_str());
    return line;
}
