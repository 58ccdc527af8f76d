// A whole plug-in on one page: an entity (a park bench), a command that places one (BENCH) and a dialog
// that asks for its length. Build it, start the console, APPLOAD build/release/samples/bench.arx, BENCH.
#include "AcDbDatabase.h"
#include "AcDbEntity.h"
#include "AcDbSymbolTables.h"
#include "AcEdAds.h"
#include "AcGi.h"
#include "AcRxArxApp.h"
#include "AfxApp.h"
#include "CDataExchange.h"
#include "CDialog.h"

#include <string_view>

namespace {

// ---- the entity: fields, filing, picture ---------------------------------------------------------------
class SampleBench : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(SampleBench);
    AcGePoint3d place;   // drawing units, the world's coordinates
    double length = 2.0; // drawing units

    // The one way by which an entity becomes data: files, copies, clones and undo all come through here.
    // A version first; a record of a later version stays as it is, as a proxy.
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
        AcDbEntity::dwgOutFields(filer);
        filer->writeUInt32(1);
        filer->writePoint3d(place);
        filer->writeDouble(length);
        return filer->filerStatus();
    }
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override {
        AcDbEntity::dwgInFields(filer);
        Adesk::UInt32 version = 0;
        filer->readUInt32(&version);
        if (version > 1)
            return Acad::eMakeMeProxy;
        filer->readPoint3d(&place);
        filer->readDouble(&length);
        return filer->filerStatus();
    }

protected:
    // One picture for the screen, plots, picking and, as proxy graphics, for programs without this plug-in.
    bool subWorldDraw(AcGiWorldDraw* draw) override {
        assertReadEnabled();
        const AcGeVector3d along(length, 0.0, 0.0), deep(0.0, 0.5, 0.0);
        const AcGePoint3d outline[] = {place, place + along, place + along + deep, place + deep, place};
        draw->geometry().polyline(5, outline);
        return true;
    }
    // A mutator opens with assertWriteEnabled: it is what makes undo see the change.
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override {
        assertWriteEnabled();
        place.transformBy(matrix);
        return Acad::eOk;
    }
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override {
        assertReadEnabled();
        extents = AcDbExtents();
        extents.addPoint(place);
        extents.addPoint(place + AcGeVector3d(length, 0.5, 0.0));
        return Acad::eOk;
    }
};
// Class, parent, versions, what a proxy allows, the name in files, and whom a user may ask about proxies.
ACRX_DXF_DEFINE_MEMBERS(SampleBench, AcDbEntity, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"Sample Bench", L"BENCHSAMPLE|Product Desc: sample")

// ---- the dialog: a template in resource script, a class that carries its values ----------------------------
enum { IDD_BENCH = 9000, IDC_LENGTH = 9001 };
constexpr std::string_view kResources = R"rc(
9000 DIALOGEX 0, 0, 140, 60
STYLE DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU
CAPTION "Bench"
FONT 8, "MS Shell Dlg", 400, 0, 0x1
BEGIN
    LTEXT "&Length:", -1, 7, 9, 40, 8
    EDITTEXT 9001, 50, 7, 83, 14
    DEFPUSHBUTTON "OK", 1, 27, 39, 50, 14
    PUSHBUTTON "Cancel", 2, 83, 39, 50, 14
END
)rc";

class CBenchDlg : public CDialog {
public:
    CBenchDlg() : CDialog(IDD_BENCH) {}
    double length = 2.0;

protected:
    void DoDataExchange(CDataExchange* exchange) override {
        CDialog::DoDataExchange(exchange);
        DDX_Text(exchange, IDC_LENGTH, length);
    }
};

// ---- the command: ask, show the dialog, add to the drawing ----------------------------------------------------
void placeBench() {
    ads_point point = {};
    if (acedGetPoint(nullptr, L"Place of the bench: ", point) != RTNORM)
        return; // a cancelled prompt ends the command in silence
    CBenchDlg dialog;
    if (dialog.DoModal() != IDOK || dialog.length <= 0.0)
        return;
    // Every open is paired with a close; this pointer closes model space at the end of the function.
    const AcDbObjectPointer<AcDbBlockTableRecord> space(acdbHostApplicationServices()->workingDatabase()->modelSpaceId(), AcDb::kForWrite);
    auto* bench = new SampleBench;
    bench->place = AcGePoint3d(point[0], point[1], point[2]);
    bench->length = dialog.length;
    if (space && space->appendAcDbEntity(bench) == Acad::eOk)
        bench->close(); // the drawing's now
    else
        delete bench;
}

// ---- the door: what the host registers, and the two exports ---------------------------------------------------
const AcRxClassRow kClasses[] = {{&SampleBench::desc, &SampleBench::rxInit}};
const AcRxCommandRow kCommands[] = {{L"BENCHSAMPLE", L"BENCH", L"BENCH", 1, placeBench}};

class BenchApp : public AcRxArxApp {
public:
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override {
        AfxSetResourceText(kResources.data(), kResources.size());
        return AcRxArxApp::On_kInitAppMsg(packet);
    }

protected:
    AcRxTables tables() const override { return {kClasses, 1, kCommands, 1}; }
};

} // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode code, void* packet) {
    static BenchApp app;
    return acrxDispatchMessage(app, code, packet);
}
extern "C" int acrxGetApiVersion() {
    return kAcrxApiVersion;
}
