#include "TrfcFoot.h"

#include "TrfcDocSettings.h"
#include "TrfcFields.h"
#include "TrfcTypedBlock.h"
#include "WinFiles.h"

#include <algorithm>

namespace {
// States of the files before version 7, beside those of today.
constexpr int kForeignOwner = 3;
constexpr int kNoFoot = 4;

std::wstring postLibrary() {
    return TrfcAppSettings::libraryFolder(APP_POSTS_BASE_PATH);
}
} // namespace

std::wstring footFileOfState(const std::wstring& library, const std::wstring& file, int state) {
    const std::size_t split = file.find_last_of(L'\\');
    const std::wstring folder = split == std::wstring::npos ? std::wstring() : file.substr(0, split + 1);
    std::wstring name = split == std::wstring::npos ? file : file.substr(split + 1);
    name.erase(std::remove(name.begin(), name.end(), L'$'), name.end());
    const std::wstring mark = state == kBlockPlanned ? L"$" : state == kBlockToBeRemoved ? L"$$" : L"";
    const std::wstring form = folder + mark + name;
    const bool exists = mark.empty() || GetFileAttributesW(libraryFilePath(library, form).c_str()) != INVALID_FILE_ATTRIBUTES;
    return exists ? form : folder + name;
}

TrfcFoot::TrfcFoot() : mBlock(std::make_unique<TrfcBlock>()) {}

TrfcFoot::TrfcFoot(const S_BLOCK_DESCRIPTOR& descriptor, const TrfcFootPlace& place)
    : mBlock(std::make_unique<TrfcBlock>(descriptor, place.position, place.rotation, place.size)) {}

void TrfcFoot::showState(int state, const TrfcFootPlace& place) {
    const std::wstring library = postLibrary();
    const std::wstring file = footFileOfState(library, mBlock->descriptor().blockFile, state);
    mBlock->init(loadBlockTemplate(library, file), place.position, place.rotation, place.size);
}

Acad::ErrorStatus TrfcFoot::dwgOutFields(AcDbDwgFiler* filer) const {
    trfcWritePart(*filer, *mBlock, L"TrfcBlock");
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcFoot::readEarlier(AcDbDwgFiler* filer, TrfcPostData& data, const TrfcFootPlace& place) {
    if (data.postType != kNoFoot)
        AcDbBlockReference().dwgInFields(filer);
    std::wstring file = L"Error.dwg";
    if (data.postType >= kBlockExisting && data.postType <= kBlockToBeRemoved) {
        file = footFileOfState(postLibrary(), TrfcDocSettings::getDocString(DOC_POST_DEFAULT_DWG), data.postType);
    } else if (data.postType == kForeignOwner) {
        file = TrfcDocSettings::getDocString(DOC_POST_ALIEN_DWG);
        data.postType = kBlockExisting;
    }
    *this = TrfcFoot(loadBlockTemplate(postLibrary(), file), place);
    return filer->filerStatus();
}
