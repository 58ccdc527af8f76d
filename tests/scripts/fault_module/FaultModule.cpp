// A module whose commands fail in every way that a module can, and whose box and job wait for the user.
#include "AcDbEntities.h"
#include "AcEdAds.h"
#include "AcEdReactors.h"
#include "AcRxArxApp.h"
#include "AfxApp.h"
#include "CDBException.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace {
int gLiving = 0; // faults that nobody has disposed of

class Fault : public CException {
public:
    explicit Fault(std::wstring text) : mText(std::move(text)) { ++gLiving; }
    ~Fault() override { --gLiving; }
    BOOL GetErrorMessage(LPTSTR text, UINT size, UINT*) const override {
        mText.copy(text, size - 1);
        text[std::min<std::size_t>(mText.size(), size - 1)] = L'\0';
        return TRUE;
    }

private:
    std::wstring mText;
};
class FaultDB : public CDBException {
public:
    FaultDB() : CDBException(SQL_ERROR, L"the table is\nnot there") { ++gLiving; }
    ~FaultDB() override { --gLiving; }
};
class SilentFault : public CException {
public:
    SilentFault() { ++gLiving; }
    ~SilentFault() override { --gLiving; }
};

// Half of the work: two lines, of which the second stays open.
void drawHalf() {
    AcDbObjectPointer<AcDbBlockTableRecord> space(acdbHostApplicationServices()->workingDatabase()->modelSpaceId(),
                                                  AcDb::kForWrite);
    auto* const first = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    auto* const second = new AcDbLine(AcGePoint3d(1, 0, 0), AcGePoint3d(1, 1, 0));
    space->appendAcDbEntity(first);
    space->appendAcDbEntity(second);
    first->close();
}
void throwException() {
    drawHalf();
    throw new Fault(L"half is drawn");
}
void throwDatabase() {
    drawHalf();
    throw new FaultDB;
}
void throwSilent() {
    throw new SilentFault;
}
void throwStandard() {
    throw std::runtime_error("out of paper");
}
void throwNumber() {
    throw 7;
}
void nest() {
    acutPrintf(L"nested: %d\n", acedCommandS(RTSTR, L"FAULTEXC", RTNONE) == RTERROR ? 1 : 0);
}
void tellLeft() {
    acutPrintf(L"faults alive %d, objects open %d\n", gLiving, acdbOpenObjectCount());
}
void box() {
    acutPrintf(L"answer %d\n", AfxMessageBoxOf(nullptr, L"Go on?", L"Box", MB_YESNOCANCEL));
}
void work() {
    for (int i = 0; i < 2000; ++i) {
        if (acedUsrBrk() != 0) {
            acutPrintf(L"the job was broken off\n");
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        if (i == 0)
            acutPrintf(L"at work\n");
    }
    acutPrintf(L"the job is done\n");
}

class BadReactor : public AcEditorReactor {
public:
    void commandEnded(const ACHAR* name) override {
        if (std::wstring(name) == L"REGEN")
            throw new Fault(L"the reactor stumbled");
    }
};
void addReactor() {
    static BadReactor theReactor;
    acedEditor()->addReactor(&theReactor);
}
bool gFailsAtSave = false;
void failAtSave() {
    gFailsAtSave = true;
}

const AcRxCommandRow kCommands[] = {
    {L"FAULT", L"FAULTEXC", L"FAULTEXC", 1, throwException},
    {L"FAULT", L"FAULTDB", L"FAULTDB", 1, throwDatabase},
    {L"FAULT", L"FAULTMUTE", L"FAULTMUTE", 1, throwSilent},
    {L"FAULT", L"FAULTSTD", L"FAULTSTD", 1, throwStandard},
    {L"FAULT", L"FAULTINT", L"FAULTINT", 1, throwNumber},
    {L"FAULT", L"FAULTNEST", L"FAULTNEST", 1, nest},
    {L"FAULT", L"FAULTLEFT", L"FAULTLEFT", 1, tellLeft},
    {L"FAULT", L"FAULTBOX", L"FAULTBOX", 1, box},
    {L"FAULT", L"FAULTJOB", L"FAULTJOB", 1, work},
    {L"FAULT", L"FAULTREACTOR", L"FAULTREACTOR", 1, addReactor},
    {L"FAULT", L"FAULTSAVE", L"FAULTSAVE", 1, failAtSave},
};

class FaultApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kSaveMsg(void*) override {
        if (gFailsAtSave)
            throw new Fault(L"the module cannot save");
        return AcRx::kRetOK;
    }

protected:
    AcRxTables tables() const override { return {nullptr, 0, kCommands, std::size(kCommands)}; }
};
} // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode code, void* packet) {
    static FaultApp app;
    return acrxDispatchMessage(app, code, packet);
}
extern "C" int acrxGetApiVersion() {
    return kAcrxApiVersion;
}
