// An attribute definition of a block: the text that its references fill in.
#include "AcDbEntities.h"

#include "DbFields.h"
#include "Listing.h"

HOST_RX_DEFINE(AcDbAttributeDefinition, AcDbText, L"ATTDEF")
DB_FILE_FIELDS(AcDbAttributeDefinition, AcDbText);

template <class Self, class Archive> void AcDbAttributeDefinition::fields(Self& self, Archive& archive) {
    archive(self.mTag, self.mPrompt, self.mFlags, self.mFieldLength, self.mMText);
}

Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag) {
    assertWriteEnabled();
    if (tag == nullptr)
        return Acad::eNullPtr;
    mTag = tag;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt) {
    assertWriteEnabled();
    mPrompt = prompt != nullptr ? prompt : L"";
    return Acad::eOk;
}

namespace {
Adesk::UInt8 withFlag(Adesk::UInt8 flags, int flag, bool on) {
    return static_cast<Adesk::UInt8>(on ? flags | flag : flags & ~flag);
}
} // namespace

Acad::ErrorStatus AcDbAttributeDefinition::setInvisible(bool on) {
    assertWriteEnabled();
    mFlags = withFlag(mFlags, 1, on);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttributeDefinition::setConstant(bool on) {
    assertWriteEnabled();
    mFlags = withFlag(mFlags, 2, on);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttributeDefinition::setVerifiable(bool on) {
    assertWriteEnabled();
    mFlags = withFlag(mFlags, 4, on);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttributeDefinition::setPreset(bool on) {
    assertWriteEnabled();
    mFlags = withFlag(mFlags, 8, on);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttributeDefinition::convertIntoMTextAttributeDefinition(bool on) {
    assertWriteEnabled();
    mMText = on;
    return Acad::eOk;
}

// Standing in the drawing by itself it shows its tag. A block leaves it out.
bool AcDbAttributeDefinition::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    if (mTag.empty())
        return true;
    const AcGeVector3d up = AcGeMatrix3d::planeToWorld(normal()) * AcGeVector3d(0.0, 0.0, 1.0);
    const AcGeVector3d along =
        AcGeMatrix3d::planeToWorld(normal()) * AcGeVector3d(std::cos(rotation()), std::sin(rotation()), 0.0);
    return !worldDraw->geometry().text(position(), up, along, mTag.c_str(), giStyle());
}

Acad::ErrorStatus AcDbAttributeDefinition::subTransformBy(const AcGeMatrix3d& matrix) {
    return AcDbText::subTransformBy(matrix);
}
Acad::ErrorStatus AcDbAttributeDefinition::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t marker,
                                                             const AcGePoint3d& pick, const AcGePoint3d& last,
                                                             const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                                             AcIntArray& geomIds) const {
    return AcDbText::subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
}
Acad::ErrorStatus AcDbAttributeDefinition::subGetGripPoints(AcGePoint3dArray& points, AcIntArray& modes,
                                                            AcIntArray& geomIds) const {
    return AcDbText::subGetGripPoints(points, modes, geomIds);
}
Acad::ErrorStatus AcDbAttributeDefinition::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    return AcDbText::subMoveGripPointsAt(indices, offset);
}

void AcDbAttributeDefinition::subList() const {
    AcDbText::subList();
    dbListText(L"tag", mTag.c_str());
    dbListText(L"prompt", mPrompt.c_str());
    const wchar_t* const names[] = {L"Invisible", L"Constant", L"Verify", L"Preset"};
    for (int i = 0; i < 4; ++i)
        if ((mFlags & (1 << i)) != 0)
            dbListText(L"flags", names[i]);
}
