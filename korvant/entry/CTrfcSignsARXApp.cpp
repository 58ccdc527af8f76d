// The application object: answers the host's messages.
#include "CTrfcSignsARXApp.h"

#include "AcDbAnnotationScale.h"
#include "AcEdAds.h"
#include "CSelectTableDlg.h"
#include "TrfcAppSettings.h"
#include "TrfcBlockChain.h"
#include "TrfcBlockEnt.h"
#include "TrfcCommands.h"
#include "TrfcEditorReactors.h"
#include "TrfcLamp.h"
#include "TrfcPost.h"
#include "TrfcScaleTracking.h"
#include "TrfcStartup.h"
#include "TrfcStateChangeData.h"
#include "TrfcTable.h"

#include <iterator>

namespace {

#define TRFC_CLASS_ROW(CLASS) {&CLASS::desc, &CLASS::rxInit}
// In the order of registration, children before parents in places: the tree is completed afterwards.
const AcRxClassRow kClassRows[] = {
    TRFC_CLASS_ROW(TrfcTable),      TRFC_CLASS_ROW(TrfcBlockEnt), TRFC_CLASS_ROW(TrfcLamp),       TRFC_CLASS_ROW(TrfcPost),
    TRFC_CLASS_ROW(TrfcBlockChain), TRFC_CLASS_ROW(TrfcBlock),    TRFC_CLASS_ROW(TrfcTypedBlock), TRFC_CLASS_ROW(TrfcScalable),
};
#undef TRFC_CLASS_ROW

// A module that is loaded again is mapped still, and finds what its earlier life had set.
void startAnew() {
    setStateChangeData(std::make_unique<TrfcStateChangeData>());
    scaleTrackingEnabled = true;
    crossingOnCyclePath = false;
    CSelectTableDlg::forgetLastFolder();
}

} // namespace

CTrfcSignsARXApp* trfcApp() {
    static CTrfcSignsARXApp app;
    return &app;
}

std::span<const AcRxClassRow> trfcClassRows() {
    return kClassRows;
}

AcRxTables CTrfcSignsARXApp::tables() const {
    return {kClassRows, std::size(kClassRows), kCommandRows, kCommandCount};
}

AcRx::AppRetCode CTrfcSignsARXApp::On_kInitAppMsg(void* packet) {
    acrxBuildClassHierarchy();
    registerModuleResources();
    startAnew();
    TrfcAppSettings::setModuleDirectory(acedGetAppName());
    if (!loadSettingsAtStart() || !loadDefaultsAtStart())
        return AcRx::kRetError;
    const AcRx::AppRetCode result = AcRxArxApp::On_kInitAppMsg(packet);
    acedEditor()->addReactor(CEditorReactor::instance());
    acdbAddAnnotationScaleReactor(CAnnoScaleReactor::instance());
    trustedPathPending = isTrustedPathMissing();
    return result;
}

AcRx::AppRetCode CTrfcSignsARXApp::On_kLoadDwgMsg(void* packet) {
    const AcRx::AppRetCode result = AcRxArxApp::On_kLoadDwgMsg(packet);
    ads_queueexpr(L"(command \"_RIBBON\")");
    ads_queueexpr(L"(command \"_NETLOAD\" \"KorvantRibbon.dll\")");
    if (scaleTrackingEnabled)
        synchroniseScales();
    return result;
}

// The earlier commands' group, the editor reactor and the marking's class stay behind on purpose:
// the unload has always left them, and hosts rely on what it removes and what it does not.
AcRx::AppRetCode CTrfcSignsARXApp::On_kUnloadAppMsg(void*) {
    acdbRemoveAnnotationScaleReactor(CAnnoScaleReactor::instance());
    CAnnoScaleReactor::release();
    acedRegCmds()->removeGroup(kCommandGroup);
    for (AcRxClass* type : {TrfcLamp::desc(), TrfcTable::desc(), TrfcPost::desc(), TrfcScalable::desc(), TrfcTypedBlock::desc(), TrfcBlockChain::desc(), TrfcBlock::desc()})
        deleteAcRxClass(type);
    return AcRx::kRetOK;
}
