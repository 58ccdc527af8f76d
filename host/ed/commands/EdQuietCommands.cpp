// Commands of larger programs that scripts and modules call by name: they say what is missing and let
// the run go on.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

void edCmdRibbon() {
    edSay(L"There is no ribbon here.");
}
void edCmdNetLoad() {
    const auto path = edAskPath(L"Assembly name: ");
    if (path)
        edSay(L"The assembly \"" + *path + L"\" cannot be loaded here.");
}
void edCmdExportC3D() {
    edSay(L"There is nothing of this kind to export here.");
}
