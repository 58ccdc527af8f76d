// The application object: answers the host's messages.
#include "CTrfcSignsARXApp.h"

#include "AcDbAnnotationScale.h"
#include "AcEdAds.h"
#include "CSelectTableDlg.h"
#include "TrfcAppSettings.h"
#include "TrfcClasses.h"
#include "TrfcCommands.h"
#include "TrfcEditorReactors.h"
#include "TrfcScaleTracking.h"
#include "TrfcStartup.h"
#include "TrfcStateChangeData.h"

namespace {
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

AcRxTables CTrfcSignsARXApp::tables() const {
    const std::span<const AcRxClassRow> classes = trfcClassRows();
    return {classes.data(), classes.size(), kCommandRows, kCommandCount};
}

AcRx::AppRetCode CTrfcSignsARXApp::On_kInitAppMsg(void* packet) {
    acrxBuildClassHierarchy();
    registerModuleResources();
    startAnew();
    TrfcAppSettings::setModuleDirectory(acedGetAppName());
    if (!loadSettingsAtStart() || !loadDefaultsAtStart())
        return AcRx::kRetError;
    const AcRx::AppRetCode result = AcRxArxApp::On_kInitAppMsg(packet);
    registerTrfcFamilies();
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
    removeTrfcClasses();
    return AcRx::kRetOK;
}
