// Individual signs: drawings that the user brings for one post alone. They live in the sign library, in
// the folder of individual signs, named after the post's coordinates.
#pragma once

#include "AcGe.h"

#include <string>

// Path below the sign library. One post has one such file: a second choice replaces the first.
std::wstring individualTablePath(const AcGePoint3d& postFoot);
// Copies the drawing into the library under that path. False, after a message, where the drawing
// cannot be read or the file cannot be written.
bool storeIndividualTable(const std::wstring& drawing, const std::wstring& relativePath);
