#include "CFileDialog.h"

#include "AcPath.h"
#include "AcUtText.h"
#include "AfxApp.h"
#include "AfxDialogDriver.h"
#include "WinFiles.h"
#include "app/AfxTemplate.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"
#include "dialog/AfxModal.h"
#include "driver/AfxDriverState.h"

#include <QFileDialog>

namespace {
constexpr int kMostRefusals = 3; // as at every other prompt
constexpr int kNameId = 1148; // the number that the system's own dialog gives its name field

bool isAbsolute(const std::wstring& path) {
    return !path.empty() && (path[0] == L'\\' || path[0] == L'/' || (path.size() > 1 && path[1] == L':'));
}

std::wstring fullPath(const std::wstring& path) {
    std::vector<wchar_t> buffer(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr));
    GetFullPathNameW(path.c_str(), static_cast<DWORD>(buffer.size()), buffer.data(), nullptr);
    return buffer.data();
}

bool isFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// What the user named, made absolute and given the default extension.
std::wstring completed(std::wstring name, const std::wstring& folder, const std::wstring& extension) {
    if (!isAbsolute(name) && !folder.empty())
        name = folder + L"\\" + name;
    if (!extension.empty() && acFileName(name).find(L'.') == std::wstring::npos)
        name += L"." + extension;
    return fullPath(name);
}

// "name|mask||" as the toolkit wants it: "name (mask);;...".
QString filterOf(const CString& filter) {
    QStringList kinds;
    const QStringList parts = toQt(filter.text()).split(u'|');
    for (int i = 0; i + 1 < parts.size() && !parts[i].isEmpty(); i += 2) {
        const QString name = parts[i].section(u'(', 0, 0).trimmed();
        kinds.append(name + QStringLiteral(" (") + QString(parts[i + 1]).replace(u';', u' ') + QStringLiteral(")"));
    }
    return kinds.join(QStringLiteral(";;"));
}

// The window that lines act on: one field.
class NameDialog : public CDialog {
public:
    NameDialog(const std::wstring& name) : mName(name) {}
    std::wstring name() const { return mName; }

protected:
    BOOL OnInitDialog() override {
        SetDlgItemText(kNameId, mName.c_str());
        return TRUE;
    }
    void OnOK() override {
        CString text;
        if (GetDlgItemText(kNameId, text) == 0)
            return; // a file dialog without a name stays open
        mName = text.text();
        EndDialog(IDOK);
    }

private:
    std::wstring mName;
};

bool askInWindow(const std::wstring& caption, CWnd* parent, std::wstring& name) {
    RcDialog source = afxWindow(caption, 0, 260, 50);
    source.controls.push_back(afxItem(L"Static", L"&Fájlnév:", IDC_STATIC, 0, 7, 9, 40, 8));
    source.controls.push_back(afxItem(L"Edit", L"", kNameId, WS_TABSTOP | ES_AUTOHSCROLL, 50, 7, 203, 13));
    source.controls.push_back(afxItem(L"Button", L"OK", IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, 149, 29, 50, 14));
    source.controls.push_back(afxItem(L"Button", L"Mégse", IDCANCEL, WS_TABSTOP, 203, 29, 50, 14));
    NameDialog dialog(name);
    if (afxRunTemplate(dialog, source, parent) != IDOK)
        return false;
    name = dialog.name();
    return true;
}

QString startPath(const OPENFILENAME& settings, const CString& fileName) {
    const std::wstring folder = settings.lpstrInitialDir == nullptr ? L"" : settings.lpstrInitialDir;
    const std::wstring name = fileName.text();
    const std::wstring path = isAbsolute(name) || folder.empty() ? name : folder + L"\\" + name;
    return QString::fromStdString(acFileSystemPath(path));
}
} // namespace

CFileDialog::CFileDialog(BOOL open, LPCTSTR defaultExtension, LPCTSTR fileName, DWORD flags, LPCTSTR filter, CWnd* parent)
    : mOpen(open != FALSE), mExtension(defaultExtension), mFileName(fileName), mFilter(filter), mParent(parent) {
    m_ofn.Flags = flags;
}

INT_PTR CFileDialog::DoModal() {
    AfxInitToolkit();
    const std::wstring caption = m_ofn.lpstrTitle != nullptr ? m_ofn.lpstrTitle : mOpen ? L"Megnyitás" : L"Mentés másként";
    const std::wstring folder = m_ofn.lpstrInitialDir == nullptr ? L"" : m_ofn.lpstrInitialDir;
    AfxDialogDriver* driver = afxDriver();
    if (driver == nullptr && afxUsesEventLoop()) {
        QWidget* parent = mParent == nullptr ? nullptr : mParent->window()->widget.data();
        const QString start = startPath(m_ofn, mFileName);
        const auto options = (m_ofn.Flags & OFN_OVERWRITEPROMPT) != 0 ? QFileDialog::Options() : QFileDialog::DontConfirmOverwrite;
        const QString chosen = mOpen ? QFileDialog::getOpenFileName(parent, toQt(caption), start, filterOf(mFilter))
                                     : QFileDialog::getSaveFileName(parent, toQt(caption), start, filterOf(mFilter), nullptr, options);
        if (chosen.isEmpty())
            return IDCANCEL;
        mPath = completed(acHostPath(chosen.toStdString()), folder, mExtension.text());
        return IDOK;
    }
    int refusals = 0;
    for (std::wstring name = mFileName.text();;) {
        if (driver == nullptr || !driver->askFilePath(caption + L" <" + name + L">: ", name)) {
            if (!askInWindow(caption, mParent, name))
                return IDCANCEL;
        } else if (name.empty()) {
            return IDCANCEL;
        }
        const std::wstring path = completed(name, folder, mExtension.text());
        const bool mustExist = mOpen && (m_ofn.Flags & OFN_FILEMUSTEXIST) != 0;
        const bool replaces = !mOpen && (m_ofn.Flags & OFN_OVERWRITEPROMPT) != 0 && isFile(path);
        if (mustExist && !isFile(path)) {
            acutPrintf(L"A fájl nem található: %s\n", path.c_str());
            if (driver == nullptr || ++refusals < kMostRefusals)
                continue;
            driver->refuseDialogLine(caption + L": " + path + L" cannot be found"); // a script would give all its lines
            return IDCANCEL;
        }
        if (replaces && AfxMessageBoxOf(mParent, (path + L"\nA fájl már létezik. Lecseréli?").c_str(), caption.c_str(), MB_YESNO | MB_ICONWARNING) != IDYES)
            return IDCANCEL;
        mPath = path;
        return IDOK;
    }
}

CString CFileDialog::GetFileName() const {
    return acFileName(mPath.text());
}

CString CFileDialog::GetFileTitle() const {
    const CString name = GetFileName();
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? name : name.Left(dot);
}

CString CFileDialog::GetFileExt() const {
    const CString name = GetFileName();
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? CString() : name.Mid(dot + 1);
}
