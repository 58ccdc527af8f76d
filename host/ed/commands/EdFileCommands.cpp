// NEW, OPEN, QSAVE, SAVEAS, CLOSE, QUIT, APPLOAD.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

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
void edCmdAppLoad() {
    const auto path = edAskPath(L"Enter name of application to load: ");
    if (!path)
        return;
    const AcRxModuleLoadResult result = acrxLoadModule(*path);
    if (!result.loaded)
        return edFail(result.reason);
    edSay(L"Loaded: " + *path);
    if (documents().current() != nullptr)
        acrxSendToModule(*path, AcRx::kLoadDwgMsg);
}
