// Device-independent bitmaps in memory, as previews of drawings hold them.
#pragma once

#include <QImage>
#include <string_view>

// A header of 40 bytes or more, the palette, the rows; a file header before it is allowed. A null
// image for junk.
QImage afxReadDib(std::string_view bytes);
