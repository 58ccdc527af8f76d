// A working drawing of its own for each test, with defaults set as an installation has them.
#pragma once

#include "AcDbDatabase.h"
#include "AcUtText.h"
#include "TestSupport.h"
#include "TrfcDocSettings.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

class AppFixture : public testing::Test {
protected:
    AppFixture() : mDatabase(std::make_unique<AcDbDatabase>()) {
        acdbHostApplicationServices()->setWorkingDatabase(mDatabase.get());
        TrfcAppSettings::clearDocDefaults();
        TrfcAppSettings::setDocDefault(DOC_CURRENT_SCALE, L"500");
        TrfcAppSettings::setDocDefault(DOC_ANNO_HEIGHT, L"0.0025");
        TrfcAppSettings::setDocDefault(DOC_ANNO_TYPE, L"Standard");
        mOldSink = acSetPrintSink([this](std::wstring_view text) { mPrinted += text; });
    }
    ~AppFixture() override {
        acSetPrintSink(mOldSink);
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    AcDbDatabase& database() { return *mDatabase; }
    bool hasDictionary(const ACHAR* name) {
        AcDbDictionary* named = nullptr;
        mDatabase->getNamedObjectsDictionary(named, AcDb::kForRead);
        const bool has = named->has(name);
        named->close();
        return has;
    }
    // An entity of model space, added and closed.
    template <class T> AcDbObjectId addEntity(std::unique_ptr<T> entity) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(mDatabase->modelSpaceId(), AcDb::kForWrite);
        AcDbObjectId id;
        T* raw = entity.release();
        EXPECT_EQ(space->appendAcDbEntity(id, raw), Acad::eOk);
        raw->close();
        return id;
    }
    std::wstring mPrinted;

private:
    std::unique_ptr<AcDbDatabase> mDatabase;
    AcPrintSink mOldSink;
};
