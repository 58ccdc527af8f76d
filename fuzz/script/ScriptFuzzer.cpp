// Script lines: each input is a script that a new drawing runs. Commands that write or open files are taken away.
#include "AcUtText.h"
#include "EdInput.h"
#include "core/EdCommandRunner.h"
#include "core/EdDocuments.h"
#include "core/EdSysVars.h"
#include "input/EdInputStack.h"
#include "input/EdParse.h"

#include <cstdlib>
#include <deque>

namespace {
class Lines : public EdInput {
public:
    explicit Lines(const std::wstring& script) {
        for (std::wstring& line : edSplitAt(script, L'\n'))
            if (mLines.size() < kMost)
                mLines.push_back(std::move(line));
    }
    std::optional<std::wstring> nextLine(const std::wstring&) override { return mRefused ? std::nullopt : take(); }
    std::optional<std::wstring> nextDialogLine() override { return std::nullopt; }
    void refuse(const std::wstring&) override { mRefused = true; }
    bool continuesAfterCancel() const override { return !mRefused && !mLines.empty(); }

private:
    std::optional<std::wstring> take() {
        if (mLines.empty())
            return std::nullopt;
        std::wstring line = std::move(mLines.front());
        mLines.pop_front();
        return line;
    }
    static constexpr std::size_t kMost = 200;
    std::deque<std::wstring> mLines;
    bool mRefused = false;
};
void prepare() {
    acSetPrintSink([](std::wstring_view) {});
    edRegisterHostCommands();
    // These read and write files; the last two save what is changed.
    for (const wchar_t* const name : {L"OPEN", L"QSAVE", L"SAVEAS", L"PLOT", L"APPLOAD", L"INSERT", L"CLOSE", L"QUIT"})
        acedRegCmds()->removeCmd(kEdHostGroup, name);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool prepared = (prepare(), true);
    (void)prepared;
    const std::wstring script = acFromUtf8({reinterpret_cast<const char*>(data), size});
    EdCommandRunner::instance().reset();
    EdSysVars::instance().reset();
    Lines lines(script);
    edPushInput(&lines);
    EdDocuments::instance().createNew();
    EdCommandRunner::instance().loop();
    EdDocuments::instance().closeAll();
    edPopInput();
    if (acdbOpenObjectCount() != 0)
        std::abort(); // a command left an object open
    return 0;
}
