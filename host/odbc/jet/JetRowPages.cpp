#include "JetRowPages.h"

namespace odbc::jet {

void JetRowPages::place(PageBytes& page, std::span<const std::uint8_t> row, std::size_t count, std::size_t end) const {
    std::memcpy(page.data() + end, row.data(), row.size());
    put16(page.data() + data::kRows + 2 * (count - 1), end);
    page[0] = static_cast<std::uint8_t>(PageType::Data);
    page[1] = 1;
    put16(page.data() + data::kFree, end - data::kRows - 2 * count);
    put32(page.data() + data::kOwner, m_owner);
    put16(page.data() + data::kRowCount, count);
}

std::uint32_t JetRowPages::append(std::span<const std::uint8_t> row) {
    if (m_open && (m_count == data::kMaxRows || data::kRows + 2 * (m_count + 1) + row.size() > m_end))
        closePage();
    if (!m_open) {
        m_number = m_store->allocate();
        m_used.add(m_number);
        m_page.fill(0);
        m_count = 0;
        m_end = kPageSize;
        m_open = true;
    }
    m_end -= row.size();
    place(m_page, row, ++m_count, m_end);
    return m_number << 8 | static_cast<std::uint32_t>(m_count - 1);
}

std::uint32_t JetRowPages::appendAlone(std::span<const std::uint8_t> row) {
    const std::uint32_t number = m_store->allocate();
    m_used.add(number);
    PageBytes page{};
    place(page, row, 1, kPageSize - row.size());
    m_store->put(number, page);
    return number << 8;
}

void JetRowPages::closePage() {
    m_store->put(m_number, m_page);
    m_open = false;
}

void JetRowPages::finish() {
    if (!m_open)
        return;
    if (m_count < data::kMaxRows)
        m_withRoom.add(m_number);
    closePage();
}

} // namespace odbc::jet
