// The first steps of the commands: what they ask, the trusted path, when they follow the scale.
#include "TrfcCommands.h"

#include "AcDbDatabase.h"
#include "AcEdAds.h"
#include "AcEdCommandStack.h"
#include "TrfcClasses.h"
#include "TestSupport.h"
#include "TrfcAppSettings.h"
#include "TrfcScaleTracking.h"
#include "Typist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace {
class Commands : public testing::Test {
protected:
    Commands() {
        acdbHostApplicationServices()->setWorkingDatabase(&mDrawing);
        mFolder = testTempDir();
        TrfcAppSettings::setModuleDirectory(mFolder + L"/korvant.arx");
        setTrusted(L"");
        trustedPathPending = false;
        scaleTrackingEnabled = true;
        mEarlierSink = acSetPrintSink([](std::wstring_view) {});
    }
    ~Commands() override {
        acSetPrintSink(mEarlierSink);
        trustedPathPending = false;
        scaleTrackingEnabled = true;
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    static void run(const std::wstring& localName) {
        for (std::size_t i = 0; i < kCommandCount; ++i)
            if (localName == kCommandRows[i].localName)
                return kCommandRows[i].function();
        FAIL() << "no such command: " << acToUtf8(localName);
    }
    static std::wstring trusted() {
        resbuf value{};
        EXPECT_EQ(acedGetVar(L"TRUSTEDPATHS", &value), RTNORM);
        const std::wstring paths = value.resval.rstring != nullptr ? value.resval.rstring : L"";
        acutDelString(value.resval.rstring);
        return paths;
    }
    static void setTrusted(const std::wstring& paths) {
        std::wstring copy = paths;
        resbuf value{};
        value.restype = RTSTR;
        value.resval.rstring = copy.data();
        ASSERT_EQ(acedSetVar(L"TRUSTEDPATHS", &value), RTNORM);
    }
    // The type that KVZ takes from the answers, all of which it must ask for. What it places then is cancelled.
    static bool choosesCyclePath(std::deque<std::wstring> answers) {
        const std::size_t count = answers.size();
        Typist typist(std::move(answers));
        run(L"KVZ");
        EXPECT_TRUE(typist.lines.empty());
        for (std::size_t i = 0; i < count; ++i)
            EXPECT_EQ(typist.prompts[i], L"Adja meg a gyalogátkelőhely típusát [Gyalogos/Kerékpárúton] <Gyalogos>: ");
        return crossingOnCyclePath;
    }

    AcDbDatabase mDrawing;
    std::wstring mFolder;

private:
    AcPrintSink mEarlierSink;
};
} // namespace

// ---- the tables

TEST_F(Commands, have_their_global_and_local_names_in_order) {
    const std::pair<const wchar_t*, const wchar_t*> names[] = {
        {L"TrfcPost", L"KVO"},          {L"TrfcScaleOFF", L"KVSCALEOFF"}, {L"TrfcScaleON", L"KVSCALEON"},
        {L"TrfcCrossWalk", L"KVZ"},     {L"TrfcSzerkeszt", L"KVTF"},      {L"TrfcSettings", L"KVB"},
        {L"TrfcPPair", L"KVK"},         {L"TrfcHelp", L"KVS"},            {L"TrfcAbout", L"KVN"},
        {L"TrfcExport", L"KVEXP"},      {L"TrfcQuantityExport", L"KVQ"},  {L"TrfcXMLExport", L"KVSDF"},
        {L"TrfcStateChange", L"KVST"},  {L"TrfcCheck", L"KVELL"},         {L"TrfcBlock", L"KVBLOKK"},
        {L"TrfcImport", L"KVIMP"},      {L"TrfcPostSettings", L"KVT"},    {L"TrfcCrossWalkSettings", L"KVTS"},
        {L"TrfcCrossWalk", L"KVG"},
    };
    ASSERT_EQ(kCommandCount, std::size(names));
    for (std::size_t i = 0; i < kCommandCount; ++i) {
        EXPECT_STREQ(kCommandRows[i].globalName, names[i].first);
        EXPECT_STREQ(kCommandRows[i].localName, names[i].second);
    }
}

TEST_F(Commands, custom_classes_are_registered_in_their_order) {
    std::vector<std::wstring> order = {L"TrfcCrossWalk", L"TrfcTable",      L"TrfcBlockEnt", L"TrfcLamp",       L"TrfcPost",
                                       L"TrfcBlockChain", L"TrfcBlock",     L"TrfcPostPair", L"TrfcTypedBlock", L"TrfcScalable"};
    for (const AcRxClassRow& row : trfcClassRows())
        row.rxInit();
    auto at = order.begin();
    for (const AcRxClassRow& row : trfcClassRows()) {
        at = std::find(at, order.end(), row.desc()->name());
        ASSERT_NE(at, order.end()) << acToUtf8(row.desc()->name()) << " stands out of order";
        ++at;
    }
}

// ---- the type of a crossing

TEST_F(Commands, the_first_character_of_the_answer_decides_the_crossings_type) {
    for (const wchar_t* answer : {L"kerek", L"K", L"k", L"Kerékpárúton"}) {
        crossingOnCyclePath = false;
        EXPECT_TRUE(choosesCyclePath({answer})) << acToUtf8(answer);
    }
    for (const wchar_t* answer : {L"Gy", L"g", L"G", L"gk"}) {
        crossingOnCyclePath = true;
        EXPECT_FALSE(choosesCyclePath({answer})) << acToUtf8(answer);
    }
}

TEST_F(Commands, Enter_takes_the_pedestrian_crossing) {
    crossingOnCyclePath = true;
    EXPECT_FALSE(choosesCyclePath({L""}));
}

TEST_F(Commands, any_other_answer_is_asked_for_again) {
    EXPECT_TRUE(choosesCyclePath({L"x", L"1", L"k"}));
    EXPECT_FALSE(choosesCyclePath({L"igen", L"g"}));
}

TEST_F(Commands, a_cancelled_question_leaves_the_type_as_it_was) {
    for (const bool before : {true, false}) {
        crossingOnCyclePath = before;
        Typist typist({});
        run(L"KVZ");
        EXPECT_EQ(crossingOnCyclePath, before);
        EXPECT_EQ(typist.prompts.size(), 1u); // nothing is placed
    }
}

// ---- tracking

TEST_F(Commands, switching_tracking_does_nothing_else) {
    run(L"KVSCALEOFF");
    EXPECT_FALSE(scaleTrackingEnabled);
    run(L"KVSCALEON");
    EXPECT_TRUE(scaleTrackingEnabled);
}

TEST_F(Commands, KVTF_and_KVG_leave_tracking_off) {
    run(L"KVSCALEOFF");
    for (const wchar_t* command : {L"KVTF", L"KVG"}) {
        Typist typist({});
        run(command);
        EXPECT_FALSE(scaleTrackingEnabled) << acToUtf8(command);
    }
}

TEST_F(Commands, the_others_turn_tracking_on_even_when_they_have_nothing_to_do) {
    for (const wchar_t* command : {L"KVT", L"KVTS", L"KVZ"}) {
        run(L"KVSCALEOFF");
        Typist typist({});
        run(command);
        EXPECT_TRUE(scaleTrackingEnabled) << acToUtf8(command);
    }
}

// ---- the trusted path

TEST_F(Commands, the_modules_folder_is_missing_unless_it_occurs_in_the_trusted_paths) {
    EXPECT_TRUE(isTrustedPathMissing());
    setTrusted(L"C:\\egy;" + TrfcAppSettings::moduleDirectory() + L"valami;D:\\kettő");
    EXPECT_FALSE(isTrustedPathMissing());
}

TEST_F(Commands, a_missing_folder_joins_the_trusted_paths_behind_a_semicolon) {
    setTrusted(L"C:\\egy");
    ensureTrustedPath();
    EXPECT_EQ(trusted(), L"C:\\egy;" + TrfcAppSettings::moduleDirectory());
    ensureTrustedPath();
    EXPECT_EQ(trusted(), L"C:\\egy;" + TrfcAppSettings::moduleDirectory());
}

TEST_F(Commands, a_command_that_may_ask_for_trust_takes_the_step_once) {
    trustedPathPending = isTrustedPathMissing();
    ASSERT_TRUE(trustedPathPending);
    Typist typist({});
    run(L"KVZ");
    EXPECT_FALSE(trustedPathPending);
    EXPECT_EQ(trusted(), L";" + TrfcAppSettings::moduleDirectory());
    setTrusted(L"");
    run(L"KVZ"); // what the user takes away again stays away
    EXPECT_EQ(trusted(), L"");
}

TEST_F(Commands, commands_that_need_no_trust_skip_the_step) {
    trustedPathPending = true;
    for (const wchar_t* command : {L"KVSCALEOFF", L"KVSCALEON", L"KVTF", L"KVT", L"KVTS", L"KVG"}) {
        Typist typist({});
        run(command);
        EXPECT_TRUE(trustedPathPending) << acToUtf8(command);
        EXPECT_EQ(trusted(), L"") << acToUtf8(command);
    }
}

namespace {
int gTries = 0;
void refuseTrust() {
    ++gTries;
}
} // namespace

TEST_F(Commands, a_path_that_cannot_be_trusted_is_tried_again_by_the_next_command) {
    gTries = 0;
    ASSERT_EQ(acedRegCmds()->addCommand(L"TEST", L"TRUSTEDPATHS", L"TRUSTEDPATHS", 0, refuseTrust), Acad::eOk);
    trustedPathPending = isTrustedPathMissing();
    for (int i = 1; i <= 2; ++i) {
        Typist typist({});
        run(L"KVZ");
        EXPECT_TRUE(trustedPathPending);
        EXPECT_EQ(gTries, i);
    }
    acedRegCmds()->removeGroup(L"TEST");
}
