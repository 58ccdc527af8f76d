// The application: message boxes, the profile, the module's resources, the message pump.
#pragma once

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

// Lets windows handle what waits for them: paints, clicks, posted messages, timers. A long job
// on the main thread calls it so that its window lives.
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
