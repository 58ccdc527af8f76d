#include "EdDocuments.h"

#include "AcPath.h"
#include "EdCommandRunner.h"
#include "EdPreview.h"

#include <algorithm>
#include <filesystem>

HOST_RX_DEFINE_ABSTRACT(AcApDocument, AcRxObject)
HOST_RX_DEFINE_ABSTRACT(AcApDocManagerReactor, AcRxObject)
HOST_RX_DEFINE_ABSTRACT(AcApDocManager, AcRxObject)

AcApDocManager* acDocManagerPtr() {
    return &EdDocuments::instance();
}
AcDbDatabase* edDatabase() {
    return acdbHostApplicationServices()->workingDatabase();
}

EdDocument::EdDocument(std::unique_ptr<AcDbDatabase> database, std::wstring name, bool saved)
    : mDatabase(std::move(database)), mName(std::move(name)), mHasFile(saved) {}
void EdDocument::setFile(const std::wstring& path) {
    mName = path;
    mHasFile = true;
}
std::wstring EdDocument::title() const {
    return acFileName(mName);
}
std::wstring EdDocument::folder() const {
    const std::size_t at = mName.find_last_of(L"\\/");
    return at == std::wstring::npos ? L"" : mName.substr(0, at + 1);
}

namespace {
// The drawing keeps its whole path, since the current folder may change under it.
std::wstring fullPath(const std::wstring& path) {
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(acFileSystemPath(path), error);
    return error ? path : acHostPath(full.lexically_normal().string());
}
} // namespace

EdDocuments& EdDocuments::instance() {
    // Never destroyed: modules and their reactors may outlive every other static of the program.
    static EdDocuments* const theDocuments = new EdDocuments;
    return *theDocuments;
}
EdDocuments::~EdDocuments() = default;

AcApDocument* EdDocuments::document(const AcDbDatabase* database) const {
    for (const auto& document : mDocuments)
        if (document->database() == database)
            return document.get();
    return nullptr;
}
void EdDocuments::addReactor(AcApDocManagerReactor* reactor) {
    if (reactor != nullptr && std::find(mReactors.begin(), mReactors.end(), reactor) == mReactors.end())
        mReactors.push_back(reactor);
}
void EdDocuments::removeReactor(AcApDocManagerReactor* reactor) {
    std::erase(mReactors, reactor);
}
Acad::ErrorStatus EdDocuments::sendStringToExecute(AcApDocument* document, const ACHAR* text, bool, bool, bool) {
    if (text == nullptr || document == nullptr || document != mCurrent)
        return Acad::eInvalidInput;
    EdCommandRunner::instance().queueText(text);
    return Acad::eOk;
}

EdDocument& EdDocuments::createNew() {
    auto database = std::make_unique<AcDbDatabase>(true);
    return adopt(std::make_unique<EdDocument>(std::move(database), L"Drawing" + std::to_wstring(++mNewCount) + L".dwg", false));
}
EdDocument* EdDocuments::open(const std::wstring& typed, std::wstring& error) {
    const std::wstring path = fullPath(typed);
    auto database = std::make_unique<AcDbDatabase>(false);
    const Acad::ErrorStatus es = edReadDrawing(*database, path);
    if (es != Acad::eOk) {
        const std::wstring reason = database->lastError();
        error = typed + L": " + (reason.empty() ? acadErrorStatusText(es) : reason);
        return nullptr;
    }
    return &adopt(std::make_unique<EdDocument>(std::move(database), path, true));
}

// Reactors may leave or join while they are called.
#define TELL_DOCUMENT_REACTORS(OPERATION, DOCUMENT)                                                                    \
    for (AcApDocManagerReactor* const reactor : std::vector<AcApDocManagerReactor*>(mReactors))                        \
        if (std::find(mReactors.begin(), mReactors.end(), reactor) != mReactors.end())                                 \
    reactor->OPERATION(DOCUMENT)

EdDocument& EdDocuments::adopt(std::unique_ptr<EdDocument> document) {
    EdDocument& added = *document;
    mDocuments.push_back(std::move(document));
    TELL_DOCUMENT_REACTORS(documentCreated, &added);
    activate(&added);
    acrxSendToModules(AcRx::kLoadDwgMsg);
    return added;
}
void EdDocuments::activate(EdDocument* document) {
    TELL_DOCUMENT_REACTORS(documentToBeActivated, document);
    mCurrent = document;
    acdbHostApplicationServices()->setWorkingDatabase(document->database());
    TELL_DOCUMENT_REACTORS(documentActivated, document);
}
void EdDocuments::closeCurrent() {
    if (mCurrent == nullptr)
        return;
    EdDocument* const going = mCurrent;
    acrxSendToModules(AcRx::kUnloadDwgMsg);
    TELL_DOCUMENT_REACTORS(documentToBeDestroyed, going);
    mCurrent = nullptr;
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    std::erase_if(mDocuments, [going](const auto& d) { return d.get() == going; });
    if (!mDocuments.empty())
        activate(mDocuments.back().get());
}
void EdDocuments::closeAll() {
    while (mCurrent != nullptr)
        closeCurrent();
    mNewCount = 0;
}
Acad::ErrorStatus EdDocuments::save(const std::wstring& typed, std::wstring& error) {
    const std::wstring path = fullPath(typed);
    if (mCurrent == nullptr)
        return Acad::eNoDatabase;
    AcDbDatabase& db = *mCurrent->database();
    db.setThumbnailBitmap(edPreviewBitmap(db));
    acrxSendToModules(AcRx::kSaveMsg);
    const Acad::ErrorStatus es = db.saveAs(path.c_str());
    if (es != Acad::eOk) {
        error = db.lastError();
        if (error.empty())
            error = path + L" cannot be saved: " + acadErrorStatusText(es);
        return es;
    }
    mCurrent->setFile(path);
    db.markSaved();
    return Acad::eOk;
}

Acad::ErrorStatus edReadDrawing(AcDbDatabase& database, const std::wstring& path) {
    AcDbHostApplicationServices* const services = acdbHostApplicationServices();
    AcDbDatabase* const earlier = services->workingDatabase();
    services->setWorkingDatabase(&database);
    const Acad::ErrorStatus es = database.readDwgFile(path.c_str());
    services->setWorkingDatabase(earlier);
    return es;
}
Acad::ErrorStatus edAppend(AcDbDatabase& database, AcDbEntity* entity, AcDbObjectId& id) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    if (!space)
        return space.openStatus();
    const Acad::ErrorStatus es = space->appendAcDbEntity(id, entity);
    if (es != Acad::eOk)
        return es;
    if (EdDocument* const document = EdDocuments::instance().current(); document != nullptr && document->database() == &database)
        document->selection().last = id;
    return entity->close();
}
AcDbObjectId edDraw(std::unique_ptr<AcDbEntity> entity) {
    AcDbDatabase* const db = edDatabase();
    AcDbObjectId id;
    if (db == nullptr)
        return id;
    entity->setDatabaseDefaults(db);
    if (edAppend(*db, entity.get(), id) == Acad::eOk)
        entity.release();
    return id;
}
