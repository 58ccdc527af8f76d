// What the checks share: the file, what has been found, and which page serves what.
#pragma once

#include "JetCheck.h"
#include "jet/JetFile.h"

#include <map>
#include <optional>
#include <set>

namespace odbc::jet {

class JetCheckContext {
public:
    explicit JetCheckContext(const JetFile& file) : m_file(&file), m_uses(file.pageCount()) {}

    const JetFile& file() const { return *m_file; }
    void report(std::uint32_t page, std::string text) { m_found.push_back({page, std::move(text)}); }
    std::vector<JetViolation> take() { return std::move(m_found); }

    // Notes what the page serves ("the rows of the table X"). False, with a violation, where the page
    // does not exist, serves something else already or is not of that type.
    bool claim(std::uint32_t page, PageType type, const std::string& use);
    bool claimed(std::uint32_t page) const { return !m_uses[page].empty(); }

    // The rows of a data page; the first call for a page checks how they lie. Empty when they
    // cannot be told apart. The bytes lie in `page`, which the call reads.
    std::vector<JetSlot> rowsOf(std::uint32_t number, JetPage& page);

    // The pages that a usage map lists. Checks the map's row, its page and its bitmap pages.
    // `from` is where the pointer stands, `what` says whose map it is.
    std::set<std::uint32_t> mapPages(std::uint32_t pointer, std::uint32_t from, const std::string& what);
    // The same of the map of free pages, which may list pages behind the end: those are left out.
    std::set<std::uint32_t> freePages(std::uint32_t pointer);

private:
    std::optional<std::vector<std::uint8_t>> mapRow(std::uint32_t pointer, std::uint32_t from, std::uint32_t owner,
                                                    const std::string& what);
    std::vector<std::uint64_t> bitsOf(const std::vector<std::uint8_t>& row, std::uint32_t page,
                                      const std::string& what);

    const JetFile* m_file;
    std::vector<JetViolation> m_found;
    std::vector<std::string> m_uses;                // by page
    std::set<std::uint32_t> m_checked;              // data pages whose rows have been looked at
    std::map<std::uint32_t, std::string> m_mapRows; // by pointer: whose map
};

} // namespace odbc::jet
