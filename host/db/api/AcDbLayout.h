// Objects of a complete drawing that the program itself makes little use of: layouts with their
// plot settings, multiline styles and placeholders of plot styles.
#pragma once

#include "AcDbObject.h"

// A layout. Lengths of the paper in millimetres, of the layout in drawing units.
class AcDbLayout : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayout);
    // In the order of the file's record.
    struct Data {
        // plot settings
        std::wstring pageSetupName, printerName;
        Adesk::UInt16 plotFlags = 688;
        double leftMargin = 7.5, bottomMargin = 20.0, rightMargin = 7.5, topMargin = 20.0;
        double paperWidth = 210.0, paperHeight = 297.0;
        std::wstring paperSizeName = L"ISO_A4_(210.00_x_297.00_MM)";
        AcGePoint2d plotOrigin;
        Adesk::Int16 paperUnits = 1;    // 0 inches, 1 millimetres, 2 pixels
        Adesk::Int16 plotRotation = 0;  // quarter turns
        Adesk::Int16 plotType = 5;      // 0 display, 1 extents, 2 limits, 3 view, 4 window, 5 layout
        AcGePoint2d windowMin, windowMax;
        std::wstring plotViewName;
        double realWorldUnits = 1.0, drawingUnits = 1.0;
        std::wstring styleSheet;
        Adesk::Int16 scaleType = 16;    // 0 scaled to fit, 16 is 1:1
        double scaleFactor = 1.0;
        AcGePoint2d paperImageOrigin;
        // layout
        std::wstring name;
        Adesk::Int32 tabOrder = 0;
        Adesk::UInt16 layoutFlags = 1;
        AcGePoint3d ucsOrigin;
        AcGePoint2d limitsMin, limitsMax{420.0, 297.0};
        AcGePoint3d insertionPoint;
        AcGeVector3d ucsXAxis{1.0, 0.0, 0.0}, ucsYAxis{0.0, 1.0, 0.0};
        double elevation = 0.0;
        Adesk::Int16 orthographicView = 0;
        AcGePoint3d extentsMin{1.0e20, 1.0e20, 1.0e20}, extentsMax{-1.0e20, -1.0e20, -1.0e20};
        AcDbObjectId block;             // soft pointer to the block record
        AcDbObjectId activeViewport;    // soft pointer
        AcDbObjectId baseUcs, namedUcs; // hard pointers
    };
    std::wstring layoutName() const { return mLayout.name; }
    AcDbObjectId blockTableRecordId() const { return mLayout.block; }
    const Data& layoutData() const { return mLayout; }
    Acad::ErrorStatus setLayoutData(const Data& data);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    Data mLayout;
};

// The lines a multiline is drawn of. Angles in radians.
class AcDbMlineStyle : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbMlineStyle);
    struct Line {
        double offset = 0.0;
        Adesk::Int16 color = 256;
        Adesk::Int16 linetypeIndex = 32767; // by layer
    };
    struct Data {
        std::wstring name, description;
        Adesk::Int16 flags = 0;
        Adesk::Int16 fillColor = 256;
        double startAngle = kHalfPi, endAngle = kHalfPi;
        std::vector<Line> lines;
    };
    const Data& styleData() const { return mStyle; }
    Acad::ErrorStatus setStyleData(const Data& data);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    Data mStyle;
};

// Holds a place in a dictionary and nothing else.
class AcDbPlaceHolder : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbPlaceHolder);
};
