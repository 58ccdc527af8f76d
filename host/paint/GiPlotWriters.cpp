// Writes PDF and PNG through Qt and SVG by a canvas of our own, without anything that would differ from one run to the next.
#include "GiPlotWriters.h"

#include "GiPainterCanvas.h"
#include "GiPlot.h"
#include "GiSvgCanvas.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cmath>

namespace {
constexpr int kUnitsPerInch = 2540; // a hundred a millimetre
constexpr double kMmPerInch = 25.4;
constexpr double kMostPixels = 4.0e8; // of a PNG: 1.6 GB of memory

// Overwrites the value of a text entry in the information part with blanks: the file keeps its
// length, so that the cross-reference table holds.
void blankEntry(QByteArray& pdf, const QByteArray& name) {
    const qsizetype key = pdf.indexOf(name + " (");
    if (key < 0)
        return;
    const qsizetype start = key + name.size() + 2;
    qsizetype end = start;
    while (end < pdf.size() && pdf[end] != ')')
        end += pdf[end] == '\\' ? 2 : 1;
    for (qsizetype i = key; i <= end && i < pdf.size(); ++i)
        pdf[i] = ' ';
}

int pixelsOf(double mm, double dpi) {
    return std::max(1, static_cast<int>(std::lround(mm / kMmPerInch * dpi)));
}
} // namespace

QByteArray giWritePdf(const GiPlotPage& page, const GiSheetDrawer& draw) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setPageSize(QPageSize(QSizeF(page.widthMm, page.heightMm), QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF());
        writer.setResolution(kUnitsPerInch);
        QPainter painter;
        if (!painter.begin(&writer))
            return {};
        GiPainterCanvas canvas(painter, true);
        draw(canvas, kUnitsPerInch / kMmPerInch);
    }
    QByteArray pdf = buffer.data();
    for (const char* entry : {"/Title", "/Creator", "/Producer", "/CreationDate"})
        blankEntry(pdf, entry);
    return pdf;
}

QByteArray giWriteSvg(const GiPlotPage& page, const GiSheetDrawer& draw) {
    const double perMm = kUnitsPerInch / kMmPerInch;
    GiSvgCanvas canvas(page.widthMm, page.heightMm, perMm);
    draw(canvas, perMm);
    return QByteArray::fromStdString(canvas.finish());
}

QByteArray giWritePng(const GiPlotPage& page, const GiSheetDrawer& draw) {
    const int width = pixelsOf(page.widthMm, page.dpi), height = pixelsOf(page.heightMm, page.dpi);
    if (static_cast<double>(width) * height > kMostPixels)
        return {};
    QImage image(width, height, QImage::Format_RGB32);
    if (image.isNull())
        return {};
    const int dotsPerMetre = static_cast<int>(std::lround(page.dpi / kMmPerInch * 1000.0));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    image.fill(QColor(QRgb(page.backgroundRgb | 0xFF000000u))); // the sheet may end within the last pixels
    {
        QPainter painter(&image);
        GiPainterCanvas canvas(painter);
        draw(canvas, page.dpi / kMmPerInch);
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "PNG") ? buffer.data() : QByteArray();
}
