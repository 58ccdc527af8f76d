// The written note beside a foot: a text on a shelf at the anchor, tied to the foot's rim by a leader. The
// text stands on the shelf along the direction of what it notes, on the side on which the anchor lies.
// Lengths in drawing units, angles in radians.
#pragma once

#include "AcDbEntity.h"
#include "TrfcPostText.h"

#include <memory>

class AcDbText;

// What a note hangs on.
struct TrfcNoteFrame {
    AcGePoint3d foot;  // middle of the foot
    AcGeVector3d up;   // direction of the post, or of the track; any length but zero
    double radius;     // of the foot
    double textHeight;
    double rotation;   // of the text
};

// The vector points to the right of the direction, as seen along it.
bool isRightOf(const AcGeVector3d& direction, const AcGeVector3d& vector);

class TrfcNote {
public:
    AcGePoint3d anchor;
    TrfcPostText text;

    bool isEmpty() const { return text.text.empty(); } // nothing is drawn then
    bool isRight(const TrfcNoteFrame& frame) const { return isRightOf(frame.up, anchor - frame.foot); }
    double width(const TrfcNoteFrame& frame) const;           // of the text
    AcGeVector3d shelf(const TrfcNoteFrame& frame) const;     // from the anchor, away from the post
    AcGePoint3d leaderStart(const TrfcNoteFrame& frame) const; // on the rim, towards the anchor
    AcGePoint3d textPosition(const TrfcNoteFrame& frame) const;

    // A point inside the foot takes the anchor to the rim.
    void setAnchor(const TrfcNoteFrame& frame, const AcGePoint3d& point);
    // To its computed place in that direction from the foot.
    void resetAnchor(const TrfcNoteFrame& frame, const AcGeVector3d& direction);

    // The caller has saved the traits; they are restored at the end.
    void draw(AcGiWorldDraw* worldDraw, const TrfcNoteFrame& frame) const;
    // Leader, shelf and text, the lines with the owner's properties.
    void explode(const AcDbEntity& owner, const TrfcNoteFrame& frame, AcDbVoidPtrArray& entities) const;

private:
    std::unique_ptr<AcDbText> newText(const TrfcNoteFrame& frame, const AcGePoint3d& position, double rotation) const;
    AcGePoint3d textPosition(const TrfcNoteFrame& frame, const AcGeVector3d& shelf) const;
};
