// Text of the API: the command line as an output, wide formatting with the API's rules,
// and conversions between wide text, UTF-8 and the system's single-byte code page.
//
// Formatting: "%s" takes a wide string, "%S" a narrow one, "%c" a wide character; numbers
// are never formatted by locale.
#pragma once

#include "AcAdesk.h"

#include <cstdarg>
#include <functional>
#include <string>
#include <string_view>

// True when the command line stands at the beginning of a line.
bool acPrintAtLineStart();
// Tells that it does: the user's Enter at a terminal ends a line that was not printed here.
void acNoteLineStart();
// Prints to the command line. Returns the number of characters.
int acutPrintf(const ACHAR* format, ...);
int acdbPrintf(const ACHAR* format, ...); // the same; kept for code below the editor
// A formatted text.
std::wstring acFormat(const ACHAR* format, ...);
std::wstring acFormatV(const ACHAR* format, va_list args);
// Formats into a buffer of `size` characters, always null-ended; the length or -1 when cut.
int acutSPrintf(ACHAR* buffer, std::size_t size, const ACHAR* format, ...);

// A copy in memory to be released with acutDelString; null gives null.
ACHAR* acutNewString(const ACHAR* text);
void acutDelString(ACHAR*& text);
// Releases the old text and stores a copy of the new one.
Acad::ErrorStatus acutUpdString(const ACHAR* text, ACHAR*& target);

int acutWcscmp(const ACHAR* a, const ACHAR* b);  // by code value
int acutWcsicmp(const ACHAR* a, const ACHAR* b); // without regard to case

// The small letter of a capital, for the letters drawings and file names use (Latin with the
// Hungarian ones, Greek, Cyrillic); the same in every locale.
ACHAR acFoldCaseWide(ACHAR c);
inline ACHAR acFoldCase(ACHAR c) {
    return c < 0x80 ? (c >= L'A' && c <= L'Z' ? c + 0x20 : c) : acFoldCaseWide(c);
}

// ---- conversions (host and tests) ---------------------------------------------------
std::string acToUtf8(std::wstring_view text);
// Malformed bytes become U+FFFD.
std::wstring acFromUtf8(std::string_view bytes);
// Windows-1250. A character outside it becomes '?'; every byte has a wide form.
std::string acToAnsi(std::wstring_view text);
std::wstring acFromAnsi(std::string_view bytes);
// Decimal number by the C locale whatever the process's locale; 0 for non-numbers.
double acWtof(const ACHAR* text);
int acWtoi(const ACHAR* text);

// Where printed text goes; the default is standard output in UTF-8. Returns the earlier sink.
using AcPrintSink = std::function<void(std::wstring_view)>;
AcPrintSink acSetPrintSink(AcPrintSink sink);
