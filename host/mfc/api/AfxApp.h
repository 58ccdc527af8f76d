// The application: message boxes, the profile, the module's resources, the message pump.
#pragma once

#include "AfxMessages.h"
#include "CString.h"

#include <cstddef>
#include <string>

class CWnd;

constexpr UINT MB_OK = 0, MB_OKCANCEL = 1, MB_YESNOCANCEL = 3, MB_YESNO = 4, MB_ICONERROR = 0x10, MB_ICONSTOP = 0x10,
               MB_ICONQUESTION = 0x20, MB_ICONWARNING = 0x30, MB_ICONEXCLAMATION = 0x30, MB_ICONINFORMATION = 0x40,
               MB_DEFBUTTON2 = 0x100;
// Shows a text and waits. Driven by lines, the caption and the text are printed and @ok, @cancel,
// @click ID or @close answer; a box of one button takes @close as @ok. Returns IDOK, IDCANCEL,
// IDYES or IDNO.
int AfxMessageBox(LPCTSTR text, UINT type = MB_OK, UINT help = 0);
int AfxMessageBox(UINT stringId, UINT type = MB_OK);
int AfxMessageBoxOf(CWnd* owner, LPCTSTR text, LPCTSTR caption, UINT type);

// ---- the message pump ------------------------------------------------------------------
// A long job on the main thread takes the messages that wait and lets the windows have them, so that
// its own window lives:
//
//   for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
//       if (!window.IsDialogMessage(&message)) {
//           TranslateMessage(&message);
//           DispatchMessageW(&message);
//       }
//
// Keys and the mouse come as messages; paints, timers and posted messages reach their windows while
// PeekMessageW looks.
constexpr UINT PM_NOREMOVE = 0, PM_REMOVE = 1;
// FALSE where no input waits. Neither a window (null) nor a range of messages (0, 0) can be chosen.
BOOL PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove);
BOOL TranslateMessage(const MSG* message); // FALSE: a key comes with its character already
// Lets the window have what was removed; nothing for a message that is not dispatched before the next is taken.
LRESULT DispatchMessageW(const MSG* message);
// The whole pump, for a program with no window of its own to ask.
void AfxPumpMessages();

class CWinApp {
public:
    // Values kept between runs, in profile.ini of the host's folder in the local application
    // data of the user.
    CString GetProfileString(LPCTSTR section, LPCTSTR entry, LPCTSTR defaultValue = nullptr) const;
    BOOL WriteProfileString(LPCTSTR section, LPCTSTR entry, LPCTSTR value);
    UINT GetProfileInt(LPCTSTR section, LPCTSTR entry, int defaultValue) const;
    BOOL WriteProfileInt(LPCTSTR section, LPCTSTR entry, int value);
    std::wstring profilePath() const;
    CWnd* GetMainWnd() const { return nullptr; }
};
CWinApp* AfxGetApp();
// A window's place, kept under a section of the profile. Restoring keeps the window on the
// screen and does nothing where nothing is stored.
void AfxSavePlacement(const CWnd& window, LPCTSTR section);
BOOL AfxRestorePlacement(CWnd& window, LPCTSTR section);

// ---- resources -----------------------------------------------------------------------
// Hands over a module's resource script, in UTF-8; a later id replaces an earlier one. The text is
// read at once. FALSE with the reason ("line 12: ...") where it does not parse; what was
// registered before stays.
BOOL AfxSetResourceText(const char* utf8, std::size_t size, std::wstring* reason = nullptr);
void AfxClearResources();
// The number of a symbol defined in the resource script, 0 where unknown.
UINT AfxResourceId(LPCTSTR symbol);
// A string of the table; empty where unknown.
std::wstring AfxResourceString(UINT id);
BOOL AfxHasDialogTemplate(UINT id);
HINSTANCE AfxGetResourceHandle();
HINSTANCE AfxGetInstanceHandle();
