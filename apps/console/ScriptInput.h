// The user that scripts play: each question is answered by the next line. Comment lines are skipped.
#pragma once

#include "ConsoleOptions.h"
#include "EdInput.h"

#include <cstddef>
#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class ScriptInput : public EdInput {
public:
    explicit ScriptInput(std::vector<ConsoleSource> sources);
    // False where a script cannot be read; told on standard error.
    bool canOpenAll() const;
    std::optional<std::wstring> nextLine(const std::wstring& prompt) override;
    std::optional<std::wstring> nextDialogLine() override;
    void refuse(const std::wstring& reason) override;
    bool continuesAfterCancel() const override { return !mRefused && !mEnded; }
    bool breakRequested() override;
    bool wasRefused() const { return mRefused; }

private:
    // The next line that is no comment, not yet taken; null at the end.
    const std::wstring* peek();
    bool openNext();
    std::vector<ConsoleSource> mSources;
    std::size_t mNext = 0; // source to be opened next
    std::unique_ptr<std::istream> mFile;
    std::istream* mStream = nullptr;
    std::string mName; // of the source that is being read, for messages
    int mLine = 0;     // of the line read last
    std::optional<std::wstring> mPeeked;
    bool mRefused = false, mEnded = false;
};
