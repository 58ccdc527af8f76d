// What a module throws out of its code ends a command, not the program.
#include "AcDbEntities.h"
#include "AcEdAds.h"
#include "AcFault.h"
#include "EdSession.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {
// A command of a module for the length of a test.
struct Added {
    Added(const wchar_t* name, AcRxFunctionPtr f) { acedRegCmds()->addCommand(L"TEST", name, name, 1, f); }
    ~Added() { acedRegCmds()->removeGroup(L"TEST"); }
};
// A kind of exception that a layer above throws by pointer.
struct Thrown {
    const wchar_t* text;
    static int living;
    explicit Thrown(const wchar_t* t) : text(t) { ++living; }
    ~Thrown() { --living; }
    Thrown(const Thrown&) = delete;
    Thrown& operator=(const Thrown&) = delete;
};
int Thrown::living = 0;

bool readThrown(std::wstring& text) {
    try {
        throw;
    } catch (Thrown* const thrown) {
        text = thrown->text;
        delete thrown;
        return true;
    } catch (...) {
        return false;
    }
}
const bool kRegistered = [] {
    acAddFaultReader(readThrown);
    return true;
}();

void drawHalf() {
    AcDbObjectPointer<AcDbBlockTableRecord> space(edDatabase()->modelSpaceId(), AcDb::kForWrite);
    auto* const first = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    auto* const second = new AcDbLine(AcGePoint3d(1, 0, 0), AcGePoint3d(1, 1, 0));
    space->appendAcDbEntity(first);
    space->appendAcDbEntity(second);
    first->close(); // the second stays open
}
} // namespace

TEST(EdFaults, a_command_that_throws_is_told_in_one_line) {
    for (const auto& [function, text] : std::initializer_list<std::pair<AcRxFunctionPtr, std::wstring>>{
             {[] { throw std::runtime_error("out of\npaper\n"); }, L"out of paper"},
             {[] { throw std::runtime_error(""); }, L"exception std::runtime_error"},
             {[] { throw new Thrown(L"half is drawn"); }, L"half is drawn"},
             {[] { throw AcDbOpenRuleBreach{Acad::eNotOpenForWrite}; }, L"eNotOpenForWrite"},
             {[] { throw 7; }, L"exception int"}}) {
        EdSession user;
        const Added added(L"BREAKS", function);
        user.type({L"BREAKS"});
        EXPECT_EQ(user.refusal, L"The command BREAKS failed: " + text);
    }
    EXPECT_EQ(Thrown::living, 0);
}
TEST(EdFaults, one_undo_takes_back_what_it_had_done) {
    EdSession user;
    const Added added(L"BREAKS", [] {
        drawHalf();
        throw new Thrown(L"half is drawn");
    });
    user.type({L"POINT 5,5", L"BREAKS"});
    EXPECT_EQ(user.entities().size(), 3u);
    EXPECT_EQ(acdbOpenObjectCount(), 0) << "what it had open is lost to the commands that follow";
    user.refusal.clear();
    EdCommandRunner::instance().reset();
    user.type({L"MOVE ALL", L"", L"0,0", L"1,1", L"U", L"U"});
    EXPECT_EQ(user.refusal, L"");
    EXPECT_EQ(user.entities().size(), 1u);
}
TEST(EdFaults, the_caller_of_a_nested_command_goes_on_with_its_objects_open) {
    static int theResult = 0, theOpen = 0;
    EdSession user;
    const Added inner(L"BREAKS", [] {
        drawHalf();
        throw new Thrown(L"half is drawn");
    });
    const Added outer(L"OUTER", [] {
        AcDbObjectPointer<AcDbLayerTable> mine(edDatabase()->layerTableId());
        theResult = acedCommandS(RTSTR, L"BREAKS", RTNONE);
        theOpen = mine->isReadEnabled() ? 1 : 0;
    });
    user.type({L"OUTER", L"COUNT"});
    EXPECT_EQ(theResult, RTERROR);
    EXPECT_EQ(theOpen, 1);
    EXPECT_EQ(acdbOpenObjectCount(), 0);
    EXPECT_TRUE(user.refusal.empty());
    EXPECT_TRUE(user.printed(L"2  in all"));
}
TEST(EdFaults, a_reactor_that_throws_leaves_the_command_its_result) {
    class Bad : public AcEditorReactor {
    public:
        Bad() { acedEditor()->addReactor(this); }
        ~Bad() override { acedEditor()->removeReactor(this); }
        void commandEnded(const ACHAR*) override { throw new Thrown(L"the reactor stumbled"); }
        void sysVarChanged(const ACHAR*, bool) override { throw new Thrown(L"at a variable"); }
    } const bad;
    EdSession user;
    user.type({L"POINT 1,1"});
    EXPECT_EQ(user.refusal, L"A reactor of the editor failed: the reactor stumbled");
    EXPECT_EQ(user.entities().size(), 1u);
    user.refusal.clear();
    EdCommandRunner::instance().reset();
    user.type({L"OSMODE 5"});
    EXPECT_EQ(user.refusal, L"A reactor of the editor failed: at a variable");
    EXPECT_EQ(EdSysVars::instance().getShort(L"OSMODE"), 5);
    EXPECT_EQ(Thrown::living, 0);
}
