// Where fonts are found, and by which file a font name of a drawing is shown.
#pragma once

#include <string>

// The file of a font named as drawings name it ("txt", "simplex.shx", "Arial", "isocp"): one of that
// name, a look-alike, or the drafting font. Empty only when the machine has no usable font.
std::string giFontFile(const std::wstring& name);
// The file that supplies characters which the other fonts lack; empty when absent.
std::string giFallbackFontFile();
