// A user of modal dialogs: lines as a script gives them, with checks between them. Makes the
// module's resources known and runs the windows without a screen.
#pragma once

#include "AfxDialogDriver.h"
#include "AcUtText.h"

#include <deque>
#include <functional>
#include <string>
#include <variant>
#include <vector>

class DialogUser : public AfxDialogDriver {
public:
    DialogUser();
    ~DialogUser() override; // every step must have been taken and no line refused

    // The next line for the open window.
    DialogUser& does(const std::wstring& line);
    // A look at the state between two lines.
    DialogUser& sees(std::function<void()> check);
    // What @show prints of the open window, from there on.
    const std::wstring& printed() const { return mPrinted; }
    // Answers of file dialogs, in order.
    void willChooseFile(const std::wstring& path) { mFiles.push_back(path); }
    // A test that expects a refusal takes it away.
    std::vector<std::wstring> takeRefusals();

    bool nextDialogLine(std::wstring& line) override;
    void refuseDialogLine(const std::wstring& reason) override;
    bool askFilePath(const std::wstring& prompt, std::wstring& path) override;

private:
    std::deque<std::variant<std::wstring, std::function<void()>>> mSteps;
    std::deque<std::wstring> mFiles;
    std::vector<std::wstring> mRefusals;
    std::wstring mPrinted;
    AfxDialogDriver* mEarlier = nullptr;
    AcPrintSink mEarlierSink;
};

// A line of @show holds the text.
bool hasLineWith(const std::wstring& printed, const std::wstring& text);
// The last line of a text that holds the other text; empty where none does.
std::wstring lineWith(const std::wstring& printed, const std::wstring& text);
