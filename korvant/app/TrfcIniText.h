// Values of the settings files: text of any letters in a file of the system's single-byte code page.
#pragma once

#include <string>

// What a line can hold as it is stays as it is. A letter that the code page lacks, a control character and a blank
// at the end, all of which a line would lose, stand as <U+XXXX> with the letter's code in hexadecimal digits.
std::wstring toIniText(const std::wstring& value);
std::wstring fromIniText(const std::wstring& text);
