// Bitmaps of a display list, and the small preview that drawing files keep.
#include "GiPaint.h"
#include "GiPlot.h"

#include <QImage>
#include <QPainter>

#include <array>
#include <unordered_map>

namespace {
bool isDark(Adesk::UInt32 rgb) {
    return qGray(QRgb(rgb)) < 128;
}

// The palette's entry of least distance; black has none of its own, so entry 0 is black.
class ColourTable {
public:
    ColourTable() {
        for (int i = 1; i < 256; ++i)
            mRgb[static_cast<std::size_t>(i)] = acgiPaletteRgb(i);
    }
    const std::array<Adesk::UInt32, 256>& rgb() const { return mRgb; }
    Adesk::UInt8 nearest(Adesk::UInt32 rgb) {
        const auto [found, fresh] = mFound.try_emplace(rgb & 0xFFFFFF, Adesk::UInt8(0));
        if (fresh)
            found->second = search(rgb);
        return found->second;
    }

private:
    Adesk::UInt8 search(Adesk::UInt32 rgb) const {
        std::size_t best = 0;
        int least = 4 * 256 * 256;
        for (std::size_t i = 0; i < mRgb.size(); ++i) {
            const int r = qRed(rgb) - qRed(mRgb[i]), g = qGreen(rgb) - qGreen(mRgb[i]), b = qBlue(rgb) - qBlue(mRgb[i]);
            const int distance = r * r + g * g + b * b;
            if (distance < least)
                best = i, least = distance;
        }
        return static_cast<Adesk::UInt8>(best);
    }
    std::array<Adesk::UInt32, 256> mRgb{};
    std::unordered_map<Adesk::UInt32, Adesk::UInt8> mFound;
};

void put32(std::vector<Adesk::UInt8>& bytes, Adesk::UInt32 value) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<Adesk::UInt8>((value >> shift) & 0xFF));
}
void put16(std::vector<Adesk::UInt8>& bytes, unsigned value) {
    bytes.push_back(static_cast<Adesk::UInt8>(value & 0xFF));
    bytes.push_back(static_cast<Adesk::UInt8>((value >> 8) & 0xFF));
}
} // namespace

GiBitmap giRenderBitmap(const GiDisplayList& list, const GiStyleResolver& resolver, const GiPlotWindow& window,
                        int widthPx, int heightPx, Adesk::UInt32 backgroundRgb) {
    GiBitmap bitmap;
    if (widthPx <= 0 || heightPx <= 0)
        return bitmap;
    QImage image(widthPx, heightPx, QImage::Format_RGB32);
    if (image.isNull())
        return bitmap;
    image.fill(QColor(QRgb(backgroundRgb | 0xFF000000u)));
    {
        QPainter painter(&image);
        GiPaintView view = giFitView(window.lower, window.upper, 0.0, 0.0, widthPx, heightPx);
        view.right = widthPx, view.bottom = heightPx;
        view.foregroundRgb = isDark(backgroundRgb) ? 0xFFFFFF : 0x000000;
        paintDisplayList(painter, list, resolver, view);
    }
    bitmap.width = widthPx, bitmap.height = heightPx;
    for (int y = 0; y < heightPx; ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        bitmap.pixels.insert(bitmap.pixels.end(), row, row + widthPx);
    }
    return bitmap;
}

std::vector<Adesk::UInt8> giThumbnailDib(const GiDisplayList& list, const GiStyleResolver& resolver,
                                         const GiPlotWindow& window, int widthPx, int heightPx,
                                         Adesk::UInt32 backgroundRgb) {
    const GiBitmap bitmap = giRenderBitmap(list, resolver, window, widthPx, heightPx, backgroundRgb);
    std::vector<Adesk::UInt8> dib;
    if (bitmap.pixels.empty())
        return dib;
    const unsigned stride = (static_cast<unsigned>(widthPx) + 3u) / 4u * 4u;
    put32(dib, 40); // the size of the header
    put32(dib, static_cast<Adesk::UInt32>(widthPx));
    put32(dib, static_cast<Adesk::UInt32>(heightPx)); // positive: the bottom row first
    put16(dib, 1);                                    // planes
    put16(dib, 8);                                    // bits a pixel
    put32(dib, 0);                                    // no compression
    put32(dib, stride * static_cast<unsigned>(heightPx));
    put32(dib, 0);
    put32(dib, 0);
    put32(dib, 256);
    put32(dib, 0);
    ColourTable colours;
    for (const Adesk::UInt32 rgb : colours.rgb())
        put32(dib, rgb); // blue, green, red, 0
    for (int y = heightPx - 1; y >= 0; --y) {
        for (int x = 0; x < widthPx; ++x)
            dib.push_back(colours.nearest(bitmap.at(x, y)));
        dib.resize(dib.size() + stride - static_cast<unsigned>(widthPx));
    }
    return dib;
}
