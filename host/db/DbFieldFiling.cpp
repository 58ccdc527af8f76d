#include "DbFieldFiling.h"

void dbWriteColor(AcDbDwgFiler& filer, const AcCmEntityColor& color) {
    filer.writeUInt8(static_cast<Adesk::UInt8>(color.colorMethod()));
    if (color.isByColor()) {
        filer.writeUInt8(color.red());
        filer.writeUInt8(color.green());
        filer.writeUInt8(color.blue());
    } else {
        filer.writeUInt16(color.colorIndex());
    }
}

AcCmEntityColor dbReadColor(AcDbDwgFiler& filer) {
    AcCmEntityColor color;
    Adesk::UInt8 method = 0, rgb[3] = {};
    Adesk::UInt16 index = 0;
    filer.readUInt8(&method);
    if (method == AcCmEntityColor::kByColor) {
        for (Adesk::UInt8& part : rgb)
            filer.readUInt8(&part);
        color.setRGB(rgb[0], rgb[1], rgb[2]);
        return color;
    }
    filer.readUInt16(&index);
    color.setColorIndex(index);
    if (color.colorMethod() != method)
        color.setColorMethod(static_cast<AcCmEntityColor::ColorMethod>(method));
    return color;
}
