// The system registry and the dynamic linker: how a module finds the host's services
// and how the host loads a module. A module is entered through acrxEntryPoint alone.
#pragma once

#include "AcRxObject.h"

#include <string>
#include <vector>

class AcRxDictionary : public AcRxObject {
public:
    ~AcRxDictionary() override = default;
    virtual AcRxObject* at(const ACHAR* key) const = 0; // null when absent
    virtual void atPut(const ACHAR* key, AcRxObject* object) = 0; // does not own the object
    virtual void remove(const ACHAR* key) = 0;
};
// Entries: ACAD_REGISTERED_COMMANDS, and the objects registered by name such as "AcEditor".
AcRxDictionary* acrxSysRegistry();

class AcRxDynamicLinker : public AcRxObject {
public:
    virtual void unlockApplication(void* appId) const = 0;      // the module may be unloaded
    virtual void registerAppMDIAware(void* appId) const = 0;    // works with several documents
};
AcRxDynamicLinker* acrxDynamicLinker();
inline void acrxUnlockApplication(void* appId) { acrxDynamicLinker()->unlockApplication(appId); }
inline void acrxRegisterAppMDIAware(void* appId) { acrxDynamicLinker()->registerAppMDIAware(appId); }

extern "C" {
using AcRxEntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);
}

// ---- the host's side -------------------------------------------------------------
struct AcRxModuleLoadResult {
    bool loaded = false;
    std::wstring reason; // one sentence when not loaded
};
// Loads a shared object (file-system path), sends kInitAppMsg, and keeps it when it answers kRetOK.
AcRxModuleLoadResult acrxLoadModule(const std::wstring& path);
// The same for an entry point that is linked into this program; used by tests.
AcRxModuleLoadResult acrxLoadModule(const std::wstring& name, AcRxEntryPoint entry);
// Sends kUnloadAppMsg and closes the shared object; false when no such module is loaded or the
// module has not unlocked itself.
bool acrxUnloadModule(const std::wstring& pathOrName);
// The paths of the loaded modules, in load order.
std::vector<std::wstring> acrxLoadedModules();
// Sends the message to every loaded module, in load order.
void acrxSendToModules(AcRx::AppMsgCode code, void* packet = nullptr);
// Sends it to the one module of that path or name; false when no such module is loaded.
bool acrxSendToModule(const std::wstring& pathOrName, AcRx::AppMsgCode code, void* packet = nullptr);
// The full path, with backslashes, of the module that is being called or was loaded last;
// what acedGetAppName returns.
std::wstring acrxCurrentModulePath();
