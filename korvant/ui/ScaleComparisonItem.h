// One row of the comparison of a drawing's earlier scale list with its annotation scales.
#pragma once

#include <string>

inline constexpr const wchar_t* kScaleOfDrawing = L"beépített"; // the drawing holds it as an annotation scale
inline constexpr const wchar_t* kScaleOfList = L"Korvant";      // only the earlier list holds it

struct ScaleComparisonItem {
    virtual ~ScaleComparisonItem() = default;
    bool matchesCurrent = false;
    std::wstring scaleText; // "1 : 500"
    std::wstring name;      // of the annotation scale
    double paperUnits = 0.0;   // millimetres
    double drawingUnits = 0.0; // metres
    std::wstring source;       // kScaleOfDrawing or kScaleOfList
};
