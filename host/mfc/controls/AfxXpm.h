// Small pictures written as text: "width height colours characters", one line a colour
// ("x c #RRGGBB" or "x c None"), one line a row.
#pragma once

#include <QImage>
#include <string>
#include <vector>

// A null image where the rows do not fit.
QImage afxReadXpm(const std::vector<std::string>& rows);
