// The symbol that a state lays across a block. The block holds it by value; it is in no database, and
// while it is off it is neither drawn nor filed.
#pragma once

#include "AcDbBlockReference.h"

class TrfcOverlay {
public:
    bool isOn() const { return mIsOn; }
    const AcDbBlockReference& reference() const { return mReference; }
    void turnOn(AcDbObjectId symbol); // its owner fits it then
    void turnOff() { mIsOn = false; }
    // The symbol has a unit extent, so width and height are its scale factors; a negative width is that of a
    // mirrored block. Nothing while it is off.
    void fit(const AcGePoint3d& position, double width, double height, double rotation);
    void draw(AcGiWorldDraw* worldDraw); // the traits are as before afterwards
    void explode(AcDbVoidPtrArray& entities) const;
    void transformBy(const AcGeMatrix3d& matrix);
    // Whether it is on, and if so the reference.
    void dwgOutFields(AcDbDwgFiler* filer) const;
    void dwgInFields(AcDbDwgFiler* filer);

private:
    AcDbBlockReference mReference;
    bool mIsOn = false;
};
