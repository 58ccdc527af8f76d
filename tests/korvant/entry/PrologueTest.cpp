// How each command begins: whether it turns tracking on, and whether it asks for trust first. Row by row,
// so that no handler can lose its first line unseen.
#include "TrfcCommands.h"

#include "AcDbDatabase.h"
#include "AcEdAds.h"
#include "AfxDialogDriver.h"
#include "CTrfcSignsARXApp.h"
#include "TrfcClasses.h"
#include "DialogUser.h"
#include "TestSupport.h"
#include "TrfcAppSettings.h"
#include "TrfcScaleTracking.h"
#include "Typist.h"

#include <gtest/gtest.h>

#include <iterator>

namespace {
struct Beginning {
    const wchar_t* localName;
    bool tracks; // sets scale tracking
    bool trusts; // takes the module's folder among the trusted paths
    const wchar_t* dialogLine = nullptr; // what ends the window that it opens
};
constexpr Beginning kBeginnings[] = {
    {L"KVO", true, true},
    {L"KVSCALEOFF", false, false},
    {L"KVSCALEON", true, false},
    {L"KVZ", true, true},
    {L"KVTF", false, false},
    {L"KVB", true, true},
    {L"KVK", true, true},
    {L"KVS", true, true},
    {L"KVN", true, true, L"@cancel"},
    {L"KVEXP", true, false},
    {L"KVQ", false, false},
    {L"KVSDF", true, false},
    {L"KVST", true, true, L"@cancel"},
    {L"KVELL", true, false, L"@cancel"},
    {L"KVBLOKK", true, true},
    {L"KVIMP", true, false},
    {L"KVT", true, false},
    {L"KVTS", true, false},
    {L"KVG", false, false},
};

class Prologue : public testing::TestWithParam<std::size_t> {
protected:
    Prologue() {
        acdbHostApplicationServices()->setWorkingDatabase(&mDrawing);
        for (const AcRxClassRow& row : trfcClassRows())
            row.rxInit();
        acrxBuildClassHierarchy();
        TrfcAppSettings::setModuleDirectory(testTempDir() + L"/korvant.arx");
    }
    ~Prologue() override {
        AfxCancelAllDialogs();
        trustedPathPending = false;
        scaleTrackingEnabled = true;
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    // Runs the command of the row; every question is cancelled.
    void run() {
        DialogUser user;
        if (beginning().dialogLine != nullptr)
            user.does(beginning().dialogLine);
        Typist typist({});
        row().function();
    }
    const Beginning& beginning() const { return kBeginnings[GetParam()]; }
    const AcRxCommandRow& row() const { return kCommandRows[GetParam()]; }
    static std::wstring trusted() {
        resbuf value{};
        EXPECT_EQ(acedGetVar(L"TRUSTEDPATHS", &value), RTNORM);
        const std::wstring paths = value.resval.rstring != nullptr ? value.resval.rstring : L"";
        acutDelString(value.resval.rstring);
        return paths;
    }
    static void trustNothing() {
        std::wstring none;
        resbuf value{};
        value.restype = RTSTR;
        value.resval.rstring = none.data();
        ASSERT_EQ(acedSetVar(L"TRUSTEDPATHS", &value), RTNORM);
    }

private:
    AcDbDatabase mDrawing;
};
std::string nameOf(const testing::TestParamInfo<std::size_t>& row) {
    return acToUtf8(kBeginnings[row.param].localName);
}
} // namespace

TEST(Prologues, there_is_one_for_each_command) {
    ASSERT_EQ(kCommandCount, std::size(kBeginnings));
    for (std::size_t i = 0; i < kCommandCount; ++i) {
        EXPECT_STREQ(kCommandRows[i].localName, kBeginnings[i].localName);
        EXPECT_EQ(kCommandRows[i].flags, 1) << i;
        EXPECT_STREQ(kCommandRows[i].group, i + 1 < kCommandCount ? kCommandGroup : kEarlierCommandGroup) << i;
    }
}

TEST_P(Prologue, turns_tracking_on_or_leaves_it_off) {
    scaleTrackingEnabled = false;
    run();
    EXPECT_EQ(scaleTrackingEnabled, beginning().tracks);
}

TEST_P(Prologue, leaves_tracking_on_unless_it_is_the_one_that_ends_it) {
    scaleTrackingEnabled = true;
    run();
    EXPECT_EQ(scaleTrackingEnabled, std::wstring(beginning().localName) != L"KVSCALEOFF");
}

TEST_P(Prologue, asks_for_trust_or_leaves_it_to_others) {
    trustNothing();
    trustedPathPending = true;
    run();
    EXPECT_EQ(trustedPathPending, !beginning().trusts);
    EXPECT_EQ(trusted(), beginning().trusts ? L";" + TrfcAppSettings::moduleDirectory() : std::wstring());
}

TEST_P(Prologue, asks_for_no_trust_that_is_given) {
    trustNothing();
    trustedPathPending = false;
    run();
    EXPECT_FALSE(trustedPathPending);
    EXPECT_EQ(trusted(), L"");
}

INSTANTIATE_TEST_SUITE_P(Commands, Prologue, testing::Range<std::size_t>(0, std::size(kBeginnings)), nameOf);
