#include "EdDocuments.h"

#include "AcFault.h"
#include "AcPath.h"
#include "EdCommandRunner.h"
#include "EdPreview.h"
#include "input/EdInputStack.h"

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
// A module that fails at its message keeps nobody from opening, saving or closing a drawing.
void sendToModules(AcRx::AppMsgCode code) {
    edGuarded(L"A module", [code] { acrxSendToModules(code); });
}
// A user's way to say that a file stays as it is; the user at work may be one whom the system stops nowhere.
bool isWriteProtected(const std::wstring& path) {
    using std::filesystem::perms;
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(acFileSystemPath(path), error);
    constexpr perms kWrite = perms::owner_write | perms::group_write | perms::others_write;
    return std::filesystem::exists(status) && (status.permissions() & kWrite) == perms::none;
}
// Whether both paths mean one file, by whatever names and links it is reached.
bool isSameFile(const std::wstring& a, const std::wstring& b) {
    std::error_code error;
    return a == b || std::filesystem::equivalent(acFileSystemPath(a), acFileSystemPath(b), error);
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

std::vector<EdDocument*> EdDocuments::all() const {
    std::vector<EdDocument*> documents;
    for (const auto& document : mDocuments)
        documents.push_back(document.get());
    return documents;
}
EdDocument* EdDocuments::ofFile(const std::wstring& typed) const {
    const std::wstring path = fullPath(typed);
    for (const auto& document : mDocuments)
        if (document->hasFile() && isSameFile(document->fileName(), path))
            return document.get();
    return nullptr;
}

EdDocument& EdDocuments::createNew() {
    auto database = std::make_unique<AcDbDatabase>(true);
    return adopt(std::make_unique<EdDocument>(std::move(database), L"Drawing" + std::to_wstring(++mNewCount) + L".dwg", false));
}
EdDocument* EdDocuments::open(const std::wstring& typed, std::wstring& error) {
    const std::wstring path = fullPath(typed);
    auto database = std::make_unique<AcDbDatabase>(false);
    std::wstring reason;
    if (edReadDrawing(*database, path, reason) != Acad::eOk) {
        error = typed + L": " + reason;
        return nullptr;
    }
    return &adopt(std::make_unique<EdDocument>(std::move(database), path, true));
}

void EdDocuments::each(const std::function<void(AcApDocManagerReactor&)>& tell) {
    // Reactors may leave or join while they are called.
    for (AcApDocManagerReactor* const reactor : std::vector<AcApDocManagerReactor*>(mReactors))
        if (std::find(mReactors.begin(), mReactors.end(), reactor) != mReactors.end())
            edGuarded(L"A reactor of the drawings", [&] { tell(*reactor); });
}
EdDocument& EdDocuments::adopt(std::unique_ptr<EdDocument> document) {
    EdDocument& added = *document;
    mDocuments.push_back(std::move(document));
    each([&](AcApDocManagerReactor& r) { r.documentCreated(&added); });
    activate(&added);
    sendToModules(AcRx::kLoadDwgMsg);
    return added;
}
void EdDocuments::activate(EdDocument* document) {
    if (document == mCurrent)
        return;
    each([&](AcApDocManagerReactor& r) { r.documentToBeActivated(document); });
    mCurrent = document;
    acdbHostApplicationServices()->setWorkingDatabase(document->database());
    each([&](AcApDocManagerReactor& r) { r.documentActivated(document); });
}
void EdDocuments::closeCurrent() {
    if (mCurrent == nullptr)
        return;
    EdDocument* const going = mCurrent;
    sendToModules(AcRx::kUnloadDwgMsg);
    each([&](AcApDocManagerReactor& r) { r.documentToBeDestroyed(going); });
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
    if (isWriteProtected(path)) {
        error = path + L" cannot be saved: the file is write-protected.";
        return Acad::eFileAccessErr;
    }
    AcDbDatabase& db = *mCurrent->database();
    db.setThumbnailBitmap(edPreviewBitmap(db));
    sendToModules(AcRx::kSaveMsg);
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

Acad::ErrorStatus edReadDrawing(AcDbDatabase& database, const std::wstring& path, std::wstring& reason) {
    AcDbHostApplicationServices* const services = acdbHostApplicationServices();
    AcDbDatabase* const earlier = services->workingDatabase();
    services->setWorkingDatabase(&database);
    Acad::ErrorStatus es = Acad::eInvalidInput;
    try {
        es = database.readDwgFile(path.c_str());
        reason = database.lastError();
    } catch (...) {
        reason = acFaultText(); // a module's entity failed while it was read
    }
    services->setWorkingDatabase(earlier);
    if (es != Acad::eOk && reason.empty())
        reason = acadErrorStatusText(es);
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
