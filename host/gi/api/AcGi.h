// Drawing: what an object that draws itself sees. A drawable emits primitives into a
// context; the context's traits say how they look. Coordinates are world drawing units
// unless a model transform is pushed. Line weights are 1/100 mm; negative ones are by
// layer (-1), by block (-2), default (-3).
#pragma once

#include "AcCmColor.h"
#include "AcDbObjectId.h"
#include "AcGe.h"
#include "AcRxObject.h"

namespace AcDb {
enum LineWeight : short {
    kLnWt000 = 0, kLnWt005 = 5, kLnWt009 = 9, kLnWt013 = 13, kLnWt015 = 15, kLnWt018 = 18, kLnWt020 = 20,
    kLnWt025 = 25, kLnWt030 = 30, kLnWt035 = 35, kLnWt040 = 40, kLnWt050 = 50, kLnWt053 = 53, kLnWt060 = 60,
    kLnWt070 = 70, kLnWt080 = 80, kLnWt090 = 90, kLnWt100 = 100, kLnWt106 = 106, kLnWt120 = 120,
    kLnWt140 = 140, kLnWt158 = 158, kLnWt200 = 200, kLnWt211 = 211,
    kLnWtByLayer = -1, kLnWtByBlock = -2, kLnWtByLwDefault = -3
};
}
enum AcGiFillType { kAcGiFillAlways = 1, kAcGiFillNever = 2 };
enum AcGiRegenType { kAcGiRegenTypeInvalid = 0, kAcGiStandardDisplay = 2, kAcGiHideOrShadeCommand, kAcGiRenderCommand, kAcGiForExplode, kAcGiSaveWorldDrawForProxy, kAcGiForExtents };
enum AcGiArcType { kAcGiArcSimple = 0, kAcGiArcSector = 1, kAcGiArcChord = 2 };

class AcGiDrawable;

// The look of the primitives that follow. Setting is cheap; getters give what was set last.
class AcGiSubEntityTraits {
public:
    virtual ~AcGiSubEntityTraits() = default;
    virtual void setColor(Adesk::UInt16 index) = 0; // 0 by block, 256 by layer
    virtual void setTrueColor(const AcCmEntityColor& color) = 0;
    virtual void setLayer(AcDbObjectId layer) = 0;
    virtual void setLineType(AcDbObjectId linetype) = 0;
    virtual void setLineTypeScale(double scale) = 0;
    virtual void setLineWeight(AcDb::LineWeight weight) = 0;
    virtual void setFillType(AcGiFillType fill) = 0;
    virtual void setThickness(double) {} // extrusion along the normal; not seen in plan
    virtual Adesk::UInt16 color() const = 0;
    virtual AcCmEntityColor trueColor() const = 0;
    virtual AcDbObjectId layerId() const = 0;
    virtual AcDbObjectId lineTypeId() const = 0;
    virtual double lineTypeScale() const = 0;
    virtual AcDb::LineWeight lineWeight() const = 0;
    virtual AcGiFillType fillType() const = 0;
    virtual double thickness() const { return 0.0; }
};

// How a text is set: font file or family name, width factor, oblique angle in radians.
struct AcGiTextStyle {
    std::wstring fontName = L"txt";
    double height = 1.0;
    double widthFactor = 1.0;
    double obliqueAngle = 0.0;
    bool backward = false, upsideDown = false;
};

// One closed ring of a filled area; filled by the even-odd rule over all rings.
using AcGiFillLoops = std::vector<std::vector<AcGePoint3d>>;

// Every operation returns true when the drawing was broken off.
class AcGiGeometry {
public:
    virtual ~AcGiGeometry() = default;
    virtual bool polyline(Adesk::UInt32 count, const AcGePoint3d* points, const AcGeVector3d* normal = nullptr) = 0;
    // Filled, or an outline, as the fill type says. Closed by itself.
    virtual bool polygon(Adesk::UInt32 count, const AcGePoint3d* points) = 0;
    virtual bool circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) = 0;
    // sweep in radians, counter-clockwise about the normal, from startVector.
    virtual bool circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                             const AcGeVector3d& startVector, double sweep, AcGiArcType type = kAcGiArcSimple) = 0;
    // majorAxis carries the long radius; parameters in radians.
    virtual bool ellipticalArc(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                               double radiusRatio, double startParam, double endParam) = 0;
    // One area of several rings, filled whatever the fill type; points and holes by the even-odd rule.
    virtual bool filledLoops(const AcGiFillLoops& loops) = 0;
    // position: start of the base line; direction: base line; style.height: capitals in units.
    // Control codes in the text are expanded.
    virtual bool text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                      const ACHAR* text, const AcGiTextStyle& style) = 0;
    // Draws another drawable in place, beginning with its own traits; a block definition under the
    // pushed transform, whose by-block parts take the traits set now. A drawable that is being drawn
    // already is left out, so that a block that holds itself ends.
    virtual bool draw(AcGiDrawable* drawable) = 0;
    virtual bool pushModelTransform(const AcGeMatrix3d& matrix) = 0;
    virtual bool popModelTransform() = 0;
};
using AcGiWorldGeometry = AcGiGeometry;
using AcGiViewportGeometry = AcGiGeometry;

class AcGiCommonDraw {
public:
    virtual ~AcGiCommonDraw() = default;
    virtual AcGiSubEntityTraits& subEntityTraits() const = 0;
    virtual AcGiRegenType regenType() const = 0;
    virtual bool regenAbort() const = 0;
    virtual bool isDragging() const = 0;
    // Greatest distance between a curve and its chords, in drawing units.
    virtual double deviation() const = 0;
};
class AcGiWorldDraw : public AcGiCommonDraw {
public:
    virtual AcGiWorldGeometry& geometry() const = 0;
};
class AcGiViewportDraw : public AcGiCommonDraw {
public:
    virtual AcGiViewportGeometry& geometry() const = 0;
};

class AcGiDrawable : public AcRxObject {
public:
    // What setAttributes answers. An invisible drawable is not drawn at all.
    enum SetAttributesFlags : Adesk::UInt32 { kDrawableNone = 0, kDrawableIsAnEntity = 1, kDrawableIsInvisible = 16 };
    ACRX_DECLARE_MEMBERS(AcGiDrawable);
    // Draws; true when all was drawn. subWorldDraw is what a class overrides.
    bool worldDraw(AcGiWorldDraw* worldDraw) { return subWorldDraw(worldDraw); }
    void viewportDraw(AcGiViewportDraw* viewportDraw) { subViewportDraw(viewportDraw); }
    // Sets the traits with which the picture begins (an entity: its own properties) and tells
    // what kind of drawable this is. AcGiGeometry::draw calls it before worldDraw and restores the
    // traits afterwards; a direct worldDraw keeps the caller's traits.
    Adesk::UInt32 setAttributes(AcGiSubEntityTraits* traits) { return subSetAttributes(traits); }
    // The id of a drawable that stands in a database; null for others. A receiver may keep
    // the picture of a resident drawable for the length of one regeneration.
    virtual AcDbObjectId id() const { return AcDbObjectId::kNull; }
    // True for a drawable (a block definition) whose picture depends on nothing but itself, so
    // that one regeneration may draw it once and repeat the picture under other transforms
    // and by-block traits.
    virtual bool isShareable() const { return false; }

protected:
    virtual bool subWorldDraw(AcGiWorldDraw*) { return true; }
    virtual void subViewportDraw(AcGiViewportDraw*) {}
    virtual Adesk::UInt32 subSetAttributes(AcGiSubEntityTraits*) { return kDrawableNone; }
};
