// Dictionaries and xrecords: named data of a drawing.
#pragma once

#include "AcDbObject.h"

#include <map>

namespace AcDb {
enum DuplicateRecordCloning { kDrcNotApplicable = 0, kDrcIgnore = 1, kDrcReplace = 2, kDrcXrefMangleName = 3, kDrcMangleName = 4, kDrcUnmangleName = 5 };
}
// Order of dictionary keys: without regard to case, as drawings keep them.
struct AcDbKeyLess {
    using is_transparent = void;
    bool operator()(const std::wstring& a, const std::wstring& b) const { return (*this)(a.c_str(), b.c_str()); }
    bool operator()(const std::wstring& a, const ACHAR* b) const { return (*this)(a.c_str(), b); }
    bool operator()(const ACHAR* a, const std::wstring& b) const { return (*this)(a, b.c_str()); }
    bool operator()(const ACHAR* a, const ACHAR* b) const;
};

class AcDbDictionaryIterator {
public:
    virtual ~AcDbDictionaryIterator() = default;
    virtual const ACHAR* name() const = 0;
    virtual AcDbObjectId objectId() const = 0;
    virtual Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead) = 0;
    virtual bool done() const = 0;
    virtual bool next() = 0;
};

class AcDbDictionary : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary);
    // eKeyNotFound when absent; opens the entry.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObject*& entry, AcDb::OpenMode mode) const;
    template <class T> Acad::ErrorStatus getAt(const ACHAR* name, T*& entry, AcDb::OpenMode mode) const {
        entry = nullptr;
        AcDbObjectId id;
        const Acad::ErrorStatus es = getAt(name, id);
        return es == Acad::eOk ? acdbOpenObject(entry, id, mode) : es;
    }
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
    bool has(const ACHAR* name) const;
    // Adds the object to the database, owned by the dictionary and open for write; an entry of
    // that name is replaced and the old object erased.
    Acad::ErrorStatus setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id);
    Acad::ErrorStatus remove(const ACHAR* name);
    Acad::ErrorStatus remove(AcDbObjectId id);
    std::wstring nameAt(AcDbObjectId id) const;
    Adesk::UInt32 numEntries() const;
    AcDbDictionaryIterator* newIterator() const; // the caller's
    bool isTreatElementsAsHard() const { return mHard; }
    void setTreatElementsAsHard(bool hard);
    AcDb::DuplicateRecordCloning mergeStyle() const { return mMergeStyle; }
    void setMergeStyle(AcDb::DuplicateRecordCloning style) { mMergeStyle = style; }
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    // A dictionary takes its entries along when it is erased and brings them back. Erased entries
    // stay in it for undo; no operation shows them.
    Acad::ErrorStatus subErase(bool erasing) override;

private:
    friend struct DbObjectAccess;
    std::map<std::wstring, AcDbObjectId, AcDbKeyLess> mEntries;
    bool mHard = false;
    AcDb::DuplicateRecordCloning mMergeStyle = AcDb::kDrcIgnore;
};

// A dictionary that names one of its entries for those who ask for a name it lacks.
class AcDbDictionaryWithDefault : public AcDbDictionary {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionaryWithDefault);
    AcDbObjectId defaultId() const { return mDefault; }
    Acad::ErrorStatus setDefaultId(AcDbObjectId id);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    AcDbObjectId mDefault;
};

// One chain of typed values.
class AcDbXrecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbXrecord);
    ~AcDbXrecord() override;
    // A copy of the chain, the caller's (acutRelRb).
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* database = nullptr) const;
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* database = nullptr);
    // The stored chain itself, valid while the object is open.
    const resbuf* firstItem() const { return mChain; }
    AcDb::DuplicateRecordCloning mergeStyle() const { return mMergeStyle; }
    void setMergeStyle(AcDb::DuplicateRecordCloning style) { mMergeStyle = style; }
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    resbuf* mChain = nullptr;
    AcDb::DuplicateRecordCloning mMergeStyle = AcDb::kDrcIgnore;
};
