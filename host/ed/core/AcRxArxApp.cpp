#include "AcRxArxApp.h"

#include <iterator>

namespace {
void registerClasses(const AcRxTables& tables) {
    for (std::size_t i = 0; i < tables.classCount; ++i)
        if (tables.classes[i].rxInit != nullptr)
            tables.classes[i].rxInit();
    acrxBuildClassHierarchy();
}
void registerCommands(const AcRxTables& tables) {
    AcEdCommandStack* const stack = acedRegCmds();
    for (std::size_t i = 0; i < tables.commandCount; ++i) {
        const AcRxCommandRow& row = tables.commands[i];
        stack->addCommand(row.group, row.globalName, row.localName, row.flags, row.function, nullptr, row.resourceId);
    }
}
} // namespace

AcRx::AppRetCode AcRxDbxApp::On_kInitAppMsg(void* packet) {
    acrxUnlockApplication(packet);
    acrxRegisterAppMDIAware(packet);
    registerClasses(tables());
    registerCommands(tables());
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kUnloadAppMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode acrxDispatchMessage(AcRxDbxApp& app, AcRx::AppMsgCode code, void* packet) {
    using Operation = AcRx::AppRetCode (AcRxDbxApp::*)(void*);
    static constexpr Operation kOperations[] = {
        &AcRxDbxApp::On_kNullMsg,       &AcRxDbxApp::On_kInitAppMsg,      &AcRxDbxApp::On_kUnloadAppMsg,  &AcRxDbxApp::On_kLoadDwgMsg,
        &AcRxDbxApp::On_kUnloadDwgMsg,  &AcRxDbxApp::On_kInvkSubrMsg,     &AcRxDbxApp::On_kCfgMsg,        &AcRxDbxApp::On_kEndMsg,
        &AcRxDbxApp::On_kQuitMsg,       &AcRxDbxApp::On_kSaveMsg,         &AcRxDbxApp::On_kDependencyMsg, &AcRxDbxApp::On_kNoDependencyMsg,
        &AcRxDbxApp::On_kOleUnloadAppMsg, &AcRxDbxApp::On_kPreQuitMsg,    &AcRxDbxApp::On_kInitDialogMsg, &AcRxDbxApp::On_kEndDialogMsg,
    };
    const auto slot = static_cast<std::size_t>(code);
    if (slot >= std::size(kOperations))
        return AcRx::kRetOK;
    return (app.*kOperations[slot])(packet);
}
