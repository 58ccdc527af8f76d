// The receivers of a drawing, all with one implementation of traits:
// - the display list (screen, plot, preview, hit test),
// - the extents measurer,
// - the recorder, which lists primitives as text for tests and DRAWLIST.
#pragma once

#include "AcGi.h"
#include "GiPoints.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

// The traits as a primitive carries them, unresolved.
struct GiTraits {
    AcCmEntityColor color;
    AcDbObjectId layer;
    AcDbObjectId lineType; // null: by layer
    double lineTypeScale = 1.0;
    AcDb::LineWeight lineWeight = AcDb::kLnWtByLayer;
    AcGiFillType fill = kAcGiFillNever;
    double thickness = 0.0;
};

struct GiPolyline { GiPoints points; };
struct GiPolygon { GiPoints points; };
struct GiArc { // circle, arc or elliptic arc: centre + major*cos(t) + minor*sin(t)
    AcGePoint3d center;
    AcGeVector3d major, minor;
    double start = 0.0, end = kTwoPi; // radians, end > start; a full turn is closed
    AcGiArcType type = kAcGiArcSimple;
    AcGePoint3d at(double t) const { return center + major * std::cos(t) + minor * std::sin(t); }
    bool isFullTurn() const { return end - start >= kTwoPi - 1.0e-12; }
};
struct GiFill { AcGiFillLoops loops; };
struct GiTextContent {
    std::wstring text;
    AcGiTextStyle style;
};
// A text point (x, y) in the units of the style's height lies at position + xAxis*x + yAxis*y, so a
// text survives any affine transform.
struct GiText {
    AcGePoint3d position;
    AcGeVector3d xAxis, yAxis;
    std::shared_ptr<const GiTextContent> content; // never null
    const std::wstring& text() const { return content->text; }
    const AcGiTextStyle& style() const { return content->style; }
    AcGeVector3d direction() const { return xAxis.normal(); }
    AcGeVector3d normal() const { return xAxis.crossProduct(yAxis).normal(); }
    double height() const { return content->style.height * yAxis.length(); }
};
class GiDisplayList;
// A shared picture under a transform; primitives in it that say by block take the traits of the
// instance's primitive, and those on layer "0" its layer.
struct GiInstance {
    std::shared_ptr<const GiDisplayList> picture; // never null
    double rows[3][4];                            // the affine part of the transform
    GiInstance(std::shared_ptr<const GiDisplayList> shared, const AcGeMatrix3d& matrix);
    AcGeMatrix3d transform() const;
};
struct GiPrimitive {
    std::variant<GiPolyline, GiPolygon, GiArc, GiFill, GiText, GiInstance> shape;
    GiTraits traits;
    AcDbObjectId owner; // the top-level drawable that drew it, for hit tests; null inside a shared picture
};
class GiDisplayList {
public:
    std::vector<GiPrimitive> primitives;
};

// Flat primitives after instances, curves and texts have been resolved: what a painter draws.
struct GiStyle {
    Adesk::UInt32 rgb = 0xFFFFFF;
    bool foreground = false;        // index 7: white on dark, black on paper
    bool isText = false;            // a letter: its outline is exact, no painter may fatten it
    int lineWeight = 25;            // 1/100 mm, resolved
    std::vector<double> dashes;     // drawing units, + dash, - gap, 0 dot; empty is continuous
    AcDbObjectId owner;
};
class GiPainterSink {
public:
    virtual ~GiPainterSink() = default;
    virtual void stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle& style) = 0;
    virtual void fill(const AcGiFillLoops& loops, const GiStyle& style) = 0; // even-odd
};
// Answers what a layer or line type looks like; supplied by the database.
class GiStyleResolver {
public:
    virtual ~GiStyleResolver() = default;
    virtual bool isVisible(AcDbObjectId layer) const = 0; // on and thawed
    // A block reference on a frozen layer hides all its parts; on a layer that is merely off it hides
    // only those that lie on layer "0".
    virtual bool isFrozen(AcDbObjectId /*layer*/) const { return false; }
    virtual bool isPlottable(AcDbObjectId layer) const { return isVisible(layer); }
    virtual bool isLayerZero(AcDbObjectId layer) const = 0;
    virtual AcCmEntityColor layerColor(AcDbObjectId layer) const = 0;
    virtual AcDb::LineWeight layerLineWeight(AcDbObjectId layer) const = 0;
    virtual AcDbObjectId layerLineType(AcDbObjectId layer) const = 0;
    virtual bool isByLayerLineType(AcDbObjectId lineType) const = 0;
    virtual bool isByBlockLineType(AcDbObjectId lineType) const = 0;
    virtual std::vector<double> dashes(AcDbObjectId lineType) const = 0; // at scale 1
    virtual double lineTypeScale() const { return 1.0; }                 // the drawing's LTSCALE
    virtual int defaultLineWeight() const { return 25; }
};
// Walks a display list and hands resolved, flattened primitives to the sink, in order.
// deviation: greatest chord error in drawing units. window: what lies outside it as a whole may be
// left out; null hands over everything.
void giFlatten(const GiDisplayList& list, const GiStyleResolver& resolver, double deviation, GiPainterSink& sink,
               const AcDbExtents* window = nullptr);

// Builds display lists. One builder is one regeneration: shareable drawables are drawn once
// in its life and repeated as instances; the builder must not outlive that regeneration.
class GiDisplayListBuilder {
public:
    explicit GiDisplayListBuilder(bool dragging = false, AcGiRegenType type = kAcGiStandardDisplay, double deviation = 0.01);
    ~GiDisplayListBuilder();
    AcGiWorldDraw& worldDraw();
    AcGiViewportDraw& viewportDraw(); // same list, for grip glyphs and jigs
    // Draws a top-level drawable with its own traits, recording its id as owner. Nothing is drawn of
    // one that is invisible.
    void add(AcGiDrawable& drawable);
    // The same with the caller's starting traits in place of its own.
    void add(AcGiDrawable& drawable, const GiTraits& start);
    GiDisplayList& list();
    GiDisplayList take();

private:
    struct Impl;
    std::unique_ptr<Impl> mImpl;
};

// Exact extents of what the drawable draws: arcs, elliptic arcs and text outlines exactly.
// accept: drawables refused by it are left out (attribute definitions, for a block's extents).
AcDbExtents giExtentsOf(AcGiDrawable& drawable, const std::function<bool(AcGiDrawable&)>& accept = {});
AcDbExtents giExtentsOf(const GiDisplayList& list);

// Hit tests, seen from above: the owners whose visible picture comes within the aperture of the point,
// in drawing order (the last lies on top), each once. Areas are hit in their inside too.
std::vector<AcDbObjectId> giOwnersAt(const GiDisplayList& list, const GiStyleResolver& resolver, const AcGePoint3d& point,
                                     double aperture);
// Those whose visible picture lies wholly within the window, or, crossing, touches it.
std::vector<AcDbObjectId> giOwnersInWindow(const GiDisplayList& list, const GiStyleResolver& resolver, const AcGePoint3d& corner,
                                           const AcGePoint3d& opposite, bool crossing);

// One line a primitive with its traits, indented under instances. Layer and line type names
// come from the namer; where it gives none, a layer reads "0" and a line type "ByLayer". Numbers are
// rounded to nine decimals and written as short as they come; angles are degrees.
using GiNamer = std::function<std::wstring(AcDbObjectId)>;
std::vector<std::wstring> giRecord(AcGiDrawable& drawable, const GiNamer& namer, bool dragging = false);
std::vector<std::wstring> giRecord(AcGiDrawable& drawable, const GiNamer& namer, bool dragging, const GiTraits& start);
std::vector<std::wstring> giRecord(const GiDisplayList& list, const GiNamer& namer);

// ---- text outlines -------------------------------------------------------------------
// Set text as filled outlines on the plane z = 0, base line along +X from the origin, at the
// style's height. Fonts come from FreeType; a missing font is replaced by the packaged one.
struct GiTextOutline {
    AcGiFillLoops loops;   // one or more rings a glyph, flattened to the deviation
    AcGePoint2d minPoint, maxPoint; // exact ink box; both zero where nothing is drawn
    double advance = 0.0;  // pen position after the last character; negative for backward text
};
// deviation 0 takes 1/200 of the height. Control codes are expanded.
GiTextOutline giTextOutline(const std::wstring& text, const AcGiTextStyle& style, double deviation = 0.0);
// The same without the rings, for callers that only measure.
GiTextOutline giTextBox(const std::wstring& text, const AcGiTextStyle& style);
// Control codes: %%d degree, %%p plus-minus, %%c diameter, %%nnn a character, %%u %%o dropped.
std::wstring giExpandControlCodes(const std::wstring& text);

// Closed polygons of a set of loops with bulges, areas and point tests.
double giLoopArea(const std::vector<AcGePoint3d>& loop); // signed, counter-clockwise positive
bool giPointInLoops(const AcGePoint3d& p, const AcGiFillLoops& loops);
