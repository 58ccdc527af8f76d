// A module as a later version of this system might be: its posts bear the known class name, file a
// newer version of the record with fields nobody here knows, and draw a cross. LATERPOST adds one.
#include "AcDbDatabase.h"
#include "AcDbEntities.h"
#include "AcDbSymbolTables.h"
#include "AcRxArxApp.h"
#include "AcGi.h"

namespace {

class TrfcPost : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(TrfcPost);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
        AcDbEntity::dwgOutFields(filer);
        filer->writeUInt32(8);
        filer->writeString(L"Árvíztűrő");
        filer->writePoint3d({1.0, 2.0, 3.0});
        AcDbSoftPointerId layer;
        layer = layerId();
        filer->writeSoftPointerId(layer);
        return filer->filerStatus();
    }

protected:
    bool subWorldDraw(AcGiWorldDraw* draw) override {
        const AcGePoint3d rising[] = {{0.0, 0.0, 0.0}, {4.0, 4.0, 0.0}};
        const AcGePoint3d falling[] = {{0.0, 4.0, 0.0}, {4.0, 0.0, 0.0}};
        draw->geometry().polyline(2, rising);
        draw->geometry().polyline(2, falling);
        return true;
    }
};
ACRX_DXF_DEFINE_MEMBERS(TrfcPost, AcDbEntity, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"Korvant Oszlop", L"TrfcSignsARX")

void addLaterPost() {
    AcDbObjectPointer<AcDbBlockTableRecord> space(acdbHostApplicationServices()->workingDatabase()->modelSpaceId(), AcDb::kForWrite);
    auto* post = new TrfcPost;
    space->appendAcDbEntity(post);
    post->close();
}

const AcRxClassRow kClasses[] = {{&TrfcPost::desc, &TrfcPost::rxInit}};
const AcRxCommandRow kCommands[] = {{L"LATER", L"LATERPOST", L"LATERPOST", 1, addLaterPost}};

class LaterApp : public AcRxArxApp {
protected:
    AcRxTables tables() const override { return {kClasses, 1, kCommands, 1}; }
};

} // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode code, void* packet) {
    static LaterApp app;
    return acrxDispatchMessage(app, code, packet);
}
extern "C" int acrxGetApiVersion() {
    return kAcrxApiVersion;
}
