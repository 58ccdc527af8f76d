#include "JetCheckIndex.h"

#include "CheckWeights.h"
#include "jet/JetDecoder.h"
#include "store/StoreText.h"

#include <algorithm>

namespace odbc::jet {

namespace {
constexpr int kMaxDepth = 12;

std::uint32_t bigEndian(const std::uint8_t* at) {
    return static_cast<std::uint32_t>(at[0]) << 24 | static_cast<std::uint32_t>(at[1]) << 16 |
           static_cast<std::uint32_t>(at[2]) << 8 | at[3];
}

// Reads the key of a text backwards, as it were: each weight must be that of the text's next
// character. Moves `key` behind the text. Nothing where a character's weight is not known here.
std::optional<bool> takesText(std::span<const std::uint8_t>& key, const std::u16string& text) {
    std::vector<CheckWeight> weights;
    for (const char16_t c : text.substr(0, kMaxTextLength)) {
        weights.push_back(checkWeightOf(c));
        if (!weights.back().known())
            return std::nullopt;
    }
    std::size_t at = 0;
    const auto takes = [&](std::uint8_t byte) { return at < key.size() && key[at++] == byte; };
    std::vector<std::uint8_t> accents;
    bool anyLast = false;
    for (const CheckWeight& weight : weights) {
        anyLast = anyLast || weight.atTheEnd != 0;
        if (weight.atTheEnd != 0)
            continue;
        if ((weight.letter > 0xFF && !takes(static_cast<std::uint8_t>(weight.letter >> 8))) || !takes(static_cast<std::uint8_t>(weight.letter)))
            return false;
        accents.push_back(weight.accent);
    }
    if (!takes(1))
        return false;
    while (!accents.empty() && accents.back() == 2)
        accents.pop_back();
    for (const std::uint8_t accent : accents)
        if (!takes(accent))
            return false;
    if (anyLast) {
        if (!takes(1) || !takes(1) || !takes(1))
            return false;
        std::size_t place = 0;
        for (const CheckWeight& weight : weights) {
            if (weight.atTheEnd == 0) {
                ++place;
                continue;
            }
            if (at + 4 > key.size() || ((key[at] << 8 | key[at + 1]) & 0x7FFF) != static_cast<int>(7 + 4 * place) ||
                key[at + 2] != 6 || key[at + 3] != weight.atTheEnd)
                return false;
            at += 4;
        }
    }
    if (!takes(0))
        return false;
    key = key.subspan(at);
    return true;
}
} // namespace

JetCheckIndexTree::JetCheckIndexTree(JetCheckContext& context, const JetCheckTable& table, const JetCheckIndex& index)
    : m_context(&context), m_table(&table), m_index(&index),
      m_what("the index \"" + index.name + "\" of the table \"" + table.name() + "\"") {}

void JetCheckIndexTree::check() {
    const std::set<std::uint32_t> listed =
        m_context->mapPages(m_index->map, m_table->definition().page(), "the map of " + m_what);
    walk(m_index->root, 0);
    checkLinks();
    for (const std::uint32_t page : listed)
        if (!m_pages.contains(page))
            m_context->report(page, "The page stands in the map of " + m_what + ", but not in its tree.");
    for (const std::uint32_t page : m_pages)
        if (!listed.contains(page))
            m_context->report(page, "The page stands in the tree of " + m_what + ", but not in its map.");
    checkEntries();
}

std::vector<JetCheckIndexTree::Key> JetCheckIndexTree::entriesOf(const JetPage& page) {
    const std::uint8_t* area = page.at(index::kEntries);
    const std::size_t prefix = get16(page.at(index::kPrefix));
    std::vector<Key> entries;
    std::size_t begin = 0;
    for (std::size_t end = 1; end <= index::kCapacity; ++end) {
        if ((*page.at(index::kMask + end / 8) >> (end % 8) & 1) == 0)
            continue;
        Key entry;
        if (!entries.empty() && prefix <= entries.front().size())
            entry.assign(entries.front().begin(), entries.front().begin() + static_cast<std::ptrdiff_t>(prefix));
        entry.insert(entry.end(), area + begin, area + end);
        entries.push_back(std::move(entry));
        begin = end;
    }
    if (get16(page.at(index::kFree)) != index::kCapacity - begin)
        m_context->report(page.number, "The page says that " + std::to_string(get16(page.at(index::kFree))) +
                                           " bytes are free, but there are " +
                                           std::to_string(index::kCapacity - begin) + ".");
    return entries;
}

std::optional<JetCheckIndexTree::Bounds> JetCheckIndexTree::walk(std::uint32_t number, int depth) {
    JetPage page;
    const bool there = number != 0 && number < m_context->file().pageCount();
    if (there)
        m_context->file().read(number, page);
    const bool node = there && page.type() == PageType::IndexNode;
    if (depth > kMaxDepth || !m_context->claim(number, node ? PageType::IndexNode : PageType::IndexLeaf, m_what))
        return std::nullopt;
    m_pages.insert(number);
    if (get32(page.at(index::kOwner)) != m_table->definition().page())
        m_context->report(number, "The page serves " + m_what + ", but belongs to the table " +
                                      std::to_string(get32(page.at(index::kOwner))) + ".");
    if (node)
        return walkNode(page, depth);
    m_leaves.push_back({number, get32(page.at(index::kPrevious)), get32(page.at(index::kNext))});
    const std::vector<Key> entries = entriesOf(page);
    for (const Key& entry : entries)
        m_entries.push_back({number, entry});
    if (entries.empty())
        return std::nullopt;
    return Bounds{entries.front(), entries.back()};
}

// A node's entry is the greatest one below its child; the last child hangs on the tail.
std::optional<JetCheckIndexTree::Bounds> JetCheckIndexTree::walkNode(const JetPage& page, int depth) {
    std::vector<std::pair<Key, std::uint32_t>> children;
    for (Key& entry : entriesOf(page)) {
        if (entry.size() < 8) {
            m_context->report(page.number, "An entry of the node is too short.");
            continue;
        }
        const std::uint32_t child = bigEndian(entry.data() + entry.size() - 4);
        entry.erase(entry.end() - 4, entry.end());
        children.emplace_back(std::move(entry), child);
    }
    if (const std::uint32_t tail = get32(page.at(index::kTail)); tail != 0)
        children.emplace_back(Key{}, tail);
    std::optional<Bounds> all;
    for (std::size_t i = 0; i < children.size(); ++i) {
        const auto bounds = walk(children[i].second, depth + 1);
        if (!bounds)
            continue;
        if ((!children[i].first.empty() && bounds->greatest > children[i].first) ||
            (i > 0 && bounds->least <= children[i - 1].first))
            m_context->report(page.number, "The node does not tell the bounds of its child, page " +
                                               std::to_string(children[i].second) + ".");
        if (!all)
            all = bounds;
        all->greatest = bounds->greatest;
    }
    return all;
}

// Leaves are chained in order. Jet hangs new leaves behind the last one before the tree knows them.
void JetCheckIndexTree::checkLinks() {
    while (!m_leaves.empty() && m_leaves.back().next != 0 && m_leaves.back().next < m_context->file().pageCount() &&
           !m_context->claimed(m_leaves.back().next))
        walk(m_leaves.back().next, kMaxDepth);
    for (std::size_t i = 0; i < m_leaves.size(); ++i) {
        const std::uint32_t previous = i == 0 ? 0 : m_leaves[i - 1].number,
                            next = i + 1 == m_leaves.size() ? 0 : m_leaves[i + 1].number;
        if (m_leaves[i].previous != previous || m_leaves[i].next != next)
            m_context->report(m_leaves[i].number, "The leaf is not chained to its neighbours in " + m_what + ".");
    }
}

void JetCheckIndexTree::checkEntries() {
    std::map<std::uint32_t, std::uint32_t> seen; // entries by row
    std::size_t distinct = 0;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const Key& entry = m_entries[i].bytes;
        if (entry.size() < 5) {
            m_context->report(m_entries[i].page, "An entry of " + m_what + " is too short.");
            continue;
        }
        const auto key = [](const Key& e) { return Key(e.begin(), e.end() - 4); };
        const bool equal = i > 0 && m_entries[i - 1].bytes.size() > 4 && key(entry) == key(m_entries[i - 1].bytes);
        distinct += equal ? 0 : 1;
        if (i > 0 && !(m_entries[i - 1].bytes < entry))
            m_context->report(m_entries[i].page, "An entry of " + m_what + " does not stand behind the one before it.");
        else if (equal && (m_index->flags & index::kUnique) != 0 && entry.front() == index::kAscendingValue)
            m_context->report(m_entries[i].page, "A key stands twice in " + m_what + ", which allows each once.");
        const std::uint32_t row = bigEndian(entry.data() + entry.size() - 4);
        ++seen[row];
        checkKey(entry, row);
    }
    for (const auto& [row, bytes] : m_table->rows()) {
        const std::uint32_t entries = seen.contains(row) ? seen[row] : 0;
        if (entries == 0 && !((m_index->flags & index::kIgnoreNulls) != 0 && allNull(bytes)))
            m_context->report(row >> 8,
                              "Row " + std::to_string(row & 0xFF) + " of the page is missing from " + m_what + ".");
        if (entries > 1)
            m_context->report(row >> 8, "Row " + std::to_string(row & 0xFF) + " of the page stands more than once in " +
                                            m_what + ".");
    }
    // Access leaves the count as it was when it deletes, so it may be greater. In the engine's own
    // tables it is never smaller; in others Access lets it lag, but a count of 0 makes it blind.
    const std::size_t least =
        m_table->definition().tableType == definition::kSystemTable ? distinct : std::min<std::size_t>(distinct, 1);
    if (m_index->said < least)
        m_context->report(m_table->definition().page(), "The definition counts " + std::to_string(m_index->said) +
                                                            " keys in " + m_what + ", but there are " +
                                                            std::to_string(distinct) + ".");
}

void JetCheckIndexTree::checkKey(const Key& entry, std::uint32_t row) {
    const auto found = m_table->rows().find(row);
    if (found == m_table->rows().end()) {
        m_context->report(row >> 8, "An entry of " + m_what + " leads to row " + std::to_string(row & 0xFF) +
                                        " of the page, which is not there.");
        return;
    }
    if (!agrees(std::span(entry).first(entry.size() - 4), found->second).value_or(true))
        m_context->report(row >> 8, "The key of row " + std::to_string(row & 0xFF) + " of the page in " + m_what +
                                        " is not that of its values.");
}

std::optional<bool> JetCheckIndexTree::agrees(std::span<const std::uint8_t> key,
                                              std::span<const std::uint8_t> row) const {
    for (const JetCheckIndex::Part& part : m_index->parts) {
        const JetColumn* column = m_table->column(part.column);
        if (column == nullptr || !part.ascending || (!column->is(ColumnType::Long) && !column->is(ColumnType::Text)))
            return std::nullopt;
        const auto value = m_table->value(row, *column);
        if (key.empty() || key.front() != (value ? index::kAscendingValue : index::kAscendingNull))
            return false;
        key = key.subspan(1);
        if (!value)
            continue;
        if (column->is(ColumnType::Long)) {
            if (key.size() < 4 || value->size() != 4 || bigEndian(key.data()) != (get32(value->data()) ^ 0x80000000))
                return false;
            key = key.subspan(4);
            continue;
        }
        std::string utf8;
        std::u16string wide;
        appendJet4Text(*value, utf8);
        appendUtf16(utf8, wide);
        if (const auto taken = takesText(key, wide); !taken || !*taken)
            return taken;
    }
    return key.empty();
}

bool JetCheckIndexTree::allNull(std::span<const std::uint8_t> row) const {
    return std::all_of(m_index->parts.begin(), m_index->parts.end(), [&](const JetCheckIndex::Part& part) {
        const JetColumn* column = m_table->column(part.column);
        return column != nullptr && !m_table->value(row, *column);
    });
}

} // namespace odbc::jet
