// Text as it lies in a row: UTF-16, or one byte a character behind FF FE.
#pragma once

#include "JetFormat.h"

#include <string>
#include <string_view>
#include <vector>

namespace odbc::jet {

class JetTextEncoder {
public:
    // The bytes of the text, valid until the next call; false for text that is no
    // strict UTF-8, or that begins with U+FEFF and could not be told from compressed text.
    // Compressed is what Access would compress: more than two characters, up to `maxCompressed` (0
    // where the column does not allow it), each below U+0100 and none of them U+0000.
    bool encode(std::string_view utf8, std::size_t maxCompressed);
    std::span<const std::uint8_t> bytes() const { return {m_bytes.data(), m_size}; }
    std::size_t characters() const { return m_characters; } // in UTF-16 units, as Access counts

private:
    void room(std::size_t size);
    bool encodeAscii(std::string_view text, bool compress);
    bool encodeWide(bool mayCompress, std::size_t maxCompressed);

    std::vector<std::uint8_t> m_bytes;
    std::size_t m_size = 0, m_characters = 0;
    std::u16string m_wide;
};

} // namespace odbc::jet
