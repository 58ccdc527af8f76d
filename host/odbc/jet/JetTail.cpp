#include "JetTail.h"

#include "JetDecoder.h"

#include <algorithm>
#include <set>

namespace odbc::jet {

namespace {
constexpr int kMaxDepth = 12;

class TailReader {
public:
    TailReader(const JetFile& file, const JetDefinition& definition) : m_file(file), m_definition(definition), m_at(definition.columnsEnd) {}

    JetTail read() {
        JetTail tail;
        for (std::uint32_t i = 0; i < m_definition.realIndexes; ++i)
            tail.indexes.push_back(realIndex(take(definition::kRealIndexSize)));
        std::vector<std::uint32_t> real;
        for (std::uint32_t i = 0; i < m_definition.indexes; ++i)
            real.push_back(get32(take(definition::kIndexSize) + 8));
        for (const std::uint32_t of : real) {
            const std::size_t length = get16(take(2));
            const std::uint8_t* name = take(length);
            if (of >= tail.indexes.size())
                m_file.damaged("an index of the table on page " + std::to_string(m_definition.page()) + " has no entries of its own");
            if (tail.indexes[of].name.empty())
                appendJet4Text({name, length}, tail.indexes[of].name);
        }
        tail.userIndexes = real.size();
        for (std::uint16_t column = 0; (column = get16(take(2))) != definition::kNoColumn;) {
            const std::uint8_t* maps = take(8);
            tail.longMaps.push_back({column, get32(maps), get32(maps + 4)});
        }
        return tail;
    }

private:
    const std::uint8_t* take(std::size_t size) {
        if (m_at + size > m_definition.bytes.size())
            m_file.damaged("the definition of a table on page " + std::to_string(m_definition.page()) + " is broken off");
        m_at += size;
        return m_definition.bytes.data() + m_at - size;
    }
    static JetIndex realIndex(const std::uint8_t* entry) {
        JetIndex index;
        for (std::size_t part = 0; part < definition::kIndexColumns; ++part)
            if (const std::uint16_t number = get16(entry + 4 + 3 * part); number != definition::kNoColumn)
                index.parts.push_back({number, entry[6 + 3 * part] == 1});
        index.map = get32(entry + 34);
        index.root = get32(entry + 38);
        index.flags = entry[46];
        return index;
    }

    const JetFile& m_file;
    const JetDefinition& m_definition;
    std::size_t m_at;
};

// The entries of one page; the bytes that all of them share stand in the first one only.
std::vector<std::string> entriesOfPage(const JetPage& page) {
    const char* area = reinterpret_cast<const char*>(page.at(index::kEntries));
    const std::size_t prefix = get16(page.at(index::kPrefix));
    std::vector<std::string> entries;
    std::size_t begin = 0;
    for (std::size_t end = 1; end <= index::kCapacity; ++end) {
        if ((*page.at(index::kMask + end / 8) >> (end % 8) & 1) == 0)
            continue;
        std::string entry = entries.empty() ? std::string() : entries.front().substr(0, prefix);
        entries.push_back(entry.append(area + begin, end - begin));
        begin = end;
    }
    return entries;
}

std::uint32_t childOf(const std::string& entry) {
    std::uint32_t child = 0;
    for (std::size_t i = entry.size() - 4; i < entry.size(); ++i)
        child = child << 8 | static_cast<std::uint8_t>(entry[i]);
    return child;
}
} // namespace

JetTail readTail(const JetFile& file, const JetDefinition& definition) {
    return TailReader(file, definition).read();
}

std::vector<std::string> entriesOfIndex(const JetFile& file, const JetDefinition& definition, const JetIndex& index) {
    const auto broken = [&] { file.damaged("the index \"" + index.name + "\" of the table on page " + std::to_string(definition.page()) + " cannot be followed"); };
    JetPage page;
    std::uint32_t number = index.root;
    for (int depth = 0;; ++depth) { // to the first leaf
        file.read(number, page);
        if (get32(page.at(jet::index::kOwner)) != definition.page())
            broken();
        if (page.type() == PageType::IndexLeaf)
            break;
        if (page.type() != PageType::IndexNode || depth == kMaxDepth)
            broken();
        const std::vector<std::string> entries = entriesOfPage(page);
        if (!entries.empty() && entries.front().size() < 8)
            broken();
        number = entries.empty() ? get32(page.at(jet::index::kTail)) : childOf(entries.front());
    }
    std::vector<std::string> all;
    std::set<std::uint32_t> seen;
    for (;;) { // leaf after leaf
        if (page.type() != PageType::IndexLeaf || get32(page.at(jet::index::kOwner)) != definition.page() || !seen.insert(number).second)
            broken();
        for (std::string& entry : entriesOfPage(page)) {
            if (entry.size() < 5)
                broken();
            all.push_back(std::move(entry));
        }
        number = get32(page.at(jet::index::kNext));
        if (number == 0)
            return all;
        file.read(number, page);
    }
}

} // namespace odbc::jet
