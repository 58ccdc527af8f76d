// Pictures of a display list: plots to PDF, SVG and PNG, bitmaps, previews for drawing files.
// One painter draws them all, so a plot shows what the screen shows. No display is needed.
#pragma once

#include "AcGiReceivers.h"

// The sheet. Colour index 7 is drawn black, or white when the background is dark.
struct GiPlotPage {
    double widthMm = 297.0, heightMm = 210.0;
    double marginMm = 10.0;
    Adesk::UInt32 backgroundRgb = 0xFFFFFF;
    bool darkBackground = false;
    double dpi = 200.0; // of a PNG
};
// The part of the drawing, in drawing units, seen from above.
struct GiPlotWindow {
    AcGePoint2d lower, upper;
};
// The box of the list as a window; a unit square about the origin when it is empty.
GiPlotWindow giPlotWindowOf(const GiDisplayList& list);

// Plots the window, centred between the margins and clipped to them. scale: paper mm a drawing unit,
// 0 fits the window to the sheet. filePath: a host path whose ending, .pdf, .svg or .png, chooses the
// format. The file is written beside its place and renamed, so a failure leaves the earlier file. The
// same list gives the same bytes. Layers that are not plottable are left out. On failure false, with
// one line in `error`.
bool giPlot(const GiDisplayList& list, const GiStyleResolver& resolver, const GiPlotWindow& window,
            const GiPlotPage& page, double scale, const std::wstring& filePath, std::wstring& error);

struct GiBitmap {
    int width = 0, height = 0;
    std::vector<Adesk::UInt32> pixels; // 0xFFRRGGBB, rows from the top
    Adesk::UInt32 at(int x, int y) const { return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)]; }
};
// The window fitted into the bitmap, as the screen shows it: all lines thin. On a dark background
// colour index 7 is white, on a light one black. Empty when a side is not positive.
GiBitmap giRenderBitmap(const GiDisplayList& list, const GiStyleResolver& resolver, const GiPlotWindow& window,
                        int widthPx, int heightPx, Adesk::UInt32 backgroundRgb);
// The same as an uncompressed bitmap with 256 colours: a BITMAPINFOHEADER, the colour table, the rows from
// the bottom, each padded to four bytes; the form in which drawing files keep their preview.
std::vector<Adesk::UInt8> giThumbnailDib(const GiDisplayList& list, const GiStyleResolver& resolver,
                                         const GiPlotWindow& window, int widthPx = 180, int heightPx = 120,
                                         Adesk::UInt32 backgroundRgb = 0xFFFFFF);
