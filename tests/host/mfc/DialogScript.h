// A user of dialogs for tests: lines, with checks between them, and what was printed and refused.
#pragma once

#include "AcUtText.h"
#include "AfxApp.h"
#include "AfxDialogDriver.h"

#include <deque>
#include <functional>
#include <map>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

class DialogScript : public AfxDialogDriver {
public:
    explicit DialogScript(std::vector<std::wstring> lines = {}) : lines(lines.begin(), lines.end()) {
        AfxInitToolkit(true);
        mEarlier = AfxSetDialogDriver(this);
        mSink = acSetPrintSink([this](std::wstring_view text) { printed += text; });
    }
    ~DialogScript() override {
        AfxCancelAllDialogs();
        acSetPrintSink(mSink);
        AfxSetDialogDriver(mEarlier);
    }
    bool nextDialogLine(std::wstring& line) override {
        if (lines.empty())
            return false;
        line = lines.front();
        lines.pop_front();
        if (const auto check = checks.find(line); check != checks.end()) {
            check->second();
            line = L"@show";
        }
        return true;
    }
    void refuseDialogLine(const std::wstring& reason) override { refusals.push_back(reason); }
    bool asksAgain() const override { return isPerson; }
    bool askFilePath(const std::wstring& prompt, std::wstring& path) override {
        if (!asksForPaths)
            return false;
        prompts.push_back(prompt);
        path = paths.empty() ? L"" : paths.front();
        if (!paths.empty())
            paths.pop_front();
        return true;
    }
    // A word among the lines that stands for a look at the state.
    void look(const std::wstring& word, std::function<void()> check) { checks[word] = std::move(check); }

    std::deque<std::wstring> lines;
    std::map<std::wstring, std::function<void()>> checks;
    std::vector<std::wstring> refusals, prompts;
    std::deque<std::wstring> paths;
    bool asksForPaths = false;
    bool isPerson = false; // lines that cannot be taken are asked for again, and no line is Ctrl-C
    std::wstring printed;

private:
    AfxDialogDriver* mEarlier = nullptr;
    AcPrintSink mSink;
};

// Registers a resource script; the test fails where it does not parse.
inline void useResources(std::string_view text) {
    std::wstring reason;
    AfxClearResources();
    ASSERT_TRUE(AfxSetResourceText(text.data(), text.size(), &reason)) << acToUtf8(reason);
}

inline bool holds(const std::wstring& text, const std::wstring& part) {
    return text.find(part) != std::wstring::npos;
}
