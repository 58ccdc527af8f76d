// NEW, OPEN, QSAVE, SAVEAS, CLOSE, QUIT, APPLOAD, ARX.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "AcPath.h"
#include "AcRxModule.h"
#include "core/EdCommandRunner.h"

namespace {
EdDocuments& documents() {
    return EdDocuments::instance();
}
bool saveTo(const std::wstring& path) {
    std::wstring error;
    if (documents().save(path, error) != Acad::eOk) {
        edFail(error);
        return false;
    }
    edSay(L"Saved: " + std::wstring(documents().current()->fileName()));
    return true;
}
// True when the drawing may be dropped.
bool mayDrop() {
    const EdDocument* const document = documents().current();
    if (document == nullptr || !document->database()->hasChangedSinceSave())
        return true;
    const EdReply reply = EdPrompt(L"Discard all changes to " + document->title() + L"? [Yes/No] <No>: ", L"Yes No").keyword();
    return reply.is(L"Yes");
}
} // namespace

void edCmdNew() {
    edSay(L"New drawing: " + std::wstring(documents().createNew().fileName()));
}
void edCmdOpen() {
    const auto path = edAskPath(L"Enter name of drawing to open: ");
    if (!path)
        return;
    std::wstring error;
    const EdDocument* const document = documents().open(edWithEnding(*path, L".dwg"), error);
    if (document == nullptr)
        edFail(error);
    else
        edSay(L"Opened: " + std::wstring(document->fileName()));
}
void edCmdSaveAs() {
    const EdDocument* const document = documents().current();
    if (document == nullptr)
        return edFail(L"No drawing is open.");
    const auto path = edAskPath(L"Save drawing as <" + std::wstring(document->fileName()) + L">: ", document->fileName());
    if (path)
        saveTo(edWithEnding(*path, L".dwg"));
}
void edCmdQSave() {
    const EdDocument* const document = documents().current();
    if (document == nullptr)
        return edFail(L"No drawing is open.");
    if (document->hasFile())
        saveTo(document->fileName());
    else
        edCmdSaveAs();
}
void edCmdClose() {
    if (!mayDrop())
        return;
    documents().closeCurrent();
    if (documents().current() == nullptr)
        documents().createNew(); // commands always have a drawing to work on
}
void edCmdQuit() {
    if (mayDrop())
        EdCommandRunner::instance().requestQuit();
}
namespace {
void loadModule(const std::wstring& path) {
    const AcRxModuleLoadResult result = acrxLoadModule(path);
    if (!result.loaded)
        return edFail(result.reason);
    edSay(L"Loaded: " + path);
    if (documents().current() != nullptr)
        acrxSendToModule(path, AcRx::kLoadDwgMsg);
}
// A module is named by its path or by its file name alone.
void unloadModule(const std::wstring& name) {
    for (const std::wstring& path : acrxLoadedModules()) {
        if (acutWcsicmp(path.c_str(), name.c_str()) != 0 && acutWcsicmp(acFileName(path).c_str(), name.c_str()) != 0)
            continue;
        if (!acrxUnloadModule(path))
            return edFail(L"The application cannot be unloaded: " + name);
        return edSay(L"Unloaded: " + acFileName(path));
    }
    edFail(L"No such application is loaded: " + name);
}
} // namespace

void edCmdAppLoad() {
    if (const auto path = edAskPath(L"Enter name of application to load: "))
        loadModule(*path);
}
void edCmdArx() {
    const EdReply reply = EdPrompt(L"Enter an option [?/Load/Unload]: ", L"? Load Unload").keyword();
    if (reply.is(L"?")) {
        for (const std::wstring& path : acrxLoadedModules())
            edSay(acFileName(path));
    } else if (reply.is(L"Load")) {
        edCmdAppLoad();
    } else if (reply.is(L"Unload")) {
        if (const auto name = edAskPath(L"Enter name of application to unload: "))
            unloadModule(*name);
    }
}
