// UNDO, U, REDO.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

namespace {
int undoTimes(int times) {
    int done = 0;
    while (done < times && edDatabase()->undo())
        ++done;
    return done;
}
} // namespace

void edCmdU() {
    if (undoTimes(1) == 0)
        edSay(L"Nothing to undo.");
}
void edCmdUndo() {
    int count = 1;
    if (EdPrompt(L"Enter the number of operations to undo <1>: ").noZero().noNegative().integer(count).cancelled())
        return;
    const int done = undoTimes(count);
    edSay(done == 0 ? L"Nothing to undo." : std::to_wstring(done) + L" operation(s) undone.");
}
void edCmdRedo() {
    if (!edDatabase()->redo())
        edSay(L"Nothing to redo.");
}
