// An Access database file opened for reading, page by page. Every page number and every offset
// that comes from the file is checked here or by whoever takes it from a page: the bytes may be
// anything.
#pragma once

#include "JetFormat.h"

#include <array>
#include <string>
#include <vector>

namespace odbc::jet {

struct JetPage {
    std::uint32_t number = 0;
    std::array<std::uint8_t, kPageSize> bytes{}; // 2,048 of them in Jet 3
    const std::uint8_t* at(std::size_t offset) const { return bytes.data() + offset; }
    PageType type() const { return static_cast<PageType>(bytes[0]); }
    std::uint32_t owner() const { return get32(at(data::kOwner)); } // of data pages
};

class JetFile {
public:
    // Throws StoreError: no such file, a folder, no rights, no Access file, encrypted, with a
    // password, cut off in the middle of a page.
    explicit JetFile(const std::string& path);
    // The same of a file that somebody else opened and closes.
    JetFile(int descriptor, std::string name);
    // The same of bytes that outlive this object.
    JetFile(std::string name, std::span<const std::uint8_t> bytes);
    ~JetFile();
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    const std::string& name() const { return m_name; }
    bool jet3() const { return m_jet3; }
    std::size_t pageSize() const { return m_jet3 ? kPageSize / 2 : kPageSize; }
    std::uint32_t pageCount() const { return static_cast<std::uint32_t>(m_size / pageSize()); }
    std::uint16_t codePage() const { return m_codePage; }  // of text in Jet 3
    const JetPage& headerPage() const { return m_header; } // unmasked

    // Throws StoreError where there is no such page.
    void read(std::uint32_t number, JetPage& page) const;
    // "The file X is damaged: WHY."
    [[noreturn]] void damaged(const std::string& why) const;

private:
    void readBytes(std::uint64_t offset, std::uint8_t* out, std::size_t size) const;
    void readStatus();
    void readHeader();
    void checkHeader();

    std::string m_name;
    int m_file = -1;
    bool m_ownsFile = false;
    std::span<const std::uint8_t> m_bytes; // when there is no file
    std::uint64_t m_size = 0;
    bool m_jet3 = false;
    std::uint16_t m_codePage = 0;
    JetPage m_header;
};

// One row of a data page. Flags are data::kDeleted and data::kOverflow.
struct JetSlot {
    std::uint16_t flags = 0;
    std::span<const std::uint8_t> bytes;
};
std::size_t rowCountOf(const JetFile& file, const JetPage& page);
// Throws StoreError where the row's place makes no sense. The bytes lie in `page`.
JetSlot slotOf(const JetFile& file, const JetPage& page, std::size_t row);
// The page and the row of a pointer; the page must be a data page. The bytes lie in `page`.
JetSlot slotAt(const JetFile& file, std::uint32_t pointer, JetPage& page);

// The pages of the usage map that the pointer tells, in rising order.
std::vector<std::uint32_t> pagesOfMap(const JetFile& file, std::uint32_t pointer);

} // namespace odbc::jet
