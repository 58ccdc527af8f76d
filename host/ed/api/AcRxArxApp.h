// The framework of a module: the application object that answers the host's messages, and the
// tables of custom classes and commands that it registers. A module defines one instance with
// IMPLEMENT_ARX_ENTRYPOINT, its classes with ACDB_REGISTER_OBJECT_ENTRY rows and its commands
// with a table given by the application object.
#pragma once

#include "AcEdCommandStack.h"

struct AcRxClassRow {
    AcRxClass* (*desc)();
    void (*rxInit)();
};
struct AcRxCommandRow {
    const ACHAR* group;
    const ACHAR* globalName;
    const ACHAR* localName;
    Adesk::Int32 flags;
    AcRxFunctionPtr function;
    int resourceId = -1;
};
struct AcRxTables {
    const AcRxClassRow* classes = nullptr;
    std::size_t classCount = 0;
    const AcRxCommandRow* commands = nullptr;
    std::size_t commandCount = 0;
};

class AcRxDbxApp {
public:
    virtual ~AcRxDbxApp() = default;
    // In the order of the message codes 1 to 15, then the null message.
    virtual AcRx::AppRetCode On_kInitAppMsg(void* packet);
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void* packet);
    virtual AcRx::AppRetCode On_kLoadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kUnloadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInvkSubrMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kCfgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kSaveMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kNoDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kOleUnloadAppMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kPreQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInitDialogMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndDialogMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kNullMsg(void*) { return AcRx::kRetOK; }

protected:
    virtual AcRxTables tables() const = 0;
};
class AcRxArxApp : public AcRxDbxApp {};

// Forwards a message code to the operation of its slot; any other code gives kRetOK.
AcRx::AppRetCode acrxDispatchMessage(AcRxDbxApp& app, AcRx::AppMsgCode code, void* packet);

extern "C" {
AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode code, void* packet);
int acrxGetApiVersion();
}
constexpr int kAcrxApiVersion = 1;
