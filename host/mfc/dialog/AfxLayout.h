// Dialog units to pixels, and room for texts that are wider than their place in the template.
#pragma once

#include "resource/RcScript.h"

#include <QFont>
#include <QFontMetrics>
#include <QRect>
#include <QWidget>
#include <vector>

QFont afxDialogFont(const RcDialog& source);

// A quarter of the mean letter's width and an eighth of the letter's height are one unit.
class AfxUnits {
public:
    explicit AfxUnits(const QFont& font);
    int x(int units) const { return (units * mBaseX + 2) / 4; }
    int y(int units) const { return (units * mBaseY + 4) / 8; }
    QRect rect(const RcControl& control) const { return {x(control.x), y(control.y), x(control.w), y(control.h)}; }

private:
    int mBaseX, mBaseY;
};

// Widens labels, check boxes and option buttons into free room, and wraps what still does not fit.
void afxMakeTextsFit(QWidget& dialog, const std::vector<QWidget*>& controls);
