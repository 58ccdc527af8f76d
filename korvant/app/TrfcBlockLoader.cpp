// Library drawings become anonymous blocks of the working drawing, once per file and version.
#include "TrfcBlockLoader.h"

#include "AcDbEntity.h"
#include "AcEdAds.h"
#include "AcUtText.h"
#include "TrfcAppSettings.h"
#include "TrfcUnchangedScope.h"
#include "WinFiles.h"
#include "storedItem.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>

namespace {

constexpr const ACHAR* kNotFoundFile = L"TrfcBlockNotFound.dwg";
constexpr const ACHAR* kBuiltInFiles[] = {
    L"TrfcBlockSelect.dwg",         L"TrfcTableEliminate.dwg",  L"TrfcTableCovered.dwg", L"TrfcPostBaseExisting.dwg",
    L"TrfcPostBasePlanned.dwg",     L"TrfcPostBaseEliminate.dwg", L"TrfcPostBaseAlien.dwg",
};

AcDbDatabase* workingDatabase() {
    return acdbHostApplicationServices()->workingDatabase();
}

// Length and last write time: two versions of a file differ when this differs; the content is not compared.
std::wstring stampOf(const std::wstring& path) {
    WinFileStatus status;
    if (!winFileStatus(path.c_str(), status))
        return std::wstring();
    return acFormat(L"%lu ", static_cast<unsigned long>(status.length)) + winFormatTime(L"%y/%m/%d %H:%M:%S", status.modifiedLocal);
}

bool fileExists(const std::wstring& path) {
    WinFileStatus status;
    return winFileStatus(path.c_str(), status) && !status.isFolder;
}

void tellMissing(const std::wstring& path, const std::wstring& file) {
    const std::wstring what = path.empty() ? file + L" (a könyvtár nincs beállítva)" : path;
    acedPrompt((L"Blokk definíció nem található: " + what + L"\n").c_str());
}

AcDbDictionary* openTemplates() {
    AcDbDictionary* named = nullptr;
    if (workingDatabase()->getNamedObjectsDictionary(named, AcDb::kForWrite) != Acad::eOk)
        return nullptr;
    AcDbDictionary* templates = nullptr;
    if (named->getAt(TRFC_BLOCK_TEMPLATE, templates, AcDb::kForWrite) == Acad::eKeyNotFound) {
        AcDbObjectId id;
        templates = new AcDbDictionary;
        named->setAt(TRFC_BLOCK_TEMPLATE, templates, id);
    }
    named->close();
    return templates;
}

const resbuf* itemAt(const resbuf* chain, int index) {
    while (chain != nullptr && index-- > 0)
        chain = chain->rbnext;
    return chain;
}

// The stored template of that key: its block goes into the descriptor. True when it is of the
// same version of the file and its block can be opened.
bool takeStoredTemplate(const AcDbDictionary& templates, S_BLOCK_DESCRIPTOR& descriptor) {
    AcDbXrecord* record = nullptr;
    if (templates.getAt(descriptor.blockKey, record, AcDb::kForRead) != Acad::eOk)
        return false;
    descriptor.blockId = storedObjectId(itemAt(record->firstItem(), 1));
    const resbuf* stamp = itemAt(record->firstItem(), 3);
    const bool sameVersion = stamp != nullptr && acutWcscmp(storedText(stamp), descriptor.fileStamp) == 0;
    record->close();
    return sameVersion && AcDbObjectPointer<AcDbBlockTableRecord>(descriptor.blockId).openStatus() == Acad::eOk;
}

void storeTemplate(AcDbDictionary& templates, const S_BLOCK_DESCRIPTOR& descriptor) {
    AcDbObjectId id;
    auto* record = new AcDbXrecord;
    templates.setAt(descriptor.blockKey, record, id);
    ads_name block;
    acdbGetAdsName(block, descriptor.blockId);
    resbuf* chain = acutBuildList(70, 1, 340, block, 1, descriptor.blockFile, 1, descriptor.fileStamp, 0);
    record->setFromRbChain(*chain);
    acutRelRb(chain);
    record->close();
}

void makeByBlock(AcDbEntity& entity) {
    if (entity.colorIndex() == AcCmEntityColor::kACIbyLayer)
        entity.setColorIndex(AcCmEntityColor::kACIbyBlock);
    if (entity.lineWeight() == AcDb::kLnWtByLayer)
        entity.setLineWeight(AcDb::kLnWtByBlock);
    if (entity.linetypeName() == L"ByLayer")
        entity.setLinetype(L"ByBlock");
}

} // namespace

const ACHAR* internText(const std::wstring& text) {
    static std::set<std::wstring> texts;
    return texts.insert(text).first->c_str();
}

std::wstring libraryFilePath(const std::wstring& folder, const std::wstring& file) {
    return folder.empty() ? std::wstring() : folder + L"\\" + file;
}

S_BLOCK_DESCRIPTOR describeBlockFile(const std::wstring& folder, const std::wstring& file) {
    std::wstring key = file;
    std::replace(key.begin(), key.end(), L'\\', L'_');
    S_BLOCK_DESCRIPTOR descriptor;
    descriptor.blockKey = internText(key);
    descriptor.blockFile = internText(file);
    descriptor.fileStamp = internText(stampOf(libraryFilePath(folder, file)));
    return descriptor;
}

S_BLOCK_DESCRIPTOR loadBlockTemplate(const std::wstring& folder, const std::wstring& file, TrfcTaskReport* report) {
    S_BLOCK_DESCRIPTOR descriptor = describeBlockFile(folder, file);
    std::wstring path = libraryFilePath(folder, file);
    const bool missing = !fileExists(path);
    if (missing) {
        tellMissing(path, file);
        path = libraryFilePath(TrfcAppSettings::libraryFolder(APP_SYMBOL_BASE_PATH), kNotFoundFile);
    }
    const TrfcUnchangedScope fetching(workingDatabase());
    AcDbDictionary* templates = openTemplates();
    if (templates == nullptr)
        return descriptor;
    const auto tellOfLoss = [&] {
        if (missing && report != nullptr)
            report->addReport(kReportWithoutObject, L"Blokk definíció nem található", file);
    };
    if (takeStoredTemplate(*templates, descriptor)) {
        tellOfLoss();
    } else {
        AcDbDatabase side(false, true);
        if (!path.empty() && side.readDwgFile(path.c_str()) == Acad::eOk) {
            prepareTemplateDatabase(side);
            workingDatabase()->insert(descriptor.blockId, ACDB_MODEL_SPACE, L"*U", &side, true);
            tellOfLoss();
            storeTemplate(*templates, descriptor);
        }
    }
    templates->close();
    return descriptor;
}

AcDbObjectId builtInBlockId(int index) {
    if (index < 0 || index >= static_cast<int>(std::size(kBuiltInFiles)))
        return AcDbObjectId::kNull;
    return loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_SYMBOL_BASE_PATH), kBuiltInFiles[index]).blockId;
}

void prepareTemplateDatabase(AcDbDatabase& side) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(side.modelSpaceId(), AcDb::kForRead);
    if (!space)
        return;
    AcDbBlockTableRecordIterator* iterator = nullptr;
    if (space->newIterator(iterator) != Acad::eOk)
        return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> entities(iterator);
    for (; !entities->done(); entities->step()) {
        AcDbEntity* entity = nullptr;
        // A lock in the library's drawing guards that drawing, not the symbol made of it.
        if (entities->getEntity(entity, AcDb::kForWrite, false, true) != Acad::eOk)
            continue;
        makeByBlock(*entity);
        entity->close();
    }
}
