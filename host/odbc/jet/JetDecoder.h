// Text and long values of a file as the store has them.
#pragma once

#include "JetFile.h"

#include <map>

namespace odbc::jet {

// UTF-16 or compressed text of Jet 4, appended as UTF-8. A lone surrogate becomes U+FFFD.
void appendJet4Text(std::span<const std::uint8_t> bytes, std::string& out);

class JetDecoder {
public:
    explicit JetDecoder(const JetFile& file) : m_file(&file) {}
    ~JetDecoder();
    JetDecoder(const JetDecoder&) = delete;
    JetDecoder& operator=(const JetDecoder&) = delete;

    // Text of either version as UTF-8; `codePage` is the column's (0: the file's), for Jet 3.
    void appendText(std::span<const std::uint8_t> bytes, std::uint16_t codePage, std::string& out);
    // The bytes of a long value, given what its row holds of it.
    void appendLongValue(std::span<const std::uint8_t> inRow, std::string& out);

private:
    void* converter(std::uint16_t codePage);

    const JetFile* m_file;
    JetPage m_page;
    std::map<std::uint16_t, void*> m_converters; // iconv_t by code page
};

} // namespace odbc::jet
