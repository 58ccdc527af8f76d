#include "parseNumber.h"

#include "AcUtText.h"
#include "CString.h"

namespace {
// Sign, digits, one separator, more digits: what people type as a size.
bool isDecimal(const std::wstring& text) {
    std::size_t at = !text.empty() && (text[0] == L'-' || text[0] == L'+') ? 1 : 0;
    int digits = 0, separators = 0;
    for (; at < text.size(); ++at) {
        if (text[at] >= L'0' && text[at] <= L'9')
            ++digits;
        else if (text[at] == L'.' && separators == 0)
            ++separators;
        else
            return false;
    }
    return digits > 0;
}
} // namespace

bool parseNumber(const std::wstring& typed, double& number) {
    CString trimmed(typed.c_str());
    trimmed.Trim();
    trimmed.Replace(L',', L'.');
    if (!isDecimal(trimmed.text()))
        return false;
    number = acWtof(trimmed);
    return true;
}
