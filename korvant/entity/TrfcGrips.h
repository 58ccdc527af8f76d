// Grips of the module's entities: their application data and their glyphs.
#pragma once

#include "AcDbEntity.h"

#include <string>

// Application data of a grip; handlers tell grips apart by the name, case-sensitively.
struct TrfcGripAppData {
    TrfcGripAppData(std::wstring gripName, const AcGePoint3d& at, const AcGeVector3d& direction, Adesk::Int32 chain = -1)
        : name(std::move(gripName)), point(at), vector(direction), index(chain) {}
    TrfcGripAppData(std::wstring gripName, const AcGeVector3d& direction) : name(std::move(gripName)), vector(direction) {}
    explicit TrfcGripAppData(std::wstring gripName) : name(std::move(gripName)) {}
    std::wstring name;
    AcGePoint3d point;   // where the grip stood when the grips were asked for
    AcGeVector3d vector; // direction of the glyph
    Adesk::Int32 index = -1; // of a chain or a stripe entry
};
// A grip with that name and data at that place, without hooks and flags; the caller's.
AcDbGripData* newGrip(const TrfcGripAppData& data, const AcGePoint3d& place);

// Glyphs. mode: 1 hover, 2 hot, else resting; size in drawing units.
void drawGripPlus(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size);
void drawGripCircle(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size);
void drawGripLeftTriangles(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size);
void drawGripArrowBent(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size, const AcGeVector3d& direction);
void drawGripArrow(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size, const AcGeVector3d& direction);
void drawGripBar(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size);
