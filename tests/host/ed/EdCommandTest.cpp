#include "AcDbBlockReference.h"
#include "AcEdAds.h"
#include "AcEdReactors.h"
#include "AcRxArxApp.h"
#include "EdSession.h"

#include <gtest/gtest.h>

namespace {
std::vector<std::wstring> gCalls; // what the reactors and the commands below were told

class Listener : public AcEditorReactor {
public:
    Listener() { acedEditor()->addReactor(this); }
    ~Listener() override { acedEditor()->removeReactor(this); }
    void commandWillStart(const ACHAR* n) override { calls.push_back(std::wstring(L"start ") + n); }
    void commandEnded(const ACHAR* n) override { calls.push_back(std::wstring(L"end ") + n); }
    void commandCancelled(const ACHAR* n) override { calls.push_back(std::wstring(L"cancel ") + n); }
    void commandFailed(const ACHAR* n) override { calls.push_back(std::wstring(L"fail ") + n); }
    void sysVarChanged(const ACHAR* n, bool success) override { calls.push_back(std::wstring(success ? L"var " : L"no ") + n); }
    std::vector<std::wstring> calls;
};
// A command of a module for the length of a test.
struct Added {
    Added(const wchar_t* global, const wchar_t* local, AcRxFunctionPtr f) { acedRegCmds()->addCommand(L"TEST", global, local, 1, f); }
    ~Added() { acedRegCmds()->removeGroup(L"TEST"); }
};

TEST(EdCommands, a_name_is_taken_in_any_case_with_underscore_and_dot) {
    EdSession user;
    user.type({L"_.line", L"0,0", L"1,0", L"", L"Line 0,0 0,1", L"", L"-LINE 2,2 3,3", L"", L"l 5,5 6,6", L""});
    EXPECT_EQ(user.entities().size(), 4u);
    EXPECT_TRUE(user.refusal.empty());
}
TEST(EdCommands, an_unknown_command_stops_the_run) {
    EdSession user;
    user.type({L"LINE 0,0 1,1", L"", L"NOSUCH", L"LINE 0,0 1,1", L""});
    EXPECT_EQ(user.entities().size(), 1u);
    EXPECT_EQ(user.refusal, L"Unknown command \"NOSUCH\".");
}
TEST(EdCommands, a_dialog_line_without_a_dialog_stops_the_run) {
    EdSession user;
    user.type({L"@click 5"});
    EXPECT_EQ(user.refusal, L"\"@click 5\": no dialog is open");
}
TEST(EdCommands, a_command_added_last_wins_and_a_dot_asks_for_the_hosts_own) {
    EdSession user;
    gCalls.clear();
    const Added line(L"LINE", L"LINE", [] { gCalls.push_back(L"mine"); });
    user.type({L"LINE", L".LINE 0,0 1,1", L""});
    EXPECT_EQ(gCalls.size(), 1u);
    EXPECT_EQ(user.entities().size(), 1u);
}
TEST(EdCommands, local_and_global_names_both_start_a_command) {
    EdSession user;
    gCalls.clear();
    const Added added(L"TestGlobal", L"HELYI", [] { gCalls.push_back(L"ran"); });
    user.type({L"helyi", L"_TestGlobal", L"testglobal"});
    EXPECT_EQ(gCalls.size(), 3u);
}
TEST(EdCommands, reactors_hear_how_a_command_ends) {
    EdSession user;
    const Listener listener;
    const Added crash(L"CRASH", L"CRASH", [] { throw AcDbOpenRuleBreach{Acad::eNotOpenForWrite}; });
    user.type({L"POINT 1,1", L"POINT", L"^C", L"CRASH"});
    EXPECT_EQ(listener.calls, (std::vector<std::wstring>{L"start POINT", L"end POINT", L"start POINT", L"cancel POINT", L"start CRASH", L"fail CRASH"}));
    EXPECT_EQ(user.refusal, L"The command CRASH failed: eNotOpenForWrite");
}
TEST(EdCommands, a_queued_expression_runs_after_the_command) {
    EdSession user;
    const Listener listener;
    const Added queue(L"QUEUE", L"QUEUE", [] {
        ads_queueexpr(L"(command \"_RIBBON\")");
        ads_queueexpr(L"(command \"_NETLOAD\" \"Nothing Here.dll\")");
        EXPECT_EQ(acedCommandS(RTSTR, L"POINT", RTSTR, L"3,3", RTNONE), RTNORM);
    });
    user.type({L"QUEUE"});
    EXPECT_EQ(listener.calls, (std::vector<std::wstring>{L"start QUEUE", L"start POINT", L"end POINT", L"end QUEUE", L"start RIBBON", L"end RIBBON", L"start NETLOAD",
                                                         L"end NETLOAD"}));
    EXPECT_TRUE(user.printed(L"\"Nothing Here.dll\" cannot be loaded"));
    EXPECT_TRUE(user.refusal.empty());
}
TEST(EdCommands, a_nested_command_that_is_unknown_does_not_stop_the_run) {
    EdSession user;
    const Added nested(L"NESTED", L"NESTED", [] { EXPECT_EQ(acedCommandS(RTSTR, L"NOSUCH", RTNONE), RTERROR); });
    user.type({L"NESTED", L"POINT 1,1"});
    EXPECT_TRUE(user.refusal.empty());
    EXPECT_EQ(user.entities().size(), 1u);
}
TEST(EdCommands, nested_answers_are_whole_and_typed) {
    EdSession user;
    const Added nested(L"NESTED", L"NESTED", [] {
        EXPECT_EQ(acedCommandS(RTSTR, L"TRUSTEDPATHS", RTSTR, L"C:\\Program Files;D:\\x", RTNONE), RTNORM);
        const ads_point p = {0.1, 0.2, 0.3};
        EXPECT_EQ(acedCommandS(RTSTR, L"CIRCLE", RT3DPOINT, p, RTREAL, 1.0 / 3.0, RTNONE), RTNORM);
    });
    user.type({L"NESTED"});
    EXPECT_EQ(EdSysVars::instance().getText(L"TRUSTEDPATHS"), L"C:\\Program Files;D:\\x");
    ASSERT_EQ(user.entities().size(), 1u);
    const auto circle = user.only<AcDbCircle>();
    EXPECT_EQ(circle->radius(), 1.0 / 3.0);
    EXPECT_EQ(circle->center().z, 0.3);
}
TEST(EdCommands, text_sent_for_execution_is_typed_ahead) {
    EdSession user;
    const Added send(L"SEND", L"SEND", [] { acDocManager->sendStringToExecute(curDoc(), L"LINE 0,0 1,1\n2,2\n\n"); });
    user.type({L"SEND", L"POINT 5,5"});
    EXPECT_EQ(user.entities().size(), 3u);
    EXPECT_TRUE(user.refusal.empty());
}
TEST(EdCommands, u_takes_back_one_command_and_redo_brings_it_again) {
    EdSession user;
    user.type({L"LINE 0,0 1,1 2,2", L"", L"POINT 5,5", L"U"});
    EXPECT_EQ(user.entities().size(), 2u);
    user.type({L"U"});
    EXPECT_EQ(user.entities().size(), 0u);
    user.type({L"REDO"});
    EXPECT_EQ(user.entities().size(), 2u);
    user.type({L"POINT 1,1", L"POINT 2,2", L"UNDO 2"});
    EXPECT_EQ(user.entities().size(), 2u);
}
TEST(EdCommands, a_look_around_is_nothing_to_undo) {
    EdSession user;
    user.type({L"POINT 1,1", L"LIST L", L"", L"REGEN", L"U"});
    EXPECT_EQ(user.entities().size(), 0u);
}

// ---- documents
AcRx::AppRetCode answer(AcRx::AppMsgCode code, void* packet) {
    gCalls.push_back(std::to_wstring(static_cast<int>(code)));
    if (code == AcRx::kInitAppMsg)
        acrxUnlockApplication(packet);
    if (code == AcRx::kLoadDwgMsg)
        ads_queueexpr(L"(command \"POINT\" \"7,7\")");
    return AcRx::kRetOK;
}
TEST(EdDocuments, modules_hear_of_each_drawing_and_what_they_queue_runs_in_it) {
    EdSession user;
    gCalls.clear();
    ASSERT_TRUE(acrxLoadModule(L"TestModule", answer).loaded);
    user.type({L"NEW", L"REGEN"});
    EXPECT_EQ(gCalls, (std::vector<std::wstring>{L"1", L"3"}));
    EXPECT_EQ(user.entities().size(), 1u);
    EXPECT_STREQ(curDoc()->fileName(), L"Drawing2.dwg");
    EXPECT_TRUE(acrxUnloadModule(L"TestModule"));
}
class DocumentListener : public AcApDocManagerReactor {
public:
    DocumentListener() { acDocManager->addReactor(this); }
    ~DocumentListener() override { acDocManager->removeReactor(this); }
    void documentCreated(AcApDocument* d) override { calls.push_back(std::wstring(L"created ") + d->fileName()); }
    void documentToBeActivated(AcApDocument* d) override { calls.push_back(std::wstring(L"to be activated ") + d->fileName()); }
    void documentActivated(AcApDocument* d) override { calls.push_back(std::wstring(L"activated ") + d->fileName()); }
    void documentToBeDestroyed(AcApDocument* d) override { calls.push_back(std::wstring(L"to be destroyed ") + d->fileName()); }
    std::vector<std::wstring> calls;
};
TEST(EdDocuments, reactors_are_told_in_order_and_the_earlier_drawing_comes_back) {
    EdSession user;
    const DocumentListener listener;
    user.type({L"POINT 1,1", L"NEW", L"CLOSE"});
    EXPECT_EQ(listener.calls, (std::vector<std::wstring>{L"created Drawing2.dwg", L"to be activated Drawing2.dwg", L"activated Drawing2.dwg",
                                                         L"to be destroyed Drawing2.dwg", L"to be activated Drawing1.dwg", L"activated Drawing1.dwg"}));
    EXPECT_EQ(user.entities().size(), 1u);
}
TEST(EdDocuments, data_of_a_document_goes_with_it) {
    EdSession user;
    AcApDataManager<int> data;
    data.docData() = 5;
    user.type({L"NEW"});
    EXPECT_EQ(data.docData(), 0);
    EXPECT_EQ(data.size(), 2u);
    user.type({L"CLOSE"});
    EXPECT_EQ(data.size(), 1u);
    EXPECT_EQ(data.docData(), 5);
}
// ---- the framework of a module
class TestApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kLoadDwgMsg(void* packet) override { return gCalls.push_back(L"load"), AcRxArxApp::On_kLoadDwgMsg(packet); }
    AcRx::AppRetCode On_kEndDialogMsg(void*) override { return AcRx::kRetError; }

protected:
    AcRxTables tables() const override {
        static const AcRxCommandRow rows[] = {{L"TEST", L"TestApp", L"TA", 1, [] { gCalls.push_back(L"TA"); }}};
        return {nullptr, 0, rows, 1};
    }
};
TEST(AcRxArxApp, messages_go_to_the_operation_of_their_slot) {
    EdSession user;
    gCalls.clear();
    TestApp app;
    EXPECT_EQ(acrxDispatchMessage(app, AcRx::kLoadDwgMsg, nullptr), AcRx::kRetOK);
    EXPECT_EQ(gCalls, (std::vector<std::wstring>{L"load"}));
    EXPECT_EQ(acrxDispatchMessage(app, AcRx::kEndDialogMsg, nullptr), AcRx::kRetError);
}
TEST(AcEdCommandStack, a_local_name_stands_once_in_a_group) {
    EdSession user;
    const Added first(L"ONE", L"SAME", [] {});
    EXPECT_EQ(acedRegCmds()->addCommand(L"TEST", L"TWO", L"same", 1, [] {}), Acad::eDuplicateKey);
    EXPECT_EQ(acedRegCmds()->addCommand(L"TEST2", L"ONE", L"SAME", 1, [] {}), Acad::eOk);
    EXPECT_EQ(acedRegCmds()->removeGroup(L"TEST2"), Acad::eOk);
    EXPECT_EQ(acedRegCmds()->removeGroup(L"TEST2"), Acad::eKeyNotFound);
}
} // namespace
