#include "JetIndexBuilder.h"

#include "JetCollation.h"

#include <algorithm>

namespace odbc::jet {

namespace {
void appendBigEndian(std::uint32_t value, std::string& out) {
    for (int shift = 24; shift >= 0; shift -= 8)
        out += static_cast<char>(value >> shift);
}

// One page of a level: its entries, what a node's last child is, and the greatest entry below it.
struct TreePage {
    std::uint32_t number = 0;
    std::vector<std::string> entries;
    std::uint32_t tail = 0;
    std::string greatest;
};

PageBytes encode(const TreePage& page, PageType type, std::uint32_t owner, std::uint32_t previous, std::uint32_t next) {
    PageBytes bytes{};
    bytes[0] = static_cast<std::uint8_t>(type);
    bytes[1] = 1;
    put32(bytes.data() + index::kOwner, owner);
    put32(bytes.data() + index::kPrevious, previous);
    put32(bytes.data() + index::kNext, next);
    put32(bytes.data() + index::kTail, page.tail);
    std::size_t at = 0;
    for (const std::string& entry : page.entries) {
        std::memcpy(bytes.data() + index::kEntries + at, entry.data(), entry.size());
        at += entry.size();
        std::uint8_t& mask = bytes[index::kMask + at / 8];
        mask = static_cast<std::uint8_t>(mask | 1u << (at % 8));
    }
    put16(bytes.data() + index::kFree, index::kCapacity - at);
    return bytes;
}

std::vector<TreePage> leaves(const std::vector<std::string>& entries) {
    std::vector<TreePage> pages(1);
    std::size_t used = 0;
    for (const std::string& entry : entries) {
        if (used + entry.size() > index::kCapacity) {
            pages.emplace_back();
            used = 0;
        }
        used += entry.size();
        pages.back().entries.push_back(entry);
        pages.back().greatest = entry;
    }
    return pages;
}

// The level above: each node has an entry for every child but its last, which is its tail.
std::vector<TreePage> nodesOver(const std::vector<TreePage>& children) {
    std::vector<TreePage> nodes(1);
    std::size_t used = 0;
    for (const TreePage& child : children) {
        TreePage* node = &nodes.back();
        if (node->tail != 0) {
            std::string entry = node->greatest; // of the child that has been the tail
            appendBigEndian(node->tail, entry);
            if (used + entry.size() > index::kCapacity) {
                node = &nodes.emplace_back();
                used = 0;
            } else {
                used += entry.size();
                node->entries.push_back(std::move(entry));
            }
        }
        node->tail = child.number;
        node->greatest = child.greatest;
    }
    return nodes;
}
} // namespace

void appendLongKey(std::int32_t value, std::string& key) {
    key += static_cast<char>(index::kAscendingValue);
    appendBigEndian(static_cast<std::uint32_t>(value) ^ 0x80000000, key);
}

bool appendTextKey(std::u16string_view text, std::string& key) {
    key += static_cast<char>(index::kAscendingValue);
    if (appendSortKey(text, key))
        return true;
    key.pop_back();
    return false;
}

void JetIndexBuilder::add(std::string key, std::uint32_t rowPointer) {
    appendBigEndian(rowPointer, key);
    m_entries.push_back(std::move(key));
}

JetPageSet JetIndexBuilder::write(std::uint32_t root, std::uint32_t owner, JetPages& store) {
    const auto unsignedLess = [](const std::string& a, const std::string& b) {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
            return static_cast<unsigned char>(x) < static_cast<unsigned char>(y);
        });
    };
    std::sort(m_entries.begin(), m_entries.end(), unsignedLess);
    m_distinct = 0;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const auto key = [&](std::size_t entry) {
            return std::string_view(m_entries[entry]).substr(0, m_entries[entry].size() - 4);
        };
        m_distinct += i == 0 || key(i) != key(i - 1) ? 1 : 0;
    }

    JetPageSet pages;
    pages.add(root);
    PageType type = PageType::IndexLeaf;
    for (std::vector<TreePage> level = leaves(m_entries);; level = nodesOver(level), type = PageType::IndexNode) {
        if (level.size() == 1) {
            level.front().number = root;
            store.put(root, encode(level.front(), type, owner, 0, 0));
            return pages;
        }
        for (TreePage& page : level)
            pages.add(page.number = store.allocate());
        for (std::size_t i = 0; i < level.size(); ++i)
            store.put(level[i].number, encode(level[i], type, owner, i == 0 ? 0 : level[i - 1].number,
                                              i + 1 == level.size() ? 0 : level[i + 1].number));
    }
}

} // namespace odbc::jet
