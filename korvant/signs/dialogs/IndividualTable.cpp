#include "IndividualTable.h"

#include "AcDbDatabase.h"
#include "AcEdAds.h"
#include "AcUtText.h"
#include "TrfcAppSettings.h"
#include "TrfcBlockLoader.h"
#include "TrfcDrawingUtils.h"
#include "WinFiles.h"

std::wstring individualTablePath(const AcGePoint3d& postFoot) {
    return TrfcAppSettings::getAppString(APP_TABLES_UNIQ_DIR) + acFormat(L"\\%.2f_%.2f_Korvant.dwg", postFoot.x, postFoot.y);
}

bool storeIndividualTable(const std::wstring& drawing, const std::wstring& relativePath) {
    AcDbDatabase side(false, true);
    const Acad::ErrorStatus read = side.readDwgFile(drawing.c_str());
    // A file that is no drawing must not end the host and the user's work with it.
    reportError(read, L"es == Acad::eOk, EditBlockChainDlg");
    if (read != Acad::eOk)
        return false;
    const std::wstring target = libraryFilePath(TrfcAppSettings::libraryFolder(APP_TABLES_BASE_PATH), relativePath);
    if (target.empty()) {
        acedPrompt(L"A könyvtár nincs beállítva.\n");
        return false;
    }
    const std::wstring folder = target.substr(0, target.rfind(L'\\'));
    if (GetFileAttributesW(folder.c_str()) == INVALID_FILE_ATTRIBUTES)
        CreateDirectoryW(folder.c_str(), nullptr);
    const Acad::ErrorStatus written = side.saveAs(target.c_str());
    reportError(written, target.c_str());
    return written == Acad::eOk;
}
