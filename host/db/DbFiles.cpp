// Reading and writing through the registered codec, and the search for support files.
#include "AcDbDatabase.h"

#include "DbDatabaseData.h"
#include "DbScaleList.h"

#include "AcPath.h"

#include <sys/stat.h>

namespace {
AcDbFileCodec gCodec;

bool isFile(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}
std::wstring folderOf(const std::wstring& path) {
    const std::size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash);
}
} // namespace

void acdbSetFileCodec(const AcDbFileCodec& codec) {
    gCodec = codec;
}
bool acdbGetPreviewBitmapFromDwg(const ACHAR* path, std::vector<Adesk::UInt8>& dib) {
    dib.clear();
    return path != nullptr && gCodec.preview != nullptr && gCodec.preview(path, dib);
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* path) {
    if (path == nullptr || gCodec.read == nullptr)
        return path == nullptr ? Acad::eInvalidInput : Acad::eNotImplementedYet;
    const bool recorded = mData->undo.isEnabled();
    makeEmpty();
    mData->undo.setEnabled(false);
    mData->loading = true;
    std::wstring error;
    const Acad::ErrorStatus es = gCodec.read(*this, path, error);
    mData->loading = false;
    if (es != Acad::eOk)
        makeEmpty();
    else
        mData->filename = path;
    mData->lastError = error;
    mData->undo.setEnabled(recorded);
    mData->changed = false;
    return es;
}

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* path) {
    if (path == nullptr || gCodec.write == nullptr)
        return path == nullptr ? Acad::eInvalidInput : Acad::eNotImplementedYet;
    std::wstring error;
    const Acad::ErrorStatus es = gCodec.write(*this, path, error);
    mData->lastError = error;
    if (es != Acad::eOk)
        return es;
    mData->filename = path;
    mData->changed = false;
    return es;
}

// What is read takes the place of all that is here.
void AcDbDatabase::makeEmpty() {
    mData->deleteObjects();
    mData = std::make_unique<AcDbDatabaseImpData>(*this);
    mData->contexts = dbNewContextManager(*this);
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices* const theServices = new AcDbHostApplicationServices; // outlives the databases
    return theServices;
}

Acad::ErrorStatus AcDbHostApplicationServices::findFile(std::wstring& pathOut, const ACHAR* fileName, AcDbDatabase* database) {
    if (fileName == nullptr || *fileName == 0)
        return Acad::eInvalidInput;
    std::vector<std::wstring> folders{L""};
    if (database == nullptr)
        database = mWorking;
    const ACHAR* drawing = L"";
    if (database != nullptr)
        database->getFilename(drawing);
    if (const std::wstring own = folderOf(drawing); !own.empty())
        folders.push_back(own);
    folders.insert(folders.end(), mSupport.begin(), mSupport.end());
    for (const std::wstring& folder : folders) {
        const std::wstring path = folder.empty() ? fileName : folder + L"\\" + fileName;
        const std::string found = acFileSystemPath(path);
        if (isFile(found)) {
            pathOut = acHostPath(found);
            return Acad::eOk;
        }
    }
    return Acad::eFileNotFound;
}
