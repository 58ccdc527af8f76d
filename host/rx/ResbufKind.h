// Which member of a result buffer's union an item of a given type uses.
#pragma once

#include "adsdef.h"

enum class RbKind { kUnknown, kNothing, kText, kReal, kPoint, kShort, kLong, kInt64, kBinary, kName };
// Group codes of drawing files and the RT types of the command-line functions.
RbKind rbKindOf(int type);
// A text item of its own, such as for building chains in host code.
resbuf* rbNewText(int type, const ACHAR* text);
