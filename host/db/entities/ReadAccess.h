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
        if (es == Acad::eOk)
            mOpened = mObject;
        else if (es == Acad::eWasOpenForWrite)
            mObject = T::cast(DbObjectAccess::peek(id));
    }
    ~DbReadAccess() {
        if (mOpened != nullptr)
            mOpened->close();
    }
    DbReadAccess(const DbReadAccess&) = delete;
    DbReadAccess& operator=(const DbReadAccess&) = delete;
    T* get() const { return mObject; }
    T* operator->() const { return mObject; }
    explicit operator bool() const { return mObject != nullptr; }

private:
    T* mObject = nullptr;
    T* mOpened = nullptr; // the object again where it is ours to close
};
