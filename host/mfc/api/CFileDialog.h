// Asks for a file to open or to save. With the system variable FILEDIA at 0 the path is asked on
// the command line, else in a window; either way the defaults are the same.
#pragma once

#include "CDialog.h"

constexpr DWORD OFN_READONLY = 1, OFN_OVERWRITEPROMPT = 2, OFN_HIDEREADONLY = 4, OFN_PATHMUSTEXIST = 0x800, OFN_FILEMUSTEXIST = 0x1000;
struct OPENFILENAME {
    LPCTSTR lpstrInitialDir = nullptr;
    LPCTSTR lpstrTitle = nullptr;
    DWORD Flags = 0;
};

class CFileDialog {
public:
    // filter: pairs of name and mask, "INI files (*.ini)|*.ini||".
    CFileDialog(BOOL open, LPCTSTR defaultExtension = nullptr, LPCTSTR fileName = nullptr,
                DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR filter = nullptr, CWnd* parent = nullptr);
    virtual ~CFileDialog() = default;
    OPENFILENAME m_ofn; // initial folder and title, before DoModal
    OPENFILENAME& GetOFN() { return m_ofn; }

    // IDOK or IDCANCEL. A name without an extension gets the default one. For opening, a file
    // that does not exist is refused and asked again where OFN_FILEMUSTEXIST is set.
    virtual INT_PTR DoModal();
    CString GetPathName() const { return mPath; } // absolute host path
    CString GetFileName() const;
    CString GetFileTitle() const; // without the extension
    CString GetFileExt() const;

private:
    bool mOpen;
    CString mExtension, mFileName, mFilter, mPath;
    CWnd* mParent;
};
