// Dialogs driven by lines instead of a mouse. While a modal window is open it asks the driver for
// the next line and applies it.
//
// Lines: @show, @click ID, @set ID "text", @check ID on|off, @select ID ROW|"text",
// @cell ID ROW COL "text", @tab "title", @ok, @cancel, @close, @shot "file.png". An ID is a
// number, a symbol of the resource script, or a control's caption in quotes.
#pragma once

#include "CString.h"

#include <string>

class AfxDialogDriver {
public:
    virtual ~AfxDialogDriver() = default;
    // The next line, with its "@". False at the end of the lines: every open window is then
    // cancelled.
    virtual bool nextDialogLine(std::wstring& line) = 0;
    // A line could not be applied, or the lines ended with a window open. The driver stops its
    // run; every open window is then cancelled.
    virtual void refuseDialogLine(const std::wstring& reason) = 0;
    // True where a person answers: a line that cannot be applied is told and asked for again, and no
    // line is Ctrl-C, which cancels the topmost window alone, as Escape does.
    virtual bool asksAgain() const { return false; }
    // Answers a file dialog on the command line (FILEDIA 0). False: use a window. The path is
    // empty where the user gave up.
    virtual bool askFilePath(const std::wstring& prompt, std::wstring& path) {
        (void)prompt;
        (void)path;
        return false;
    }
};
// Null brings back the default: the editor's input (EdInput.h) where one is in force. Returns the
// earlier one; the driver is not owned.
AfxDialogDriver* AfxSetDialogDriver(AfxDialogDriver* driver);
// Without a driver windows run an event loop (the program with a window says so at its start) and
// the editor's input is not asked. With neither, nobody could answer: a modal window is cancelled.
void AfxUseEventLoop(bool use);

// Whether a window of the program is open, modal or not.
bool AfxIsDialogOpen();
// Applies one line to the topmost window: the top modal one, else the last modeless one. Empty
// where it was applied, else the reason.
std::wstring AfxApplyDialogLine(const std::wstring& line);
// Closes every open window by cancel; for the end of a run and of a test.
void AfxCancelAllDialogs();
// Makes the toolkit's application object where there is none yet; without an event loop, without a
// screen, or when told so, on the platform that draws into memory. Windows call it themselves.
void AfxInitToolkit(bool offscreen = false);
