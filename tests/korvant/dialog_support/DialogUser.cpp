#include "DialogUser.h"

#include "AfxApp.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {
std::string textOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void registerResources() {
    static bool done = false;
    if (done)
        return;
    done = true;
    const std::string script = textOfFile(KORVANT_RESOURCE_SCRIPT);
    std::wstring reason;
    ASSERT_TRUE(AfxSetResourceText(script.data(), script.size(), &reason)) << acToUtf8(reason);
}
} // namespace

DialogUser::DialogUser() {
    AfxInitToolkit(true);
    registerResources();
    mEarlier = AfxSetDialogDriver(this);
    mEarlierSink = acSetPrintSink([this](std::wstring_view text) { mPrinted += text; });
}

DialogUser::~DialogUser() {
    acSetPrintSink(mEarlierSink);
    AfxSetDialogDriver(mEarlier);
    EXPECT_TRUE(mSteps.empty()) << mSteps.size() << " step(s) were never asked for";
    for (const std::wstring& refusal : mRefusals)
        ADD_FAILURE() << "refused: " << acToUtf8(refusal);
}

DialogUser& DialogUser::does(const std::wstring& line) {
    mSteps.emplace_back(line);
    return *this;
}

DialogUser& DialogUser::sees(std::function<void()> check) {
    mSteps.emplace_back(std::move(check));
    return *this;
}

std::vector<std::wstring> DialogUser::takeRefusals() { return std::exchange(mRefusals, {}); }

bool DialogUser::nextDialogLine(std::wstring& line) {
    while (!mSteps.empty()) {
        auto step = std::move(mSteps.front());
        mSteps.pop_front();
        if (auto* const text = std::get_if<std::wstring>(&step)) {
            line = *text;
            return true;
        }
        std::get<std::function<void()>>(step)();
    }
    return false;
}

void DialogUser::refuseDialogLine(const std::wstring& reason) { mRefusals.push_back(reason); }

bool DialogUser::askFilePath(const std::wstring&, std::wstring& path) {
    path.clear();
    if (!mFiles.empty()) {
        path = mFiles.front();
        mFiles.pop_front();
    }
    return true;
}

std::wstring lineWith(const std::wstring& printed, const std::wstring& text) {
    const std::size_t at = printed.rfind(text);
    if (at == std::wstring::npos)
        return {};
    const std::size_t begin = printed.rfind(L'\n', at);
    const std::size_t end = printed.find(L'\n', at);
    const std::size_t first = begin == std::wstring::npos ? 0 : begin + 1;
    return printed.substr(first, end == std::wstring::npos ? end : end - first);
}

bool hasLineWith(const std::wstring& printed, const std::wstring& text) { return !lineWith(printed, text).empty(); }
