// The user that scripts play, and Ctrl-C.
#include "ScriptInput.h"

#include "ConsoleBreak.h"

#include "AcEdAds.h"
#include "AcUtText.h"

#include <gtest/gtest.h>

#include <csignal>

namespace {
class ScriptUser : public testing::Test {
protected:
    ScriptUser() : mEarlier(acSetPrintSink([](std::wstring_view) {})) {
        edPushInput(&input);
        consoleCatchBreak();
    }
    ~ScriptUser() override {
        consoleTakeBreak();
        std::signal(SIGINT, SIG_DFL);
        edPopInput();
        acSetPrintSink(mEarlier);
    }
    ScriptInput input{{{false, "POINT 1,1"}, {false, "@ok"}}};

private:
    AcPrintSink mEarlier;
};
} // namespace

TEST_F(ScriptUser, a_job_is_told_of_ctrl_c) {
    EXPECT_EQ(acedUsrBrk(), 0);
    std::raise(SIGINT);
    EXPECT_NE(acedUsrBrk(), 0);
}

TEST_F(ScriptUser, a_script_ends_with_ctrl_c) {
    EXPECT_EQ(input.nextLine(L""), L"POINT 1,1");
    std::raise(SIGINT);
    EXPECT_EQ(input.nextDialogLine(), std::nullopt);
    EXPECT_EQ(input.nextLine(L""), std::nullopt);
    EXPECT_FALSE(input.continuesAfterCancel());
}
