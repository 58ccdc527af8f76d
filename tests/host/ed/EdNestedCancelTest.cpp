// A command that runs another one, which the user or its own answers cancel.
#include "AcEdAds.h"
#include "AcEdReactors.h"
#include "EdSession.h"

#include <gtest/gtest.h>

namespace {
std::vector<std::wstring> gTold;
int gInner = 0, gOuter = 0;

class EndListener : public AcEditorReactor {
public:
    EndListener() {
        gTold.clear();
        acedEditor()->addReactor(this);
    }
    ~EndListener() override { acedEditor()->removeReactor(this); }
    void commandEnded(const ACHAR* n) override { gTold.push_back(std::wstring(L"end ") + n); }
    void commandCancelled(const ACHAR* n) override { gTold.push_back(std::wstring(L"cancel ") + n); }
};
struct Nesting {
    explicit Nesting(AcRxFunctionPtr function) { acedRegCmds()->addCommand(L"TEST", L"OUTER", L"OUTER", 1, function); }
    ~Nesting() { acedRegCmds()->removeGroup(L"TEST"); }
};
} // namespace

TEST(EdNestedCommand, a_cancelled_inner_command_does_not_cancel_the_outer_one) {
    EdSession user;
    const EndListener listener;
    const Nesting outer([] {
        gInner = acedCommandS(RTSTR, L"POINT", RTSTR, L"^C", RTNONE);
        ads_point p;
        gOuter = acedGetPoint(nullptr, L"Outer point: ", p);
    });
    user.type({L"OUTER 3,4"});
    EXPECT_EQ(gInner, RTCAN);
    EXPECT_EQ(gOuter, RTNORM) << "what was typed for the outer command is still there";
    EXPECT_EQ(gTold, (std::vector<std::wstring>{L"cancel POINT", L"end OUTER"}));
    EXPECT_TRUE(user.refusal.empty());
}

TEST(EdNestedCommand, an_inner_command_that_ends_well_does_not_take_back_the_cancel_of_the_outer_one) {
    EdSession user;
    const EndListener listener;
    const Nesting outer([] {
        ads_point p;
        gOuter = acedGetPoint(nullptr, L"Outer point: ", p);
        gInner = acedCommandS(RTSTR, L"POINT", RTSTR, L"1,1", RTNONE); // the way a command tidies up
    });
    user.type({L"OUTER", L"^C"});
    EXPECT_EQ(gOuter, RTCAN);
    EXPECT_EQ(gInner, RTNORM);
    EXPECT_EQ(gTold, (std::vector<std::wstring>{L"end POINT", L"cancel OUTER"}));
}
