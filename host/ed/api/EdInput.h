// The one object that everything asks when it needs the user: prompts, jigs, selections, dialogs,
// message boxes and file dialogs. The console answers with the next script line, the desktop
// with an event loop. Host only; modules use the aced functions.
#pragma once

#include "AcGe.h"

#include <optional>
#include <string>

class EdInput {
public:
    virtual ~EdInput() = default;
    // The next line for a prompt (already shown on the command line). Nothing: the input has ended or
    // was broken off, which cancels what asks.
    virtual std::optional<std::wstring> nextLine(const std::wstring& prompt) = 0;
    // The next line for an open dialog or message box: one that begins with "@". Nothing when there is none:
    // the dialog is then cancelled. A script gives nothing either where its next line does not begin with
    // it, and that line is refused.
    virtual std::optional<std::wstring> nextDialogLine() = 0;
    // Tells that a line could not be taken, with the reason; the run stops after the current command unwinds.
    virtual void refuse(const std::wstring& reason) = 0;
    // A point the cursor rests on while a jig drags; the console has none.
    virtual std::optional<AcGePoint3d> cursor() { return std::nullopt; }
    // False where each line is one whole answer, blanks included (the arguments of a nested command).
    virtual bool splitsAtBlanks() const { return true; }
    // True where a cancel at the Command prompt is not the end of the input (a terminal, a window).
    virtual bool continuesAfterCancel() const { return false; }
    // True where a person answers the windows: a line that a window cannot take is told and asked for again,
    // any line is given, and nothing cancels the topmost window alone.
    virtual bool asksWindowsAgain() const { return false; }
    // True when the user asked to break off (Ctrl-C) since the last call.
    virtual bool breakRequested() { return false; }
};
// The input in force. edPushInput lets a nested command take its answers from elsewhere; the
// pushed input is not owned.
EdInput* edInput();
void edPushInput(EdInput* input);
void edPopInput();
