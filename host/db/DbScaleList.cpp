#include "DbScaleList.h"

#include "DbDatabaseData.h"

#include "AcUtText.h"

namespace {
constexpr const ACHAR* kScaleList = L"ACAD_SCALELIST";
constexpr const ACHAR* kVariables = L"AcDbVariableDictionary";

std::unique_ptr<AcDbAnnotationScale> contextOf(AcDbScale& scale) {
    auto context = std::make_unique<AcDbAnnotationScale>();
    DbObjectAccess::name(*context) = DbObjectAccess::name(scale);
    DbObjectAccess::paper(*context) = DbObjectAccess::paper(scale);
    DbObjectAccess::drawing(*context) = DbObjectAccess::drawing(scale);
    DbObjectAccess::object(*context) = scale.objectId();
    return context;
}

class Iterator : public AcDbObjectContextCollectionIterator {
public:
    explicit Iterator(std::vector<std::unique_ptr<AcDbAnnotationScale>> scales) : mScales(std::move(scales)) {}
    Acad::ErrorStatus start() override {
        mAt = 0;
        return Acad::eOk;
    }
    bool done() const override { return mAt >= mScales.size(); }
    bool next() override {
        ++mAt;
        return !done();
    }
    Acad::ErrorStatus getContext(AcDbObjectContext*& context) const override {
        context = nullptr;
        if (done())
            return Acad::eIteratorDone;
        auto* const copy = new AcDbAnnotationScale;
        copy->copyFrom(mScales[mAt].get());
        context = copy;
        return Acad::eOk;
    }

private:
    std::vector<std::unique_ptr<AcDbAnnotationScale>> mScales;
    std::size_t mAt = 0;
};

// The list stands in the drawing's dictionary alone, so that what is saved is what is shown.
class ScaleCollection : public AcDbObjectContextCollection {
public:
    explicit ScaleCollection(AcDbDatabase& db) : mDb(db) {}
    std::wstring name() const override { return acdbAnnotationScaleCollectionName; }
    AcDbObjectContext* getContext(const std::wstring& wanted) const override {
        for (auto& scale : scales())
            if (isNamed(*scale, wanted))
                return scale.release();
        return nullptr;
    }
    bool hasContext(const std::wstring& wanted) const override {
        const std::unique_ptr<AcDbObjectContext> found(getContext(wanted));
        return found != nullptr;
    }
    Acad::ErrorStatus addContext(const AcDbObjectContext* context) override;
    Acad::ErrorStatus removeContext(const std::wstring& wanted) override;
    AcDbObjectContextCollectionIterator* newIterator() const override {
        auto* const iterator = new Iterator(scales());
        return iterator;
    }

private:
    static bool isNamed(AcDbAnnotationScale& scale, const std::wstring& wanted) {
        return acutWcsicmp(DbObjectAccess::name(scale).c_str(), wanted.c_str()) == 0;
    }
    std::vector<std::unique_ptr<AcDbAnnotationScale>> scales() const;
    AcDbDatabase& mDb;
};

// In order of adding: keys are a letter and a running number.
std::vector<std::unique_ptr<AcDbAnnotationScale>> ScaleCollection::scales() const {
    std::vector<std::unique_ptr<AcDbAnnotationScale>> found;
    AcDbDictionary* const list = dbNamedDictionary(mDb, kScaleList, AcDb::kForRead, false);
    if (list == nullptr)
        return found;
    std::map<std::pair<std::size_t, std::wstring>, AcDbObjectId> inOrder;
    for (const auto& [key, id] : DbObjectAccess::entries(*list))
        inOrder.emplace(std::pair(key.size(), key), id);
    list->close();
    for (const auto& [key, id] : inOrder)
        if (AcDbScale* const scale = AcDbScale::cast(DbObjectAccess::peek(id)); scale != nullptr && !id.isErased())
            found.push_back(contextOf(*scale));
    return found;
}

Acad::ErrorStatus ScaleCollection::addContext(const AcDbObjectContext* context) {
    const AcDbAnnotationScale* const given = AcDbAnnotationScale::cast(context);
    if (given == nullptr)
        return Acad::eInvalidInput;
    std::wstring newName;
    given->getName(newName);
    if (newName.empty())
        return Acad::eInvalidInput;
    if (hasContext(newName))
        return Acad::eDuplicateKey;
    AcDbDictionary* const list = dbNamedDictionary(mDb, kScaleList, AcDb::kForWrite, true);
    if (list == nullptr)
        return Acad::eInvalidOpenState;
    auto* const scale = new AcDbScale;
    DbObjectAccess::name(*scale) = newName;
    given->getPaperUnits(DbObjectAccess::paper(*scale));
    given->getDrawingUnits(DbObjectAccess::drawing(*scale));
    DbObjectAccess::unitScale(*scale) = DbObjectAccess::paper(*scale) == DbObjectAccess::drawing(*scale);
    std::size_t number = DbObjectAccess::entries(*list).size();
    while (list->has((L"A" + std::to_wstring(number)).c_str()))
        ++number;
    AcDbObjectId id;
    const Acad::ErrorStatus es = list->setAt((L"A" + std::to_wstring(number)).c_str(), scale, id);
    if (es == Acad::eOk)
        scale->close();
    else
        delete scale;
    list->close();
    return es;
}

// The current scale stays in the list: the drawing could not name it any more.
Acad::ErrorStatus ScaleCollection::removeContext(const std::wstring& wanted) {
    for (auto& scale : scales()) {
        if (!isNamed(*scale, wanted))
            continue;
        if (isNamed(*scale, dbDrawingVariable(mDb, L"CANNOSCALE")))
            return Acad::eNotApplicable;
        AcDbObjectPointer<AcDbScale> object(scale->scaleObjectId(), AcDb::kForWrite);
        return object ? object->erase() : object.openStatus();
    }
    return Acad::eKeyNotFound;
}

class Manager : public AcDbObjectContextManager {
public:
    explicit Manager(AcDbDatabase& db) : mScales(db) {}
    AcDbObjectContextCollection* contextCollection(const std::wstring& name) const override {
        return name == acdbAnnotationScaleCollectionName ? &mScales : nullptr;
    }

private:
    mutable ScaleCollection mScales;
};
} // namespace

std::wstring AcDbObjectContextCollection::name() const {
    return {};
}
AcDbObjectContext* AcDbObjectContextCollection::getContext(const std::wstring&) const {
    return nullptr;
}
bool AcDbObjectContextCollection::hasContext(const std::wstring&) const {
    return false;
}
Acad::ErrorStatus AcDbObjectContextCollection::addContext(const AcDbObjectContext*) {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus AcDbObjectContextCollection::removeContext(const std::wstring&) {
    return Acad::eNotApplicable;
}
AcDbObjectContextCollectionIterator* AcDbObjectContextCollection::newIterator() const {
    return new Iterator({});
}

std::unique_ptr<AcDbObjectContextManager> dbNewContextManager(AcDbDatabase& db) {
    return std::make_unique<Manager>(db);
}

void dbAddUsualScales(AcDbDatabase& db) {
    // A drawing unit is a metre, a paper unit a millimetre.
    constexpr int kDenominators[] = {1, 2, 5, 10, 20, 25, 50, 100, 200, 250, 500, 1000, 2000, 2500, 4000, 5000, 10000};
    AcDbObjectContextCollection* const list = db.objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName);
    for (const int denominator : kDenominators) {
        AcDbAnnotationScale scale;
        scale.setName(L"1:" + std::to_wstring(denominator));
        scale.setDrawingUnits(denominator / 1000.0);
        list->addContext(&scale); // one of that name that is there stays
    }
}

AcDbDictionary* dbNamedDictionary(AcDbDatabase& db, const ACHAR* name, AcDb::OpenMode mode, bool create) {
    AcDbObjectPointer<AcDbDictionary> named(db.namedObjectsDictionaryId(), create ? AcDb::kForWrite : AcDb::kForRead);
    AcDbDictionary* dictionary = nullptr;
    if (!named || named->getAt(name, dictionary, mode) == Acad::eOk || !create || named->has(name))
        return dictionary;
    dictionary = new AcDbDictionary;
    AcDbObjectId id;
    if (named->setAt(name, dictionary, id) != Acad::eOk) {
        delete dictionary;
        return nullptr;
    }
    if (mode == AcDb::kForRead)
        dictionary->downgradeOpen();
    return dictionary;
}

std::wstring dbDrawingVariable(const AcDbDatabase& db, const ACHAR* name) {
    AcDbDictionary* const variables = dbNamedDictionary(const_cast<AcDbDatabase&>(db), kVariables, AcDb::kForRead, false);
    if (variables == nullptr)
        return {};
    AcDbObjectId id;
    variables->getAt(name, id);
    variables->close();
    AcDbObjectPointer<AcDbDictionaryVar> variable(id);
    return variable ? variable->value() : std::wstring();
}
void dbSetDrawingVariable(AcDbDatabase& db, const ACHAR* name, const std::wstring& value) {
    AcDbDictionary* const variables = dbNamedDictionary(db, kVariables, AcDb::kForWrite, true);
    if (variables == nullptr)
        return;
    AcDbDictionaryVar* variable = nullptr;
    if (variables->getAt(name, variable, AcDb::kForWrite) == Acad::eKeyNotFound) {
        variable = new AcDbDictionaryVar;
        AcDbObjectId id;
        variables->setAt(name, variable, id);
    }
    variables->close();
    if (variable == nullptr)
        return;
    variable->setValue(value.c_str());
    variable->close();
}
