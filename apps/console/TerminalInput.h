// A user at a terminal: lines are typed when they are asked for, and a refused answer ends its command
// alone.
#pragma once

#include "EdInput.h"

class TerminalInput : public EdInput {
public:
    std::optional<std::wstring> nextLine(const std::wstring& prompt) override;
    std::optional<std::wstring> nextDialogLine() override;
    void refuse(const std::wstring&) override {} // the reason stands on the command line already
    bool continuesAfterCancel() const override { return !mEnded; }
    bool breakRequested() override;

private:
    bool mEnded = false;
};
