// What other programs leave for the module to deal with. EARLIERLIST puts a scale list into the drawing, as
// versions from before annotation scales did; EXPORTC3DDRAWING stands for the export of another program,
// at whose end the module acts.
#include "AcDbDatabase.h"
#include "AcEdAds.h"
#include "AcRxArxApp.h"

#include <array>

namespace {

AcDbDictionary* settingsOf(AcDbDatabase& drawing) {
    AcDbDictionary* named = nullptr;
    AcDbDictionary* settings = nullptr;
    if (drawing.getNamedObjectsDictionary(named, AcDb::kForWrite) != Acad::eOk)
        return nullptr;
    if (named->getAt(L"TRFC_DOC_DATA", settings, AcDb::kForWrite) != Acad::eOk) {
        AcDbObjectId id;
        settings = new AcDbDictionary;
        named->setAt(L"TRFC_DOC_DATA", settings, id);
    }
    named->close();
    return settings;
}

void leaveScaleList() {
    std::array<ACHAR, 133> list{};
    AcDbDictionary* const settings = settingsOf(*acdbHostApplicationServices()->workingDatabase());
    if (settings == nullptr)
        return;
    if (acedGetString(0, L"Scale list: ", list.data(), list.size()) == RTNORM) {
        AcDbObjectId id;
        auto* const record = new AcDbXrecord;
        settings->setAt(L"DOC_SCALE_LIST", record, id);
        resbuf* const value = acutBuildList(1, list.data(), 0);
        record->setFromRbChain(*value);
        acutRelRb(value);
        record->close();
    }
    settings->close();
}

void exportDrawing() {}

const AcRxCommandRow kCommands[] = {
    {L"EARLIER", L"EARLIERLIST", L"EARLIERLIST", 1, leaveScaleList},
    {L"EARLIER", L"EXPORTC3DDRAWING", L"EXPORTC3DDRAWING", 1, exportDrawing},
};

class EarlierApp : public AcRxArxApp {
protected:
    AcRxTables tables() const override { return {nullptr, 0, kCommands, 2}; }
};

} // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode code, void* packet) {
    static EarlierApp app;
    return acrxDispatchMessage(app, code, packet);
}
extern "C" int acrxGetApiVersion() {
    return kAcrxApiVersion;
}
