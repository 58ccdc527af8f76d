// Proxy graphics: the picture of an object as a list of chunks, which programs draw that do not know the
// object's class. World coordinates.
#pragma once

#include "DbObjectAccess.h"
#include "DwgText.h"

// Records what an entity draws.
std::vector<Adesk::UInt8> dwgRecordProxyGraphics(AcDbEntity& entity, const DwgTextCodec& text);
// Draws chunks; unknown ones are passed over, damaged ones end the picture.
void dwgPlayProxyGraphics(const std::vector<Adesk::UInt8>& graphics, AcDbDatabase* database, AcGiWorldDraw& worldDraw);
