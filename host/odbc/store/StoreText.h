// Text between the stores (UTF-8) and the files (UTF-16, little-endian in both formats).
#pragma once

#include <string>
#include <string_view>

namespace odbc {

// Appends the text as UTF-16; false, with `out` as it was, where the bytes are not strict UTF-8
// (overlong forms, surrogates, code points behind U+10FFFF).
bool appendUtf16(std::string_view utf8, std::u16string& out);
// Appends UTF-16 as UTF-8; a lone surrogate becomes U+FFFD.
void appendUtf8(std::u16string_view utf16, std::string& out);

// Appends wide text (a code point a character) as UTF-8; false, with `out` as it was, where a
// character is no Unicode scalar (a surrogate, or behind U+10FFFF).
bool appendUtf8(std::wstring_view wide, std::string& out);
// The name as names are compared: without regard to case.
std::string foldedName(std::string_view utf8);

} // namespace odbc
