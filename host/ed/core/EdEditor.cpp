#include "EdEditor.h"

#include "AcRxModule.h"
#include "input/EdInputStack.h"

#include <algorithm>

HOST_RX_DEFINE_ABSTRACT(AcEditorReactor, AcRxObject)
HOST_RX_DEFINE_ABSTRACT(AcEditor, AcRxObject)

AcEditor* acedEditor() {
    return &EdEditor::instance();
}
void AcEditor::addReactor(AcEditorReactor* reactor) {
    EdEditor::instance().addReactor(reactor);
}
void AcEditor::removeReactor(AcEditorReactor* reactor) {
    EdEditor::instance().removeReactor(reactor);
}

EdEditor& EdEditor::instance() {
    // Never destroyed: reactors of modules may be removed after the program's other statics.
    static EdEditor* const theEditor = new EdEditor;
    return *theEditor;
}
namespace {
// Modules look the editor up by name before they use anything else of this layer.
const bool kRegistered = [] {
    acrxSysRegistry()->atPut(ACED_EDITOR_OBJ, &EdEditor::instance());
    return true;
}();
} // namespace

void EdEditor::addReactor(AcEditorReactor* reactor) {
    if (reactor != nullptr && std::find(mReactors.begin(), mReactors.end(), reactor) == mReactors.end())
        mReactors.push_back(reactor);
}
void EdEditor::removeReactor(AcEditorReactor* reactor) {
    std::erase(mReactors, reactor);
}
void EdEditor::each(const std::function<void(AcEditorReactor&)>& tell) {
    // A copy: a reactor may leave while it is told.
    for (AcEditorReactor* const reactor : std::vector<AcEditorReactor*>(mReactors))
        if (std::find(mReactors.begin(), mReactors.end(), reactor) != mReactors.end())
            edGuarded(L"A reactor of the editor", [&] { tell(*reactor); });
}
void EdEditor::fireWillStart(const std::wstring& name) {
    each([&](AcEditorReactor& r) { r.commandWillStart(name.c_str()); });
}
void EdEditor::fireEnded(const std::wstring& name) {
    each([&](AcEditorReactor& r) { r.commandEnded(name.c_str()); });
}
void EdEditor::fireCancelled(const std::wstring& name) {
    each([&](AcEditorReactor& r) { r.commandCancelled(name.c_str()); });
}
void EdEditor::fireFailed(const std::wstring& name) {
    each([&](AcEditorReactor& r) { r.commandFailed(name.c_str()); });
}
void EdEditor::fireSysVarChanged(const std::wstring& name, bool success) {
    each([&](AcEditorReactor& r) { r.sysVarChanged(name.c_str(), success); });
}
