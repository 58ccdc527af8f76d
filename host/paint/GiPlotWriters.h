// The three file formats of a plot. Each draws by a function that knows nothing of the format.
#pragma once

#include <QByteArray>

#include <functional>

class GiCanvas;
struct GiPlotPage;

// Draws the sheet; the argument is the canvas's units a paper millimetre.
using GiSheetDrawer = std::function<void(GiCanvas& canvas, double unitsPerMm)>;

// The whole file; empty when the format's writer failed.
QByteArray giWritePdf(const GiPlotPage& page, const GiSheetDrawer& draw);
QByteArray giWriteSvg(const GiPlotPage& page, const GiSheetDrawer& draw);
QByteArray giWritePng(const GiPlotPage& page, const GiSheetDrawer& draw);
