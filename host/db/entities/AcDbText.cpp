// A line of text.
#include "AcDbEntities.h"

#include "AcDbDatabase.h"
#include "AcUtText.h"
#include "CurveMath.h"
#include "DbFields.h"
#include "Listing.h"
#include "OsnapMath.h"
#include "TextMetrics.h"

HOST_RX_DEFINE(AcDbText, AcDbEntity, L"TEXT")
DB_FILE_FIELDS(AcDbText, AcDbEntity);

template <class Self, class Archive> void AcDbText::fields(Self& self, Archive& archive) {
    archive(self.mPosition, self.mAlignmentPoint, self.mHeight, self.mRotation, self.mWidthFactor, self.mOblique);
    archive(self.mHorizontalMode, self.mVerticalMode, self.mThickness, self.mNormal, self.mText, self.mGeneration);
    archive.hardPointer(self.mStyle);
}

namespace {
constexpr Adesk::UInt8 kBackward = 2, kUpsideDown = 4;
constexpr double kSteepest = kHalfPi * 85.0 / 90.0; // an oblique text stays legible to the file format
} // namespace

// ---- content
ACHAR* AcDbText::textString() const {
    assertReadEnabled();
    return acutNewString(mText.c_str());
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
    assertWriteEnabled();
    mText = text != nullptr ? text : L"";
    return Acad::eOk;
}

AcDbObjectId AcDbText::textStyle() const {
    assertReadEnabled();
    return dbEffectiveTextStyle(mStyle);
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style) {
    assertWriteEnabled();
    mStyle = style;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::mirrorInX(bool on) {
    assertWriteEnabled();
    mGeneration = static_cast<Adesk::UInt8>(on ? mGeneration | kBackward : mGeneration & ~kBackward);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::mirrorInY(bool on) {
    assertWriteEnabled();
    mGeneration = static_cast<Adesk::UInt8>(on ? mGeneration | kUpsideDown : mGeneration & ~kUpsideDown);
    return Acad::eOk;
}

AcGiTextStyle AcDbText::giStyle() const {
    AcGiTextStyle style = dbTextStyle(mStyle);
    if (mHeight > 0.0)
        style.height = mHeight;
    style.widthFactor = mWidthFactor;
    style.obliqueAngle = mOblique;
    style.backward = isMirroredInX();
    style.upsideDown = isMirroredInY();
    return style;
}

// ---- alignment
namespace {
// The text between its two points: the height follows the width, or the width factor does.
void stretchBetween(AcDbText& text, const AcGiTextStyle& style) {
    const DbPlane plane(text.normal());
    const AcGeVector3d along = text.alignmentPoint() - text.position();
    const GiTextOutline outline = giTextBox(text.textStringConst(), style);
    const double ink = style.backward ? -outline.minPoint.x : outline.maxPoint.x;
    if (!(along.length() > 0.0) || !(ink > 0.0))
        return;
    const double factor = along.length() / ink;
    text.setRotation(plane.angleOf(along));
    if (text.horizontalMode() == AcDb::kTextAlign)
        text.setHeight(style.height * factor);
    else
        text.setWidthFactor(style.widthFactor * factor);
}
} // namespace

Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase* database) {
    assertWriteEnabled();
    if (isDefaultAlignment())
        return Acad::eOk;
    AcGiTextStyle style = giStyle();
    if (mStyle.isNull() && database != nullptr)
        style.fontName = dbTextStyle(mStyle, database).fontName;
    if (mHorizontalMode == AcDb::kTextAlign || mHorizontalMode == AcDb::kTextFit) {
        stretchBetween(*this, style);
        return Acad::eOk;
    }
    const AcGePoint2d anchor = dbAnchorOf(mText, style, mHorizontalMode, mVerticalMode);
    const DbPlane plane(mNormal);
    mPosition = mAlignmentPoint - plane.direction(mRotation) * anchor.x - plane.direction(mRotation + kHalfPi) * anchor.y;
    return Acad::eOk;
}

// ---- picture
bool AcDbText::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    if (mText.empty())
        return true;
    const DbPlane plane(mNormal);
    return !worldDraw->geometry().text(mPosition, plane.normal, plane.direction(mRotation), mText.c_str(), giStyle());
}

namespace {
// A set text as the images of a unit along its base line and of a unit up its strokes.
struct TextFrame {
    AcGeVector3d along, up;
};

struct TextForm {
    double height = 0.0, widthFactor = 1.0, oblique = 0.0, rotation = 0.0;
    bool backward = false, upsideDown = false;
};

TextFrame frameOf(const TextForm& form, const DbPlane& plane) {
    const AcGeVector3d base = plane.direction(form.rotation), side = plane.direction(form.rotation + kHalfPi);
    const double turned = form.backward ? -1.0 : 1.0, lift = form.upsideDown ? -1.0 : 1.0;
    return {base * (turned * form.height * form.widthFactor),
            base * (turned * form.height * std::tan(form.oblique)) + side * (lift * form.height)};
}

// The form that sets the frame in the plane; `before` says how the text was turned, which is kept where it can be.
TextForm formOf(const TextFrame& frame, const DbPlane& plane, const TextForm& before, bool reversed, const AcGeVector3d& oldBase) {
    TextForm form = before;
    if (reversed) { // mirrored letters: backward or upside down, whichever leaves the base line nearer to its old way
        const AcGeVector3d kept = before.backward ? -frame.along : frame.along;
        (kept.dotProduct(oldBase) >= 0.0 ? form.upsideDown : form.backward) ^= true;
    }
    const double turned = form.backward ? -1.0 : 1.0;
    const AcGeVector3d base = frame.along.normal() * turned, side = plane.normal.crossProduct(base);
    form.height = std::abs(frame.up.dotProduct(side));
    form.rotation = plane.angleOf(base);
    form.widthFactor = frame.along.length() / form.height;
    const double slant = std::atan2(frame.up.dotProduct(base) * turned, form.height);
    form.oblique = slant < -kSteepest ? -kSteepest : slant > kSteepest ? kSteepest : std::abs(slant) < 1e-14 ? 0.0 : slant;
    return form;
}
} // namespace

Acad::ErrorStatus AcDbText::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    if (map.singular)
        return Acad::eCannotScaleNonUniformly;
    const DbPlane plane(mNormal), image(map.normal);
    // A height that the style gives is carried as if it were one: only ratios matter then.
    const TextForm before{mHeight > 0.0 ? mHeight : 1.0, mWidthFactor > 0.0 ? mWidthFactor : 1.0, mOblique, mRotation,
                          isMirroredInX(), isMirroredInY()};
    const TextFrame frame = frameOf(before, plane);
    const TextForm after =
        formOf({matrix * frame.along, matrix * frame.up}, image, before, map.reversed, plane.direction(mRotation));
    mRotation = after.rotation;
    mOblique = after.oblique;
    mWidthFactor = map.conformal ? mWidthFactor : after.widthFactor;
    mHeight = mHeight > 0.0 ? after.height : 0.0;
    mirrorInX(after.backward);
    mirrorInY(after.upsideDown);
    mPosition.transformBy(matrix);
    mAlignmentPoint.transformBy(matrix);
    mThickness *= map.scale;
    mNormal = map.normal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                              const AcGePoint3d& last, const AcGeMatrix3d&, AcGePoint3dArray& points,
                                              AcIntArray&) const {
    assertReadEnabled();
    dbSnapPoint({mode, pick, last, points}, AcDb::kOsModeIns, isDefaultAlignment() ? mPosition : mAlignmentPoint);
    return Acad::eOk;
}

// The position and, where the text has one, the alignment point; both move the whole text.
Acad::ErrorStatus AcDbText::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    points.append(mPosition);
    if (!isDefaultAlignment())
        points.append(mAlignmentPoint);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.isEmpty())
        return Acad::eOk;
    const bool stretched = mHorizontalMode == AcDb::kTextAlign || mHorizontalMode == AcDb::kTextFit;
    if (!stretched || indices.contains(0))
        mPosition += offset;
    if (!stretched || indices.contains(1))
        mAlignmentPoint += offset;
    return stretched ? adjustAlignment() : Acad::eOk;
}

void AcDbText::subList() const {
    AcDbEntity::subList();
    dbListText(L"text", mText.c_str());
    dbListPoint(L"start point", mPosition);
    if (!isDefaultAlignment())
        dbListPoint(L"alignment point", mAlignmentPoint);
    dbListNumber(L"height", mHeight);
    dbListAngle(L"rotation angle", mRotation);
    dbListNumber(L"width scale factor", mWidthFactor);
    dbListAngle(L"obliquing angle", mOblique);
    dbListNormal(mNormal);
}
