// The system registry, the dynamic linker and the loading of modules.
#include "AcRxModule.h"

#include "AcFault.h"
#include "AcUtText.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <dlfcn.h>
#include <stdlib.h>

namespace {
class Dictionary : public AcRxDictionary {
public:
    AcRxObject* at(const ACHAR* key) const override {
        const auto found = mEntries.find(key);
        return found == mEntries.end() ? nullptr : found->second;
    }
    void atPut(const ACHAR* key, AcRxObject* object) override { mEntries[key] = object; }
    void remove(const ACHAR* key) override { mEntries.erase(key); }

private:
    std::map<std::wstring, AcRxObject*> mEntries;
};

struct Module {
    std::wstring path; // file-system path, or the name of a linked-in entry point
    void* library = nullptr;
    AcRxEntryPoint entry = nullptr;
    bool locked = true; // until it calls acrxUnlockApplication
};
struct Modules {
    std::vector<std::unique_ptr<Module>> loaded; // in load order
    std::vector<const Module*> calling;          // the innermost last
    std::wstring lastPath;
};
Modules& modules() {
    static Modules theModules;
    return theModules;
}

class Linker : public AcRxDynamicLinker {
public:
    void unlockApplication(void* appId) const override { static_cast<Module*>(appId)->locked = false; }
    void registerAppMDIAware(void*) const override {} // every module is given one document at a time
};

// The packet of a message without data is the module's id, as the linker's operations want it.
AcRx::AppRetCode send(Module& module, AcRx::AppMsgCode code, void* packet) {
    modules().calling.push_back(&module);
    struct Done {
        ~Done() { modules().calling.pop_back(); }
    } done;
    return module.entry(code, packet != nullptr ? packet : &module);
}

std::wstring resolvedPath(const std::wstring& path) {
    char* const full = realpath(acToUtf8(path).c_str(), nullptr);
    std::wstring out = full != nullptr ? acFromUtf8(full) : path;
    free(full);
    return out;
}
void closeLibrary(Module& module) {
    if (module.library != nullptr)
        dlclose(module.library);
    module.library = nullptr;
}
AcRxModuleLoadResult refuse(Module& module, std::wstring reason) {
    closeLibrary(module);
    return {false, std::move(reason)};
}

AcRxModuleLoadResult start(std::unique_ptr<Module> module) {
    Modules& all = modules();
    Module& m = *module;
    for (const auto& other : all.loaded)
        if (other->path == m.path)
            return refuse(m, L"the module is loaded already: " + m.path);
    const std::wstring earlier = std::exchange(all.lastPath, m.path);
    all.loaded.push_back(std::move(module));
    std::wstring reason;
    try {
        if (send(m, AcRx::kInitAppMsg, nullptr) == AcRx::kRetOK)
            return {true, L""};
        reason = L"the module refused to start: " + m.path;
    } catch (...) {
        reason = L"the module failed to start: " + acFaultText();
    }
    all.lastPath = earlier;
    AcRxModuleLoadResult result = refuse(m, reason);
    std::erase_if(all.loaded, [&m](const auto& other) { return other.get() == &m; });
    return result;
}
} // namespace

AcRxDictionary* acrxSysRegistry() {
    static Dictionary theRegistry;
    return &theRegistry;
}
AcRxDynamicLinker* acrxDynamicLinker() {
    static Linker theLinker;
    return &theLinker;
}

AcRxModuleLoadResult acrxLoadModule(const std::wstring& path) {
    auto module = std::make_unique<Module>();
    module->path = resolvedPath(path);
    // Local: two modules may define the same names. Not unmapped at unload: class records and reactors
    // that a module leaves behind must not point into the void.
    module->library = dlopen(acToUtf8(module->path).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (module->library == nullptr) {
        const char* const why = dlerror();
        return {false, L"the module cannot be loaded: " + acFromUtf8(why != nullptr ? why : "unknown reason")};
    }
    module->entry = reinterpret_cast<AcRxEntryPoint>(dlsym(module->library, "acrxEntryPoint"));
    if (module->entry == nullptr)
        return refuse(*module, L"the module has no acrxEntryPoint: " + module->path);
    return start(std::move(module));
}
AcRxModuleLoadResult acrxLoadModule(const std::wstring& name, AcRxEntryPoint entry) {
    auto module = std::make_unique<Module>();
    module->path = name;
    module->entry = entry;
    return start(std::move(module));
}

bool acrxUnloadModule(const std::wstring& pathOrName) {
    Modules& all = modules();
    const std::wstring full = resolvedPath(pathOrName);
    const auto found = std::find_if(all.loaded.begin(), all.loaded.end(),
                                    [&](const auto& m) { return m->path == pathOrName || m->path == full; });
    if (found == all.loaded.end() || (*found)->locked)
        return false;
    Module& m = **found;
    send(m, AcRx::kUnloadAppMsg, nullptr);
    closeLibrary(m);
    std::erase_if(all.loaded, [&m](const auto& other) { return other.get() == &m; });
    all.lastPath = all.loaded.empty() ? std::wstring() : all.loaded.back()->path;
    return true;
}

std::vector<std::wstring> acrxLoadedModules() {
    std::vector<std::wstring> paths;
    for (const auto& module : modules().loaded)
        paths.push_back(module->path);
    return paths;
}

void acrxSendToModules(AcRx::AppMsgCode code, void* packet) {
    std::vector<Module*> now; // a module may load or unload others while it is called
    for (const auto& module : modules().loaded)
        now.push_back(module.get());
    for (Module* const module : now) {
        const auto& loaded = modules().loaded;
        if (std::any_of(loaded.begin(), loaded.end(), [module](const auto& m) { return m.get() == module; }))
            send(*module, code, packet);
    }
}

bool acrxSendToModule(const std::wstring& pathOrName, AcRx::AppMsgCode code, void* packet) {
    const std::wstring full = resolvedPath(pathOrName);
    for (const auto& module : modules().loaded)
        if (module->path == pathOrName || module->path == full) {
            send(*module, code, packet);
            return true;
        }
    return false;
}

std::wstring acrxCurrentModulePath() {
    const Modules& all = modules();
    std::wstring path = all.calling.empty() ? all.lastPath : all.calling.back()->path;
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}
