// Breaking a job off: Ctrl-C, and the line @cancel-at before the command.
#include "AcEdAds.h"
#include "AcRxArxApp.h"
#include "EdSession.h"

#include <gtest/gtest.h>

namespace {
int gBrokenAt = 0; // the test that said so; 0: none did

void job() {
    gBrokenAt = 0;
    for (int test = 1; test <= 5 && gBrokenAt == 0; ++test)
        if (acedUsrBrk() != 0)
            gBrokenAt = test;
    acutPrintf(L"broken off at %d\n", gBrokenAt);
}
struct Job {
    Job() { acedRegCmds()->addCommand(L"TEST", L"JOB", L"JOB", 1, job); }
    ~Job() { acedRegCmds()->removeGroup(L"TEST"); }
};
class BreakingSession : public EdSession {
public:
    bool breakRequested() override { return ++asked == breaksAt; }
    int asked = 0, breaksAt = 0;
};
} // namespace

TEST(EdBreak, the_next_command_is_broken_off_at_its_nth_test) {
    const Job added;
    EdSession user;
    user.type({L"@cancel-at 3", L"JOB"});
    EXPECT_EQ(gBrokenAt, 3);
    EXPECT_TRUE(user.refusal.empty());
}
TEST(EdBreak, only_the_next_command_is_broken_off) {
    const Job added;
    EdSession user;
    user.type({L"@cancel-at 2", L"JOB", L"JOB"});
    EXPECT_EQ(gBrokenAt, 0);
}
TEST(EdBreak, a_command_that_asks_less_often_says_how_often) {
    const Job added;
    EdSession user;
    user.type({L"@cancel-at 6", L"JOB", L"JOB"});
    EXPECT_EQ(gBrokenAt, 0) << "the count does not outlast its command";
    EXPECT_TRUE(user.printed(L"The command was not broken off: it asked 5 times."));
}
TEST(EdBreak, a_count_that_is_no_positive_number_is_refused) {
    for (const wchar_t* line : {L"@cancel-at", L"@cancel-at 0", L"@cancel-at -1", L"@cancel-at x", L"@cancel-at 1 2"}) {
        EdSession user;
        user.type({line});
        EXPECT_EQ(user.refusal, L"\"" + std::wstring(line) + L"\": the form is @cancel-at N, with N from 1");
    }
}
TEST(EdBreak, the_users_own_break_is_seen_too) {
    const Job added;
    BreakingSession user;
    user.breaksAt = 4;
    user.type({L"JOB"});
    EXPECT_EQ(gBrokenAt, 4);
}
