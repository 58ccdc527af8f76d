#include "JetCheckContext.h"

#include <algorithm>

namespace odbc::jet {

namespace {
const char* nameOf(PageType type) {
    switch (type) {
    case PageType::Header:
        return "a header page";
    case PageType::Data:
        return "a data page";
    case PageType::Definition:
        return "a table definition";
    case PageType::IndexNode:
        return "an index node";
    case PageType::IndexLeaf:
        return "an index leaf";
    case PageType::Bitmap:
        return "a page of a usage map";
    }
    return "a page";
}
} // namespace

bool JetCheckContext::claim(std::uint32_t page, PageType type, const std::string& use) {
    if (page >= m_file->pageCount()) {
        report(page, "There is no such page, but " + use + " should lie there.");
        return false;
    }
    if (!m_uses[page].empty()) {
        report(page, "The page serves " + use + " and " + m_uses[page] + ".");
        return false;
    }
    m_uses[page] = use;
    JetPage bytes;
    m_file->read(page, bytes);
    if (bytes.type() != type) {
        report(page, std::string("The page serves ") + use + " and is not " + nameOf(type) + ".");
        return false;
    }
    if (bytes.bytes[1] != 1)
        report(page, "The second byte of the page is not 1.");
    return true;
}

std::vector<JetSlot> JetCheckContext::rowsOf(std::uint32_t number, JetPage& page) {
    m_file->read(number, page);
    const bool first = m_checked.insert(number).second;
    const std::size_t count = get16(page.at(data::kRowCount)), begin = data::kRows + 2 * count;
    if (begin > kPageSize) {
        if (first)
            report(number, "The page counts more rows than it can hold.");
        return {};
    }
    std::vector<JetSlot> slots;
    std::size_t end = kPageSize;
    for (std::size_t row = 0; row < count; ++row) {
        const std::uint16_t entry = get16(page.at(data::kRows + 2 * row));
        const std::size_t offset = entry & data::kOffset;
        if (offset > end || offset < begin) {
            if (first)
                report(number, "Row " + std::to_string(row) + " of the page does not lie behind the rows before it.");
            return {};
        }
        slots.push_back(
            {static_cast<std::uint16_t>(entry & (data::kDeleted | data::kOverflow)), {page.at(offset), end - offset}});
        end = offset;
    }
    if (first && get16(page.at(data::kFree)) != end - begin)
        report(number, "The page says that " + std::to_string(get16(page.at(data::kFree))) +
                           " bytes are free, but there are " + std::to_string(end - begin) + ".");
    return slots;
}

std::optional<std::vector<std::uint8_t>> JetCheckContext::mapRow(std::uint32_t pointer, std::uint32_t from,
                                                                 std::uint32_t owner, const std::string& what) {
    const std::uint32_t number = pointer >> 8;
    if (number == 0 || number >= m_file->pageCount()) {
        report(from, "The pointer to " + what + " leads nowhere.");
        return std::nullopt;
    }
    if (m_uses[number].empty() ? !claim(number, PageType::Data, "usage maps") : m_uses[number] != "usage maps") {
        report(from, "The pointer to " + what + " leads to a page that holds no usage maps.");
        return std::nullopt;
    }
    JetPage page;
    const std::vector<JetSlot> rows = rowsOf(number, page);
    if (page.owner() != owner)
        report(number, "A page of usage maps belongs to the table " + std::to_string(page.owner()) + ".");
    if ((pointer & 0xFF) >= rows.size() || rows[pointer & 0xFF].flags != 0) {
        report(from, "The pointer to " + what + " leads to a row that is not there.");
        return std::nullopt;
    }
    if (const auto [other, added] = m_mapRows.emplace(pointer, what); !added) {
        report(number, "The same usage map is " + what + " and " + other->second + ".");
        return std::nullopt;
    }
    const auto bytes = rows[pointer & 0xFF].bytes;
    if (bytes.size() != usage::kRowSize) {
        report(number, "The row of " + what + " is not 69 bytes long.");
        return std::nullopt;
    }
    return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
}

std::vector<std::uint64_t> JetCheckContext::bitsOf(const std::vector<std::uint8_t>& row, std::uint32_t page,
                                                   const std::string& what) {
    std::vector<std::uint64_t> pages;
    const auto collect = [&](std::uint64_t first, const std::uint8_t* bits, std::size_t size) {
        for (std::size_t i = 0; i < 8 * size; ++i)
            if (bits[i / 8] >> (i % 8) & 1)
                pages.push_back(first + i);
    };
    if (row[0] == usage::kInline) {
        collect(get32(row.data() + 1), row.data() + 5, usage::kInlineBytes);
    } else if (row[0] == usage::kReference) {
        for (std::size_t i = 0; i < usage::kReferences; ++i) {
            const std::uint32_t number = get32(row.data() + 1 + 4 * i);
            if (number == 0 || !claim(number, PageType::Bitmap, what))
                continue;
            JetPage bitmap;
            m_file->read(number, bitmap);
            collect(i * usage::kPagesPerBitmap, bitmap.at(usage::kBitmapHeader), kPageSize - usage::kBitmapHeader);
        }
    } else {
        report(page, "The row of " + what + " is of an unknown type.");
    }
    return pages;
}

std::set<std::uint32_t> JetCheckContext::mapPages(std::uint32_t pointer, std::uint32_t from, const std::string& what) {
    std::set<std::uint32_t> pages;
    if (const auto row = mapRow(pointer, from, 0, what)) {
        for (const std::uint64_t page : bitsOf(*row, pointer >> 8, what)) {
            if (page < m_file->pageCount())
                pages.insert(static_cast<std::uint32_t>(page));
            else
                report(pointer >> 8, "There is no page " + std::to_string(page) + ", but it stands in " + what + ".");
        }
    }
    return pages;
}

std::set<std::uint32_t> JetCheckContext::freePages(std::uint32_t pointer) {
    const std::string what = "the map of free pages";
    std::set<std::uint32_t> pages;
    if (const auto row = mapRow(pointer, 0, 1, what)) {
        std::size_t reach = usage::kInlinePages;
        if (row->front() == usage::kReference)
            for (reach = 0; reach < usage::kReferences * usage::kPagesPerBitmap &&
                            get32(row->data() + 1 + 4 * (reach / usage::kPagesPerBitmap)) != 0;)
                reach += usage::kPagesPerBitmap;
        std::size_t behind = 0;
        for (const std::uint64_t page : bitsOf(*row, pointer >> 8, what)) {
            if (page < m_file->pageCount())
                pages.insert(static_cast<std::uint32_t>(page));
            else
                ++behind;
        }
        if (reach < m_file->pageCount())
            report(pointer >> 8, "The map of free pages does not reach the end of the file.");
        else if (behind != reach - m_file->pageCount())
            report(pointer >> 8, "The map of free pages calls a page used that lies behind the end of the file.");
    }
    return pages;
}

} // namespace odbc::jet
