// Code page tables are taken from the C library's converter once a drawing.
#include "DwgText.h"

#include <array>
#include <cstdio>
#include <iconv.h>
#include <map>

namespace {
struct PageName {
    int number;
    const char* name;
    bool multiByte;
};
// Open Design description of DWG, code page numbers of the file header.
constexpr PageName kPages[] = {
    {1, "ISO-8859-1", false}, {2, "ISO-8859-1", false}, {3, "ISO-8859-2", false}, {4, "ISO-8859-3", false}, {5, "ISO-8859-4", false},
    {6, "ISO-8859-5", false}, {7, "ISO-8859-6", false}, {8, "ISO-8859-7", false}, {9, "ISO-8859-8", false}, {10, "ISO-8859-9", false},
    {11, "CP437", false},     {12, "CP850", false},     {13, "CP852", false},     {14, "CP855", false},     {15, "CP857", false},
    {16, "CP860", false},     {17, "CP861", false},     {18, "CP863", false},     {19, "CP864", false},     {20, "CP865", false},
    {21, "CP869", false},     {22, "CP932", true},      {23, "MACINTOSH", false}, {24, "BIG5", true},       {25, "CP949", true},
    {26, "JOHAB", true},      {27, "CP866", false},     {28, "CP1250", false},    {29, "CP1251", false},    {30, "CP1252", false},
    {31, "GBK", true},        {32, "CP1253", false},    {33, "CP1254", false},    {34, "CP1255", false},    {35, "CP1256", false},
    {36, "CP1257", false},    {37, "CP874", false},     {38, "CP932", true},      {39, "GBK", true},        {40, "CP949", true},
    {41, "BIG5", true},       {42, "JOHAB", true},      {44, "CP1258", false},
};
const PageName& pageOf(int number) {

    static constexpr PageName fallback = {30, "CP1252", false};
    for (const PageName& page : kPages)
        if (page.number == number)
            return page;
    return fallback;
}

class Converter {
public:
    Converter(const char* to, const char* from) : mHandle(iconv_open(to, from)) {}
    ~Converter() {
        if (good())
            iconv_close(mHandle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    bool good() const { return mHandle != reinterpret_cast<iconv_t>(-1); }
    // One character's bytes in, the converted bytes out; 0 when it cannot be.
    std::size_t convert(const char* bytes, std::size_t size, char* out, std::size_t room) {
        char* in = const_cast<char*>(bytes);
        char* end = out;
        std::size_t left = size, free = room;
        iconv(mHandle, nullptr, nullptr, nullptr, nullptr);
        if (iconv(mHandle, &in, &left, &end, &free) == static_cast<std::size_t>(-1) || left != 0)
            return 0;
        return room - free;
    }

private:
    iconv_t mHandle;
};

int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}
// The character of "\U+XXXX" at the place, or 0.
wchar_t escapedAt(std::string_view bytes, std::size_t at) {
    if (at + 7 > bytes.size() || bytes[at] != '\\' || bytes[at + 1] != 'U' || bytes[at + 2] != '+')
        return 0;
    int value = 0;
    for (std::size_t i = at + 3; i < at + 7; ++i) {
        const int digit = hexDigit(bytes[i]);
        if (digit < 0)
            return 0;
        value = value * 16 + digit;
    }
    return static_cast<wchar_t>(value);
}
void appendEscape(std::string& out, wchar_t c) {
    char buffer[12];
    const auto value = static_cast<unsigned>(c);
    if (value > 0xFFFF) { // a pair of surrogates, as other programs write it
        const unsigned rest = value - 0x10000;
        std::snprintf(buffer, sizeof buffer, "\\U+%04X", 0xD800U + (rest >> 10U));
        out += buffer;
        std::snprintf(buffer, sizeof buffer, "\\U+%04X", 0xDC00U + (rest & 0x3FFU));
    } else {
        std::snprintf(buffer, sizeof buffer, "\\U+%04X", value & 0xFFFFU);
    }
    out += buffer;
}
} // namespace

DwgTextCodec::DwgTextCodec(int codePage) : mCodePage(codePage), mMultiByte(pageOf(codePage).multiByte) {
    Converter toWide("WCHAR_T", pageOf(codePage).name);
    for (unsigned byte = 0; byte < 256; ++byte) {
        const char source = static_cast<char>(byte);
        wchar_t wide = 0;
        const bool known = toWide.good() && toWide.convert(&source, 1, reinterpret_cast<char*>(&wide), sizeof wide) == sizeof wide;
        mToWide[byte] = known ? wide : static_cast<wchar_t>(byte < 0x80 || !mMultiByte ? byte : 0);
        if (mToWide[byte] > 0 && mToWide[byte] < 0x10000)
            mToByte[static_cast<std::size_t>(mToWide[byte])] = static_cast<std::uint8_t>(byte);
    }
}

std::wstring DwgTextCodec::decode(std::string_view bytes) const {
    while (!bytes.empty() && bytes.back() == '\0')
        bytes.remove_suffix(1); // some writers count the closing null
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (const wchar_t escaped = escapedAt(bytes, i)) {
            const bool low = escaped >= 0xDC00 && escaped < 0xE000;
            if (low && !text.empty() && text.back() >= 0xD800 && text.back() < 0xDC00)
                text.back() = static_cast<wchar_t>(0x10000 + ((text.back() - 0xD800) << 10) + (escaped - 0xDC00));
            else
                text += escaped;
            i += 6;
            continue;
        }
        const wchar_t single = mToWide[static_cast<std::uint8_t>(bytes[i])];
        if (single != 0 || !mMultiByte || i + 1 == bytes.size()) {
            text += single;
            continue;
        }
        Converter pair("WCHAR_T", pageOf(mCodePage).name);
        wchar_t wide = 0;
        const bool known = pair.good() && pair.convert(bytes.data() + i, 2, reinterpret_cast<char*>(&wide), sizeof wide) == sizeof wide;
        text += known ? wide : L'\xFFFD';
        ++i;
    }
    return text;
}

std::string DwgTextCodec::encode(std::wstring_view text) const {
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t c : text) {
        const auto value = static_cast<std::size_t>(c);
        if (value < 0x10000 && mToByte[value] != 0)
            bytes += static_cast<char>(mToByte[value]);
        else
            appendEscape(bytes, c);
    }
    return bytes;
}

const DwgTextCodec& dwgTextCodec(int codePage) {
    static std::map<int, DwgTextCodec> codecs;
    return codecs.try_emplace(codePage, codePage).first->second;
}
