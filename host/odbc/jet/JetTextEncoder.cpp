#include "JetTextEncoder.h"

#include "store/StoreText.h"

#include <algorithm>

namespace odbc::jet {

void JetTextEncoder::room(std::size_t size) {
    if (m_bytes.size() < size)
        m_bytes.resize(size);
}

bool JetTextEncoder::encode(std::string_view utf8, std::size_t maxCompressed) {
    room(2 * utf8.size() + 3);
    const bool fits = utf8.size() > 2 && utf8.size() <= maxCompressed;
    if (encodeAscii(utf8, fits))
        return true;
    m_wide.clear();
    if (!appendUtf16(utf8, m_wide))
        return false;
    return encodeWide(maxCompressed > 0, maxCompressed);
}

bool JetTextEncoder::encodeAscii(std::string_view text, bool compress) {
    std::uint8_t* out = m_bytes.data();
    if (compress) {
        *out++ = 0xFF;
        *out++ = 0xFE;
    }
    for (const char c : text) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (byte - 1u >= 0x7Fu)
            return false;
        *out++ = byte;
        if (!compress)
            *out++ = 0;
    }
    m_size = static_cast<std::size_t>(out - m_bytes.data());
    m_characters = text.size();
    return true;
}

bool JetTextEncoder::encodeWide(bool mayCompress, std::size_t maxCompressed) {
    m_characters = m_wide.size();
    std::uint8_t* out = m_bytes.data();
    const auto narrow = [](char16_t c) { return c - 1u < 0xFFu; };
    if (m_wide.size() > 2 && m_wide.size() <= maxCompressed && std::all_of(m_wide.begin(), m_wide.end(), narrow)) {
        *out++ = 0xFF;
        *out++ = 0xFE;
        for (const char16_t c : m_wide)
            *out++ = static_cast<std::uint8_t>(c);
    } else {
        // Text that begins with U+FEFF would pass for compressed text: it begins as such and turns
        // to wide characters at once. There a low byte of zero would turn it back.
        if (mayCompress && !m_wide.empty() && m_wide.front() == 0xFEFF) {
            if (std::any_of(m_wide.begin(), m_wide.end(), [](char16_t c) { return (c & 0xFF) == 0; }))
                return false;
            *out++ = 0xFF;
            *out++ = 0xFE;
            *out++ = 0;
        }
        for (const char16_t c : m_wide) {
            put16(out, c);
            out += 2;
        }
    }
    m_size = static_cast<std::size_t>(out - m_bytes.data());
    return true;
}

} // namespace odbc::jet
