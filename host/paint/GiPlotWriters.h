// The three file formats of a plot. Each draws by a function that knows nothing of the format.
#pragma once

#include "GiPaint.h"

#include <QByteArray>

#include <functional>

struct GiPlotPage;

// Draws the sheet; the argument is the painter's units a paper millimetre.
using GiSheetDrawer = std::function<void(QPainter& painter, double unitsPerMm)>;

// The whole file; empty when the format's writer failed.
QByteArray giWritePdf(const GiPlotPage& page, const GiSheetDrawer& draw);
QByteArray giWriteSvg(const GiPlotPage& page, const GiSheetDrawer& draw);
QByteArray giWritePng(const GiPlotPage& page, const GiSheetDrawer& draw);
