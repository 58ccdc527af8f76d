// What the tests of the entities stand on: a drawing, settings, a library of readable files, blocks
// made in memory, and dialogs that are answered by the test.
#pragma once

#include "TextLibrary.h"
#include "TrfcBlockEnt.h"
#include "TrfcDocSettings.h"
#include "TrfcLamp.h"
#include "TrfcPost.h"
#include "TrfcTable.h"

#include "AcDbDatabase.h"
#include "AcUtText.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

// What the dialogs of the program under test do: nothing and Cancel, unless a test says otherwise.
struct DialogAnswers {
    std::function<bool(TrfcPost&, int page)> post;
    std::function<bool(TrfcBlockEnt&)> blockEnt;
};
DialogAnswers& dialogAnswers();

// At 1:500: foot 1 across, AB at least 5, CD at least 3, existing plates times 4, planned times 6,
// existing lamps times 2, planned times 3, bend of 45 degrees, note 1.25 high.
class SignsFixture : public testing::Test {
protected:
    SignsFixture();
    ~SignsFixture() override;

    AcDbDatabase& database() { return *mDatabase; }
    void set(TrfcRealKey key, const ACHAR* value) const; // of the drawing's settings, by their text
    void set(TrfcIntKey key, const ACHAR* value) const;
    void setScale(int denominator) const;

    // A definition of its own, filled with the entities given.
    AcDbObjectId makeBlock(const std::vector<AcDbEntity*>& entities);
    AcDbObjectId boxBlock(double left, double bottom, double right, double top);
    S_BLOCK_DESCRIPTOR descriptor(const std::wstring& file, AcDbObjectId block) const;
    // A plate a unit wide and high above its insertion point, under that file name.
    S_BLOCK_DESCRIPTOR plate(const std::wstring& file, double height = 1.0) { return descriptor(file, boxBlock(-0.5, 0.0, 0.5, height)); }
    TrfcTable* newTable(const std::wstring& file, double height = 1.0) { return new TrfcTable(plate(file, height)); }
    TrfcLamp* newLamp(const std::wstring& file = L"lamp.dwg") { return new TrfcLamp(plate(file)); }
    static AcDbAttributeDefinition* attribute(const ACHAR* tag, const ACHAR* text, const AcGePoint3d& at = {}, bool invisible = false);

    // A finished post: A at the origin, B 10 up, D at (6, 20) with a bend.
    std::unique_ptr<TrfcPost> newPost(int plates = 2);
    // Adds to model space; the entity is closed.
    template <class T> AcDbObjectId resident(std::unique_ptr<T> entity) { return addEntity(entity.release()); }
    AcDbObjectId addEntity(AcDbEntity* entity);

    TextLibrary library;
    std::wstring printed; // on the command line since the test began

private:
    void makeSettings();
    void makeLibrary();
    std::unique_ptr<AcDbDatabase> mDatabase;
    std::function<void(std::wstring_view)> mEarlierSink;
};

// ---- looks at what is drawn and filed
std::vector<std::wstring> drawn(AcGiDrawable& drawable, bool dragging = false);
// Lines that begin with the word, indentation left out.
std::vector<std::wstring> linesWith(const std::vector<std::wstring>& lines, const std::wstring& word);
std::vector<std::wstring> filed(const AcDbObject& object);
// Owned parts of an explosion.
std::vector<std::unique_ptr<AcDbEntity>> exploded(const AcDbEntity& entity);
std::vector<std::wstring> classNames(const std::vector<std::unique_ptr<AcDbEntity>>& entities);

void expectNear(const AcGePoint3d& actual, const AcGePoint3d& expected, const char* what = "");
void expectNear(const AcGeVector3d& actual, const AcGeVector3d& expected, const char* what = "");
// The blocks of each list stand end to end from the base point.
void expectLaidWithoutGap(const TrfcBlockChain& chain);
// File names along the upward list.
std::vector<std::wstring> upFiles(const TrfcBlockChain& chain);
std::vector<int> upComplIndices(const TrfcBlockChain& chain);

// A grip by its name; the array owns the grips.
class Grips {
public:
    explicit Grips(const AcDbEntity& entity);
    ~Grips();
    std::vector<std::wstring> names() const;
    AcDbGripData* find(const std::wstring& name) const; // null when absent; the first of that name
    AcDbGripData* at(int i) const { return mGrips[i]; }
    const TrfcGripAppData& dataOf(const std::wstring& name) const { return *static_cast<TrfcGripAppData*>(find(name)->appData()); }

private:
    AcDbGripDataPtrArray mGrips;
};
// One move of a drag.
void dragGrip(AcDbEntity& entity, const std::wstring& name, const AcGeVector3d& by);
