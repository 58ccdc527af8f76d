// A user at a terminal: lines are typed when they are asked for, Ctrl-C cancels what asks, and a refused
// answer ends its command alone. Lines that are piped in are taken the same way.
#pragma once

#include "EdInput.h"

class TerminalInput : public EdInput {
public:
    TerminalInput();
    std::optional<std::wstring> nextLine(const std::wstring& prompt) override;
    std::optional<std::wstring> nextDialogLine() override;
    void refuse(const std::wstring&) override {} // the reason stands on the command line already
    bool continuesAfterCancel() const override { return !mEnded; }
    bool asksWindowsAgain() const override { return !mEnded; }
    bool breakRequested() override;

    // Ctrl-D at the Command prompt of a terminal: nothing is given until goOn. At any other question it is Ctrl-C.
    bool wantsToLeave() const { return mEnded && mIsTerminal && !mIsGone; }
    void goOn() { mEnded = false; }

private:
    std::optional<std::wstring> readLine(bool isCommand);
    bool fill();        // false at the end
    std::string mBytes; // read and not yet taken
    bool mIsTerminal, mEnded = false;
    bool mIsGone = false; // hung up: nothing will ever come
};
