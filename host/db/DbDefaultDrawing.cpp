#include "DbDefaultDrawing.h"

#include "AcDbLayout.h"
#include "DbDatabaseData.h"
#include "DbDefaultHeader.h"
#include "DbScaleList.h"

#include "AcUtText.h"

namespace {
using Told = std::vector<std::wstring>;

// Makes what a drawing lacks. Works on a drawing that is loading, where objects need no opening.
class Completion {
public:
    explicit Completion(AcDbDatabase& db) : mDb(db), mData(DbObjectAccess::data(db)) {}
    Told run(bool isNew) {
        const bool wasLoading = std::exchange(mData.loading, true);
        makeTables();
        makeRecords();
        makeDictionaries(isNew);
        makeLayouts();
        makeScales();
        completeHeader();
        mData.loading = wasLoading;
        return std::move(mTold);
    }

private:
    template <class T> T* at(AcDbObjectId id) const { return id.isErased() ? nullptr : T::cast(DbObjectAccess::peek(id)); }
    void tell(const std::wstring& what) { mTold.push_back(what); }

    // The handle that new drawings give to an object, where it is free.
    AcDbObjectId place(std::unique_ptr<AcDbObject> object, AcDbObjectId owner, Adesk::UInt64 handle = 0) {
        const auto taken = mData.byHandle.find(handle);
        if (handle == 0 || (taken != mData.byHandle.end() && taken->second->object != nullptr))
            handle = mData.handseed;
        DbObjectAccess::data(*object).owner = owner;
        const AcDbObjectId id = DbObjectAccess::idFor(mDb, AcDbHandle(handle));
        DbObjectAccess::place(mDb, id, std::move(object));
        return id;
    }
    template <class T> void makeTable(Adesk::UInt64 handle, const ACHAR* name) {
        if (at<T>(mDb.tableId(T::desc())) != nullptr)
            return;
        DbObjectAccess::setTableId(mDb, T::desc(), place(std::make_unique<T>(), AcDbObjectId::kNull, handle));
        tell(acFormat(L"The table of %s was missing and has been made.", name));
    }
    void makeTables();
    void makeRecords();
    void makeDictionaries(bool isNew);
    void makeLayouts();
    void makeLayout(AcDbDictionary& layouts, const ACHAR* name, AcDbObjectId block, int tab);
    void makeScales();
    void completeHeader();
    void pointTo(const ACHAR* variable, AcDbObjectId id);

    // The record of that name, made when it is missing.
    template <class Table, class Record> AcDbObjectId record(const ACHAR* name, const ACHAR* kind) {
        Table* const table = at<Table>(mDb.tableId(Table::desc()));
        AcDbObjectId id;
        if (table->getAt(name, id) == Acad::eOk)
            return id;
        auto* const made = new Record;
        made->setName(name);
        table->add(id, made);
        made->close();
        tell(acFormat(L"The %s \"%s\" was missing and has been made.", kind, name));
        return id;
    }
    // The entry of that name in a dictionary, made when it is missing.
    template <class T> AcDbObjectId entry(AcDbDictionary& dictionary, const ACHAR* name) {
        AcDbObjectId id;
        if (dictionary.getAt(name, id) == Acad::eOk && id.isValid())
            return id;
        DbObjectAccess::entries(dictionary).erase(name);
        auto* const made = new T;
        dictionary.setAt(name, made, id);
        made->close();
        tell(acFormat(L"The entry %s was missing in the drawing's dictionaries and has been made.", name));
        return id;
    }

    AcDbDatabase& mDb;
    AcDbDatabaseImpData& mData;
    Told mTold;
};

// The handles are those of drawings as other programs make them.
void Completion::makeTables() {
    makeTable<AcDbBlockTable>(0x1, L"blocks");
    makeTable<AcDbLayerTable>(0x2, L"layers");
    makeTable<AcDbTextStyleTable>(0x3, L"text styles");
    makeTable<AcDbLinetypeTable>(0x5, L"line types");
    makeTable<AcDbViewTable>(0x6, L"views");
    makeTable<AcDbUCSTable>(0x7, L"coordinate systems");
    makeTable<AcDbViewportTable>(0x8, L"viewports");
    makeTable<AcDbRegAppTable>(0x9, L"applications");
    makeTable<AcDbDimStyleTable>(0xA, L"dimension styles");
    makeTable<AcDbVXTable>(0xB, L"viewport entities");
    if (at<AcDbDictionary>(mData.namedObjects) == nullptr) {
        mData.namedObjects = place(std::make_unique<AcDbDictionary>(), AcDbObjectId::kNull, 0xC);
        tell(L"The dictionary of named objects was missing and has been made.");
    }
}

void Completion::makeRecords() {
    mData.byBlock = record<AcDbLinetypeTable, AcDbLinetypeTableRecord>(L"ByBlock", L"line type");
    mData.byLayer = record<AcDbLinetypeTable, AcDbLinetypeTableRecord>(L"ByLayer", L"line type");
    mData.continuous = record<AcDbLinetypeTable, AcDbLinetypeTableRecord>(L"Continuous", L"line type");
    if (auto* const solid = at<AcDbLinetypeTableRecord>(mData.continuous); solid->comments().empty())
        solid->setComments(L"Solid line");
    mData.layerZero = record<AcDbLayerTable, AcDbLayerTableRecord>(L"0", L"layer");
    AcDbTextStyleTable* const styles = at<AcDbTextStyleTable>(mDb.textStyleTableId());
    const bool hadStandard = styles->has(L"Standard");
    mData.standardStyle = record<AcDbTextStyleTable, AcDbTextStyleTableRecord>(L"Standard", L"text style");
    if (!hadStandard)
        at<AcDbTextStyleTableRecord>(mData.standardStyle)->setFileName(L"osifont");
    record<AcDbRegAppTable, AcDbRegAppTableRecord>(L"ACAD", L"application");
    record<AcDbDimStyleTable, AcDbDimStyleTableRecord>(L"Standard", L"dimension style");
    record<AcDbViewportTable, AcDbViewportTableRecord>(L"*Active", L"viewport");
    mData.modelSpace = record<AcDbBlockTable, AcDbBlockTableRecord>(ACDB_MODEL_SPACE, L"block");
    mData.paperSpace = record<AcDbBlockTable, AcDbBlockTableRecord>(ACDB_PAPER_SPACE, L"block");
}

void Completion::makeDictionaries(bool isNew) {
    AcDbDictionary& named = *at<AcDbDictionary>(mData.namedObjects);
    entry<AcDbDictionary>(named, L"ACAD_GROUP");
    const AcDbObjectId styles = entry<AcDbDictionary>(named, L"ACAD_MLINESTYLE");
    if (AcDbDictionary* const dictionary = at<AcDbDictionary>(styles); dictionary != nullptr && dictionary->numEntries() == 0) {
        AcDbMlineStyle::Data standard;
        standard.name = L"STANDARD";
        standard.lines = {{0.5, 256, 32767}, {-0.5, 256, 32767}};
        at<AcDbMlineStyle>(entry<AcDbMlineStyle>(*dictionary, L"STANDARD"))->setStyleData(standard);
    }
    entry<AcDbDictionary>(named, L"ACAD_LAYOUT");
    entry<AcDbDictionary>(named, L"ACAD_PLOTSETTINGS");
    const AcDbObjectId plotStyles = entry<AcDbDictionaryWithDefault>(named, L"ACAD_PLOTSTYLENAME");
    if (auto* const dictionary = at<AcDbDictionaryWithDefault>(plotStyles)) {
        mData.normalPlotStyle = entry<AcDbPlaceHolder>(*dictionary, L"Normal");
        dictionary->setDefaultId(mData.normalPlotStyle);
        AcDbLayerTableRecord& zero = *at<AcDbLayerTableRecord>(mData.layerZero);
        if (DbObjectAccess::plotStyle(zero).isNull())
            DbObjectAccess::plotStyle(zero) = mData.normalPlotStyle;
    }
    if (!isNew) // a stranger's drawing gets nothing that it can do without
        return;
    for (const ACHAR* const name : {L"ACAD_MATERIALS", L"ACAD_COLOR", L"ACAD_TABLESTYLE", L"ACAD_MLEADERSTYLE", L"ACAD_VISUALSTYLE"})
        entry<AcDbDictionary>(named, name);
}

void Completion::makeLayout(AcDbDictionary& layouts, const ACHAR* name, AcDbObjectId block, int tab) {
    AcDbBlockTableRecord* const space = at<AcDbBlockTableRecord>(block);
    if (at<AcDbObject>(space->layoutId()) != nullptr)
        return;
    std::wstring free = name;
    for (int number = tab; layouts.has(free.c_str()); ++number)
        free = L"Layout" + std::to_wstring(number);
    const AcDbObjectId id = entry<AcDbLayout>(layouts, free.c_str());
    AcDbLayout::Data data;
    data.name = free;
    data.tabOrder = tab;
    data.block = block;
    if (tab == 0) { // model space is plotted by display, to scale
        data.plotFlags = 1712;
        data.plotType = 0;
    }
    at<AcDbLayout>(id)->setLayoutData(data);
    DbObjectAccess::layout(*space) = id;
}
void Completion::makeLayouts() {
    AcDbDictionary& named = *at<AcDbDictionary>(mData.namedObjects);
    AcDbDictionary* const layouts = at<AcDbDictionary>(entry<AcDbDictionary>(named, L"ACAD_LAYOUT"));
    if (layouts == nullptr)
        return;
    const bool isNew = layouts->numEntries() == 0;
    makeLayout(*layouts, L"Model", mData.modelSpace, 0);
    makeLayout(*layouts, L"Layout1", mData.paperSpace, 1);
    if (isNew)
        makeLayout(*layouts, L"Layout2", record<AcDbBlockTable, AcDbBlockTableRecord>(L"*Paper_Space0", L"block"), 2);
}

void Completion::makeScales() {
    AcDbObjectContextCollection* const list = mDb.objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName);
    const std::unique_ptr<AcDbObjectContextCollectionIterator> walk(list->newIterator());
    if (walk->done())
        dbAddUsualScales(mDb);
    if (!list->hasContext(dbDrawingVariable(mDb, L"CANNOSCALE")) && list->hasContext(L"1:500"))
        dbSetDrawingVariable(mDb, L"CANNOSCALE", L"1:500");
}

void Completion::pointTo(const ACHAR* variable, AcDbObjectId id) {
    DbHeaderValue& value = mData.header[variable];
    value.kind = DbHeaderValue::kHandle;
    if (!value.id.isValid())
        value.id = id;
}
void Completion::completeHeader() {
    for (const auto& [name, value] : dbDefaultHeader())
        mData.header.try_emplace(name, value);
    pointTo(L"CLAYER", mData.layerZero);
    pointTo(L"CELTYPE", mData.byLayer);
    pointTo(L"TEXTSTYLE", mData.standardStyle);
    pointTo(L"DIMTXSTY", mData.standardStyle);
    AcDbObjectId id;
    at<AcDbDimStyleTable>(mDb.tableId(AcDbDimStyleTable::desc()))->getAt(L"Standard", id);
    pointTo(L"DIMSTYLE", id);
    AcDbDictionary& named = *at<AcDbDictionary>(mData.namedObjects);
    if (named.getAt(L"ACAD_MLINESTYLE", id) == Acad::eOk)
        if (AcDbDictionary* const styles = at<AcDbDictionary>(id); styles != nullptr && styles->getAt(L"STANDARD", id) == Acad::eOk)
            pointTo(L"CMLSTYLE", id);
}
} // namespace

void dbBuildDefaultDrawing(AcDbDatabase& db) {
    Completion(db).run(true);
    DbObjectAccess::data(db).changed = false;
}
std::vector<std::wstring> dbCompleteDrawing(AcDbDatabase& db) {
    return Completion(db).run(false);
}

std::vector<std::wstring> DbObjectAccess::finishLoading(AcDbDatabase& db) {
    namesChanged();
    return dbCompleteDrawing(db);
}
