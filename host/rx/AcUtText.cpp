// Text copies, comparison without case, UTF-8 and numbers.
#include "AcUtText.h"

#include <charconv>
#include <cmath>
#include <cwchar>

ACHAR* acutNewString(const ACHAR* text) {
    if (text == nullptr)
        return nullptr;
    const std::size_t size = std::wcslen(text) + 1;
    auto* const copy = new ACHAR[size];
    std::wmemcpy(copy, text, size);
    return copy;
}
void acutDelString(ACHAR*& text) {
    delete[] text;
    text = nullptr;
}
Acad::ErrorStatus acutUpdString(const ACHAR* text, ACHAR*& target) {
    ACHAR* const copy = acutNewString(text); // first: the new text may be the old one
    delete[] target;
    target = copy;
    return Acad::eOk;
}

namespace {
bool isPairedLatin(ACHAR c) { // letters of Latin Extended-A that alternate capital, small
    return (c >= 0x100 && c <= 0x12F) || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
}
} // namespace

ACHAR acFoldCaseWide(ACHAR c) {
    if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F))
        return c + 0x20;
    if (isPairedLatin(c))
        return c | 1;
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) // here the capital is the odd one
        return c % 2 == 1 ? c + 1 : c;
    if (c == 0x178)
        return 0xFF;
    if (c >= 0x400 && c <= 0x40F)
        return c + 0x50;
    return c;
}

int acutWcscmp(const ACHAR* a, const ACHAR* b) {
    return std::wcscmp(a != nullptr ? a : L"", b != nullptr ? b : L"");
}
int acutWcsicmp(const ACHAR* a, const ACHAR* b) {
    a = a != nullptr ? a : L"";
    b = b != nullptr ? b : L"";
    for (;; ++a, ++b) {
        if (*a == *b) {
            if (*a == 0)
                return 0;
            continue;
        }
        const ACHAR x = acFoldCase(*a), y = acFoldCase(*b);
        if (x != y)
            return x < y ? -1 : 1;
    }
}

std::string acToUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    const auto tail = [&out](Adesk::UInt32 c, int shift) { out += static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    for (const ACHAR w : text) {
        auto c = static_cast<Adesk::UInt32>(w);
        if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
            c = 0xFFFD;
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | c >> 6);
            tail(c, 0);
        } else if (c < 0x10000) {
            out += static_cast<char>(0xE0 | c >> 12);
            tail(c, 6), tail(c, 0);
        } else {
            out += static_cast<char>(0xF0 | c >> 18);
            tail(c, 12), tail(c, 6), tail(c, 0);
        }
    }
    return out;
}

namespace {
// Length of the sequence a byte begins and the least code it may hold; 0 for no beginning.
struct Lead {
    std::size_t length;
    Adesk::UInt32 bits, least;
};
Lead leadOf(unsigned char b) {
    if (b < 0x80)
        return {1, b, 0};
    if (b >= 0xC2 && b < 0xE0)
        return {2, b & 0x1Fu, 0x80};
    if (b >= 0xE0 && b < 0xF0)
        return {3, b & 0x0Fu, 0x800};
    if (b >= 0xF0 && b < 0xF5)
        return {4, b & 0x07u, 0x10000};
    return {0, 0, 0};
}
} // namespace

std::wstring acFromUtf8(std::string_view bytes) {
    std::wstring out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const Lead lead = leadOf(static_cast<unsigned char>(bytes[i]));
        Adesk::UInt32 c = lead.bits;
        std::size_t taken = 1;
        while (taken < lead.length && i + taken < bytes.size() && (bytes[i + taken] & 0xC0) == 0x80)
            c = c << 6 | (static_cast<unsigned char>(bytes[i + taken++]) & 0x3Fu);
        const bool good = lead.length != 0 && taken == lead.length && c >= lead.least && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
        out += good ? static_cast<ACHAR>(c) : static_cast<ACHAR>(0xFFFD);
        i += taken;
    }
    return out;
}

namespace {
std::string numberText(const ACHAR* text) {
    std::string out;
    if (text == nullptr)
        return out;
    while (*text == L' ' || (*text >= L'\t' && *text <= L'\r'))
        ++text;
    if (*text == L'+')
        ++text;
    for (; *text > 0 && *text < 0x80; ++text)
        out += static_cast<char>(*text);
    return out;
}
} // namespace

double acWtof(const ACHAR* text) {
    const std::string digits = numberText(text);
    double value = 0.0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return std::isfinite(value) ? value : 0.0;
}
int acWtoi(const ACHAR* text) {
    const std::string digits = numberText(text);
    long long value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return digits[0] == '-' ? INT32_MIN : INT32_MAX;
    return static_cast<int>(value < INT32_MIN ? INT32_MIN : value > INT32_MAX ? INT32_MAX : value);
}
