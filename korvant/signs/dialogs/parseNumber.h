// The number that a user typed; a comma is as good as a point.
#pragma once

#include <string>

// False, with the number untouched, for anything that is no plain decimal number.
bool parseNumber(const std::wstring& typed, double& number);
