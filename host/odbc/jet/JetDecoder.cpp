#include "JetDecoder.h"

#include "store/StoreTable.h"
#include "store/StoreText.h"

#include <algorithm>
#include <iconv.h>

namespace odbc::jet {

namespace {
iconv_t handleOf(void* stored) {
    return static_cast<iconv_t>(stored);
}

void appendWide(std::span<const std::uint8_t> bytes, std::u16string& out) {
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        out += static_cast<char16_t>(get16(bytes.data() + i));
}

// Behind FF FE: one byte a character; a zero byte turns to two bytes a character and back.
void appendCompressed(std::span<const std::uint8_t> bytes, std::u16string& out) {
    bool wide = false;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == 0) {
            wide = !wide;
        } else if (!wide) {
            out += static_cast<char16_t>(bytes[i]);
        } else if (i + 1 < bytes.size()) {
            out += static_cast<char16_t>(get16(bytes.data() + i));
            ++i;
        }
    }
}
} // namespace

void appendJet4Text(std::span<const std::uint8_t> bytes, std::string& out) {
    std::u16string wide;
    if (bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE) {
        bytes = bytes.subspan(2);
        if (std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t b) { return b - 1u < 0x7Fu; })) {
            out.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
            return;
        }
        appendCompressed(bytes, wide);
    } else {
        appendWide(bytes, wide);
    }
    appendUtf8(wide, out);
}

JetDecoder::~JetDecoder() {
    for (const auto& [page, stored] : m_converters)
        iconv_close(handleOf(stored));
}

void* JetDecoder::converter(std::uint16_t codePage) {
    if (const auto found = m_converters.find(codePage); found != m_converters.end())
        return found->second;
    const iconv_t made = iconv_open("UTF-8", ("CP" + std::to_string(codePage)).c_str());
    if (made == reinterpret_cast<iconv_t>(-1))
        throw StoreError("A fájlban (\"" + m_file->name() + "\") ismeretlen kódlapú szöveg áll: " + std::to_string(codePage) + ".");
    return m_converters.emplace(codePage, made).first->second;
}

void JetDecoder::appendText(std::span<const std::uint8_t> bytes, std::uint16_t codePage, std::string& out) {
    if (!m_file->jet3()) {
        appendJet4Text(bytes, out);
        return;
    }
    constexpr std::uint16_t kWestern = 1252;
    codePage = codePage != 0 ? codePage : m_file->codePage() != 0 ? m_file->codePage() : kWestern;
    std::string input(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    char* from = input.data();
    std::size_t left = input.size();
    const iconv_t handle = handleOf(converter(codePage));
    iconv(handle, nullptr, nullptr, nullptr, nullptr);
    while (left > 0) {
        char buffer[512];
        char* to = buffer;
        std::size_t room = sizeof buffer;
        const std::size_t before = left;
        iconv(handle, &from, &left, &to, &room);
        out.append(buffer, to);
        if (left == before || (left > 0 && room > 8)) { // a byte that the code page does not have
            appendUtf8(std::u16string(1, static_cast<char16_t>(static_cast<unsigned char>(*from))), out);
            ++from;
            --left;
        }
    }
}

void JetDecoder::appendLongValue(std::span<const std::uint8_t> inRow, std::string& out) {
    if (inRow.empty())
        return;
    if (inRow.size() < longvalue::kHeader)
        m_file->damaged("a long value has no whole head");
    const std::uint32_t head = get32(inRow.data());
    const std::size_t length = head & longvalue::kLengthMask;
    const auto append = [&](std::span<const std::uint8_t> bytes) {
        out.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    };
    if (head & longvalue::kInline) {
        const auto rest = inRow.subspan(longvalue::kHeader);
        if (rest.size() < length)
            m_file->damaged("a long value is shorter than it says");
        append(rest.first(length));
        return;
    }
    if (length > std::uint64_t{m_file->pageCount()} * m_file->pageSize())
        m_file->damaged("a long value says that it is longer than the whole file");
    const std::size_t before = out.size();
    std::uint32_t pointer = get32(inRow.data() + 4);
    const bool single = (head & longvalue::kSinglePage) != 0;
    // Every piece brings at least a byte, so that a ring of pieces ends with the length.
    while (out.size() - before < length) {
        const JetSlot slot = slotAt(*m_file, pointer, m_page);
        if (m_page.owner() != data::kLongValueOwner || slot.flags != 0)
            m_file->damaged("page " + std::to_string(m_page.number) + " should hold a long value and does not");
        const std::size_t skip = single ? 0 : 4;
        if (slot.bytes.size() <= skip)
            m_file->damaged("a long value on page " + std::to_string(m_page.number) + " is broken off");
        const auto piece = slot.bytes.subspan(skip);
        append(piece.first(std::min(piece.size(), length - (out.size() - before))));
        if (single || out.size() - before == length)
            break;
        pointer = get32(slot.bytes.data());
    }
    if (out.size() - before != length)
        m_file->damaged("a long value is shorter than it says");
}

} // namespace odbc::jet
