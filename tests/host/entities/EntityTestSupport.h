// What the tests of the built-in entities share: a drawing, listings, pictures under transforms.
#pragma once

#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

// A new drawing that is the working one while the test runs.
class DrawingTest : public testing::Test {
protected:
    DrawingTest();
    ~DrawingTest() override;
    // A block definition of these entities, which it owns then; closed.
    AcDbObjectId addBlock(const wchar_t* name, std::vector<AcDbEntity*> entities, const AcGePoint3d& origin = {});
    // Appends to model space and closes; the entity stays usable through open().
    AcDbObjectId addToModel(AcDbEntity* entity);
    AcDbDatabase db;

private:
    AcDbDatabase* mBefore;
};

// Entities that an explode handed over.
class Exploded {
public:
    explicit Exploded(const AcDbEntity& entity);
    Acad::ErrorStatus status;
    std::size_t size() const { return mPieces.size(); }
    template <class T> T* as(std::size_t i) const { return i < mPieces.size() ? T::cast(mPieces[i].get()) : nullptr; }
    AcDbEntity& operator[](std::size_t i) const { return *mPieces.at(i); }

private:
    std::vector<std::unique_ptr<AcDbEntity>> mPieces;
};

// The filing calls of an object as text.
std::vector<std::wstring> filed(const AcDbObject& object);
// The primitives an entity draws.
std::vector<std::wstring> drawn(AcDbEntity& entity);
GiDisplayList pictureOf(AcGiDrawable& drawable, double deviation = 0.01);
// Extents of what is drawn under a matrix.
AcDbExtents extentsUnder(const AcGeMatrix3d& matrix, AcGiDrawable& drawable);
AcDbExtents extentsOf(const AcDbEntity& entity);

// True when two pictures cannot be told apart by their boxes in many directions; a message otherwise.
testing::AssertionResult looksAlike(AcGiDrawable& a, const AcGeMatrix3d& ofA, AcGiDrawable& b, const AcGeMatrix3d& ofB,
                                    double tolerance);

void expectPoint(const AcGePoint3d& actual, const AcGePoint3d& expected, double tolerance = 1e-9);
void expectBox(const AcDbExtents& box, const AcGePoint3d& lower, const AcGePoint3d& upper, double tolerance = 1e-9);
