// A length of a scale as its windows show it: "0.5", not "0.500000".
#pragma once

#include <string>

std::wstring scaleNumber(double units);
