// Access to an object while drawing: opened for read, or used as it stands where the running code has it
// open for write, so that a block under construction can be measured.
#pragma once

#include "DbObjectAccess.h"

template <class T> class DbReadAccess {
public:
    explicit DbReadAccess(AcDbObjectId id) {
        if (id.isNull())
            return;
        const Acad::ErrorStatus es = acdbOpenObject(mObject, id, AcDb::kForRead);
        mOpened = es == Acad::eOk;
        if (es == Acad::eWasOpenForWrite)
            mObject = T::cast(DbObjectAccess::peek(id));
    }
    ~DbReadAccess() {
        if (mOpened)
            mObject->close();
    }
    DbReadAccess(const DbReadAccess&) = delete;
    DbReadAccess& operator=(const DbReadAccess&) = delete;
    T* get() const { return mObject; }
    T* operator->() const { return mObject; }
    explicit operator bool() const { return mObject != nullptr; }

private:
    T* mObject = nullptr;
    bool mOpened = false;
};
