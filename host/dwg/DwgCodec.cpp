// The doors of the codec.
#include "DwgCodec.h"

#include "AcPath.h"
#include "DwgProxyGraphics.h"
#include "DwgReader.h"
#include "DwgWriter.h"

namespace {
Acad::ErrorStatus readFile(AcDbDatabase& db, const ACHAR* path, std::wstring& sentence) {
    DwgError error;
    DwgFile file;
    if (file.load(acFileSystemPath(path), error))
        DwgReader(db, file).read(error);
    sentence = error.text;
    return error.status;
}
Acad::ErrorStatus writeFile(AcDbDatabase& db, const ACHAR* path, std::wstring& sentence) {
    DwgError error;
    DwgWriter(db).write(acFileSystemPath(path), error);
    sentence = error.text;
    return error.status;
}
bool preview(const ACHAR* path, std::vector<Adesk::UInt8>& dib) {
    DwgError error;
    DwgFile file;
    if (!file.load(acFileSystemPath(path), error))
        return false;
    dib = file.preview();
    return !dib.empty();
}
const bool kInstalled = (dwgInstallCodec(), true);
} // namespace

void dwgInstallCodec() {
    acdbSetFileCodec({&readFile, &writeFile, &preview});
    dbSetProxyPlayer(&dwgPlayProxyGraphics);
}
