#include "StoreText.h"

#include "AcUtText.h"

#include <cstdint>

namespace odbc {

namespace {
// The code point at `at`, which moves behind it; -1 where the bytes are no strict UTF-8.
std::int32_t decode(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(at);
    const int extra = lead < 0x80 ? 0 : lead >= 0xC2 && lead < 0xE0 ? 1 : lead >= 0xE0 && lead < 0xF0 ? 2 : lead >= 0xF0 && lead < 0xF5 ? 3 : -1;
    if (extra < 0 || text.size() - at <= static_cast<std::size_t>(extra))
        return -1;
    std::int32_t code = static_cast<std::int32_t>(extra == 0 ? lead : lead & (0x3Fu >> extra));
    for (int i = 1; i <= extra; ++i) {
        const unsigned next = byte(at + static_cast<std::size_t>(i));
        if ((next & 0xC0) != 0x80)
            return -1;
        code = (code << 6) | static_cast<std::int32_t>(next & 0x3F);
    }
    const std::int32_t least = extra == 2 ? 0x800 : extra == 3 ? 0x10000 : 0;
    if (code < least || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
        return -1;
    at += static_cast<std::size_t>(extra) + 1;
    return code;
}

void append(std::uint32_t code, std::string& out) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        tail(0);
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        tail(6), tail(0);
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        tail(12), tail(6), tail(0);
    }
}
} // namespace

bool appendUtf16(std::string_view utf8, std::u16string& out) {
    const std::size_t before = out.size();
    for (std::size_t at = 0; at < utf8.size();) {
        const std::int32_t code = decode(utf8, at);
        if (code < 0) {
            out.resize(before);
            return false;
        }
        if (code < 0x10000) {
            out += static_cast<char16_t>(code);
        } else {
            out += static_cast<char16_t>(0xD7C0 + (code >> 10));
            out += static_cast<char16_t>(0xDC00 | (code & 0x3FF));
        }
    }
    return true;
}

void appendUtf8(std::u16string_view utf16, std::string& out) {
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        std::uint32_t code = utf16[i];
        if ((code & 0xFC00) == 0xD800 && i + 1 < utf16.size() && (utf16[i + 1] & 0xFC00) == 0xDC00)
            code = 0x10000 + ((code & 0x3FF) << 10) + (utf16[++i] & 0x3FFu);
        else if ((code & 0xF800) == 0xD800)
            code = 0xFFFD;
        append(code, out);
    }
}

bool appendUtf8(std::wstring_view wide, std::string& out) {
    const std::size_t before = out.size();
    for (const wchar_t c : wide) {
        const auto code = static_cast<std::uint32_t>(c);
        if (code > 0x10FFFF || (code & 0xFFFFF800) == 0xD800) {
            out.resize(before);
            return false;
        }
        append(code, out);
    }
    return true;
}

std::string foldedName(std::string_view utf8) {
    std::wstring wide = acFromUtf8(utf8);
    for (wchar_t& c : wide)
        c = acFoldCase(c);
    return acToUtf8(wide);
}

} // namespace odbc
