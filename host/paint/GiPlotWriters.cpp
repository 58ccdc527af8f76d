// Writes PDF, SVG and PNG through Qt, without anything that would differ from one run to the next.
#include "GiPlotWriters.h"

#include "GiPlot.h"

#include <QBuffer>
#include <QFont>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

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
        draw(painter, kUnitsPerInch / kMmPerInch);
    }
    QByteArray pdf = buffer.data();
    for (const char* entry : {"/Title", "/Creator", "/Producer", "/CreationDate"})
        blankEntry(pdf, entry);
    return pdf;
}

QByteArray giWriteSvg(const GiPlotPage& page, const GiSheetDrawer& draw) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        const double perMm = kUnitsPerInch / kMmPerInch;
        const QSize size(static_cast<int>(std::lround(page.widthMm * perMm)), static_cast<int>(std::lround(page.heightMm * perMm)));
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setResolution(kUnitsPerInch);
        generator.setSize(size);
        generator.setViewBox(QRect(QPoint(0, 0), size));
        generator.setTitle(QString());
        generator.setDescription(QString());
        QPainter painter;
        if (!painter.begin(&generator))
            return {};
        QFont font(QStringLiteral("sans-serif")); // the writer names a font even where no text is
        font.setPixelSize(100);
        painter.setFont(font);
        draw(painter, perMm);
    }
    return buffer.data();
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
    {
        QPainter painter(&image);
        draw(painter, page.dpi / kMmPerInch);
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "PNG") ? buffer.data() : QByteArray();
}
