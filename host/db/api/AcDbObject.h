// The base of everything that stands in a drawing database.
//
// Open rules: an object is opened through its id for read (many at once), for write (one,
// alone) and closed by close(). A mutator of a class starts with assertWriteEnabled, a
// reader with assertReadEnabled. On an object that is in no database both always hold.
// Opening for write files the object's state for undo before the first change.
#pragma once

#include "AcDbFiler.h"
#include "AcGi.h"
#include "adsdef.h"

class AcDbDatabase;
class AcDbIdMapping;
struct AcDbObjectImpData;

class AcDbObject : public AcGiDrawable {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    AcDbObject();
    ~AcDbObject() override;
    AcDbObject(const AcDbObject&) = delete;
    AcDbObject& operator=(const AcDbObject&) = delete;

    AcDbObjectId objectId() const { return mId; }
    AcDbObjectId id() const override { return mId; }
    AcDbHandle getAcDbHandle() const { return mId.handle(); }
    AcDbObjectId ownerId() const;
    Acad::ErrorStatus setOwnerId(AcDbObjectId owner);
    AcDbDatabase* database() const;
    bool isErased() const;

    // Ends the opening. An object that is in no database gives eNotInDatabase and stays the caller's.
    Acad::ErrorStatus close();
    Acad::ErrorStatus erase(bool erasing = true);
    Acad::ErrorStatus upgradeOpen(); // eOnLockedLayer as at opening
    Acad::ErrorStatus downgradeOpen();
    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    // A breach is a fault of the calling code: it is reported on the error output and ends the
    // command by an exception of type AcDbOpenRuleBreach.
    void assertReadEnabled() const;
    void assertWriteEnabled(bool autoUndo = true, bool recordModified = true);
    void assertNotifyEnabled() const {}

    Acad::ErrorStatus dwgOut(AcDbDwgFiler* filer) const;
    Acad::ErrorStatus dwgIn(AcDbDwgFiler* filer);
    // Writes this class's fields, its parent's first.
    virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);

    // A new object of the same class with the same content, in no database; the caller's.
    virtual AcDbObject* clone() const;
    // Takes the content of an object of the same class through memory; handle, owner and drawing stay.
    // Null: eNullObjectPointer, another class: eNotThatKindOfClass.
    Acad::ErrorStatus copyFrom(const AcRxObject* other);

    // Extended data: chain of one or more applications, each a 1001 item and its data. The caller
    // releases what xData returns. setXData replaces the applications named in the chain.
    resbuf* xData(const ACHAR* application = nullptr) const;
    Acad::ErrorStatus setXData(const resbuf* chain);
    AcDbObjectId extensionDictionary() const;
    Acad::ErrorStatus createExtensionDictionary();
    void addPersistentReactor(AcDbObjectId reactor);
    void removePersistentReactor(AcDbObjectId reactor);
    AcDbObjectIdArray persistentReactors() const;

    // Called when the object closes after a change.
    virtual void subClose() {}
    virtual Acad::ErrorStatus subErase(bool /*erasing*/) { return Acad::eOk; }

private:
    friend struct DbObjectAccess; // host internals: database, codec, undo
    AcDbObjectId mId;
    std::unique_ptr<AcDbObjectImpData> mData; // xdata, reactors, owner; made on first use

protected:
    bool mModified = false; // changed since its picture was made
};

struct AcDbOpenRuleBreach {
    Acad::ErrorStatus status;
};

// Opens by id; the pointer is null on failure. eWasErased unless openErased. An entity on a locked layer
// opens for read only: eOnLockedLayer for write, unless openOnLockedLayer, for what is no edit of it.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false,
                                     bool openOnLockedLayer = false);
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false,
                                 bool openOnLockedLayer = false) {
    object = nullptr;
    AcDbObject* base = nullptr;
    const Acad::ErrorStatus es = acdbOpenAcDbObject(base, id, mode, openErased, openOnLockedLayer);
    if (es != Acad::eOk)
        return es;
    object = T::cast(base);
    if (object == nullptr) {
        base->close();
        return Acad::eNotThatKindOfClass;
    }
    return Acad::eOk;
}

// Opens on construction, closes on destruction.
template <class T> class AcDbObjectPointer {
public:
    explicit AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false, bool openOnLockedLayer = false) {
        mStatus = acdbOpenObject(mObject, id, mode, openErased, openOnLockedLayer);
    }
    ~AcDbObjectPointer() { close(); }
    AcDbObjectPointer(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;
    Acad::ErrorStatus openStatus() const { return mStatus; }
    T* object() const { return mObject; }
    T* operator->() const { return mObject; }
    explicit operator bool() const { return mObject != nullptr; }
    void close() {
        if (mObject != nullptr)
            mObject->close();
        mObject = nullptr;
    }

private:
    T* mObject = nullptr;
    Acad::ErrorStatus mStatus;
};

// Entity names and ids.
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
// Number of objects open just now in all databases; the tests demand 0 at their end.
int acdbOpenObjectCount();
