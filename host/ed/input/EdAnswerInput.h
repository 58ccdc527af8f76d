// The answers of a nested command, given beforehand. A lone backslash lets the user answer.
#pragma once

#include "EdInput.h"

#include <deque>
#include <string>

class EdAnswerInput : public EdInput {
public:
    explicit EdAnswerInput(std::deque<std::wstring> answers) : mAnswers(std::move(answers)), mOuter(edInput()) {}
    std::optional<std::wstring> nextLine(const std::wstring& prompt) override;
    std::optional<std::wstring> nextDialogLine() override;
    // A refused answer ends the nested command, not the run.
    void refuse(const std::wstring& reason) override;
    bool splitsAtBlanks() const override { return false; }
    bool asksWindowsAgain() const override { return mOuter != nullptr && mOuter->asksWindowsAgain(); }
    bool breakRequested() override { return mOuter != nullptr && mOuter->breakRequested(); }
    bool wasRefused() const { return mRefused; }

private:
    std::deque<std::wstring> mAnswers;
    EdInput* mOuter;
    bool mRefused = false;
};
