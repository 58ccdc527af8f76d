// The pages of a file that is being written: handed out in order, filled in any order, each once.
#pragma once

#include "JetFormat.h"

#include <array>
#include <string>
#include <vector>

namespace odbc::jet {

using PageBytes = std::array<std::uint8_t, kPageSize>;

// Where pages are put: the file that is written from its start, or one that is changed in places.
class JetPages {
public:
    virtual ~JetPages() = default;
    // The number of a new page, which holds zeros until it is put.
    virtual std::uint32_t allocate() = 0;
    virtual void put(std::uint32_t page, const PageBytes& bytes) = 0;
};

class JetPageStore : public JetPages {
public:
    // Creates or empties the file. Faults of the disk throw StoreError, here and below. `limit` is the
    // number of pages that the format allows; the tests give a smaller one.
    explicit JetPageStore(const std::string& path, std::uint32_t limit = kMaxPages);
    JetPageStore(int descriptor, std::string name, std::uint32_t limit = kMaxPages); // which stays its owner's
    ~JetPageStore() override;
    JetPageStore(const JetPageStore&) = delete;
    JetPageStore& operator=(const JetPageStore&) = delete;

    std::uint32_t allocate() override; // throws past 2 GB
    void put(std::uint32_t page, const PageBytes& bytes) override;
    std::uint32_t count() const { return m_count; }
    // Writes what is left and closes the file.
    void close();

private:
    void flush();
    void write(const std::uint8_t* bytes, std::size_t size, std::uint64_t offset);
    [[noreturn]] void fail(int error) const;

    static constexpr std::uint32_t kWindow = 256; // pages that are gathered for one write
    std::string m_path;
    std::uint32_t m_limit;
    int m_file = -1;
    bool m_ownsFile = true;
    std::uint32_t m_count = 0;
    std::uint32_t m_first = 0; // the first page of the window
    std::vector<std::uint8_t> m_window;
};

} // namespace odbc::jet
