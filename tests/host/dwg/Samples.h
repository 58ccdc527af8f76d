// A small drawing with one of everything, and a custom entity as a loaded module would bring it.
#pragma once

#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"

// Draws a cross and a text; files a number, a text, a point and two references.
class SampleMarker : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(SampleMarker);
    Adesk::Int32 number = 7;
    std::wstring name = L"jelző";
    AcGePoint3d place{10.0, 20.0, 0.0};
    AcDbObjectId block, partner;
    std::vector<double> filler;
    // What dwgInFields found out about the objects it points to.
    std::wstring blockNameWhileReading;
    static Adesk::Int16 sVersion; // written first; a reader of a lower version answers eMakeMeProxy
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override;
};
// A second class with the same DXF name.
class SampleMarkerTwin : public SampleMarker {
public:
    ACRX_DECLARE_MEMBERS(SampleMarkerTwin);
};
// Registers both classes while it lives.
struct SampleModule {
    SampleModule();
    ~SampleModule();
};

// Appends to model space, closed.
AcDbObjectId sampleAppend(AcDbDatabase& db, AcDbEntity* entity, const wchar_t* block = L"*Model_Space");
AcDbObjectId sampleBlock(AcDbDatabase& db, const wchar_t* name);
// One of every modelled entity in model space; a block with an attribute; layers, extended data, an
// xrecord.
void sampleFill(AcDbDatabase& db);
