// Text styles as drawings of texts need them, and where a text's alignment points lie on its outline.
#pragma once

#include "AcDbEntities.h"

// The style that a text with this id is set in: the id itself, or the database's Standard (the working
// database's where none is given); null without either.
AcDbObjectId dbEffectiveTextStyle(AcDbObjectId style, const AcDbDatabase* database = nullptr);
// Font and height of the style; the default font where the style cannot be read.
AcGiTextStyle dbTextStyle(AcDbObjectId style, const AcDbDatabase* database = nullptr);

// The point of a set text, base line along X from the origin, that an alignment mode puts on the
// alignment point.
AcGePoint2d dbAnchorOf(const std::wstring& text, const AcGiTextStyle& style, AcDb::TextHorzMode horizontal,
                       AcDb::TextVertMode vertical);
