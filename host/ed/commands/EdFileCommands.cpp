// NEW, OPEN, QSAVE, SAVEAS, CLOSE, QUIT, APPLOAD, ARX.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "AcPath.h"
#include "AcRxModule.h"
#include "core/EdCommandRunner.h"

#include <filesystem>

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
std::wstring endingOf(const std::wstring& path) {
    const std::wstring name = acFileName(path);
    const std::size_t dot = name.find_last_of(L'.');
    return dot == std::wstring::npos ? L"" : name.substr(dot);
}
bool isDrawingName(const std::wstring& path) {
    const std::wstring ending = endingOf(path);
    return edSameWord(ending, L".dwg") || edSameWord(ending, L".dwt") || edSameWord(ending, L".dws");
}
bool isFile(const std::wstring& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(acFileSystemPath(path), error);
}
// The name under which a drawing is written: a name with a dot in it, such as plan.v2, is no other format.
std::wstring drawingName(const std::wstring& typed) {
    return isDrawingName(typed) ? typed : typed + L".dwg";
}
// Whether the current drawing may be written there; where it may not, the reason has been told.
bool mayWrite(const std::wstring& path) {
    const EdDocument* const open = documents().ofFile(path);
    if (open != nullptr && open == documents().current())
        return true;
    if (open != nullptr) {
        edFail(path + L" is open as another drawing and cannot be replaced.");
        return false;
    }
    if (!isFile(path))
        return true;
    const EdReply reply = EdPrompt(path + L" exists already. Replace it? [Yes/No] <No>: ", L"Yes No").keyword();
    if (reply.is(L"Yes"))
        return true;
    // Lines that end here have not said that the drawing goes nowhere.
    if (reply.cancelled() && !edInput()->continuesAfterCancel())
        edFail(path + L" exists already and was not replaced.");
    else
        edSay(L"Not saved.");
    return false;
}
bool saveUnderName() {
    const std::wstring now = documents().current()->fileName();
    const auto typed = edAskPath(L"Save drawing as <" + now + L">: ", now);
    if (!typed)
        return false;
    if (edSameWord(endingOf(*typed), L".dxf")) {
        edFail(*typed + L": drawings are saved as DWG; DXF is not supported yet.");
        return false;
    }
    if (acFileName(*typed).empty()) {
        edFail(*typed + L" names a folder, not a drawing.");
        return false;
    }
    const std::wstring path = drawingName(*typed);
    return mayWrite(path) && saveTo(path);
}
bool saveCurrent() {
    const EdDocument& document = *documents().current();
    return document.hasFile() ? saveTo(document.fileName()) : saveUnderName();
}
// Whether the current drawing may go: saved, or dropped because the user said so.
bool mayGo() {
    const EdDocument* const document = documents().current();
    if (document == nullptr || !document->database()->hasChangedSinceSave())
        return true;
    const EdReply reply =
        EdPrompt(L"Save changes to " + std::wstring(document->fileName()) + L"? [Yes/No/Cancel] <Yes>: ",
                 L"Yes No Cancel")
            .keyword();
    if (reply.none() || reply.is(L"Yes"))
        return saveCurrent();
    return reply.is(L"No");
}
} // namespace

void edCmdNew() {
    edSay(L"New drawing: " + std::wstring(documents().createNew().fileName()));
}
void edCmdOpen() {
    const auto typed = edAskPath(L"Enter name of drawing to open: ");
    if (!typed)
        return;
    const std::wstring path = isFile(*typed) ? *typed : drawingName(*typed);
    if (EdDocument* const open = documents().ofFile(path)) {
        documents().activate(open);
        return edSay(L"The drawing is open already, and is the current one now: " + std::wstring(open->fileName()));
    }
    std::wstring error;
    const EdDocument* const document = documents().open(path, error);
    if (document == nullptr)
        edFail(error);
    else
        edSay(L"Opened: " + std::wstring(document->fileName()));
}
void edCmdSaveAs() {
    if (documents().current() == nullptr)
        return edFail(L"No drawing is open.");
    saveUnderName();
}
void edCmdQSave() {
    if (documents().current() == nullptr)
        return edFail(L"No drawing is open.");
    saveCurrent();
}
void edCmdClose() {
    if (!mayGo())
        return;
    documents().closeCurrent();
    if (const EdDocument* const next = documents().current())
        edSay(L"Current drawing: " + std::wstring(next->fileName()));
    else
        edCmdNew(); // commands always have a drawing to work on
}
// Each changed drawing is the current one while it is asked for, so that it can be saved. Where the user
// stays, the drawing that was worked on is current again.
void edCmdQuit() {
    EdDocument* const before = documents().current();
    for (EdDocument* const document : documents().all()) {
        if (!document->database()->hasChangedSinceSave())
            continue;
        documents().activate(document);
        if (!mayGo())
            return documents().activate(before);
    }
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
