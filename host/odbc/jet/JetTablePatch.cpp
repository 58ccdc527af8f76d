#include "JetTablePatch.h"

#include "JetIndexBuilder.h"
#include "JetUsageMap.h"

#include <algorithm>
#include <bit>

namespace odbc::jet {

namespace {
constexpr std::uint16_t kGone = data::kDeleted | data::kOverflow; // as Access marks a row that is deleted

JetTablePlan planOf(const std::string& name, const StoreTable& shape, const std::vector<JetColumn>& columns) {
    JetTablePlan plan;
    plan.name = name;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const JetColumn& column = columns[i];
        JetColumnPlan& planned = plan.columns.emplace_back();
        planned.column = shape.columns[i];
        planned.type = static_cast<ColumnType>(column.type);
        planned.flags = column.flags;
        planned.extraFlags = column.extraFlags & columnbit::kCompressed;
        planned.variableIndex = column.variableIndex;
        planned.fixedOffset = column.fixedOffset;
        planned.length = column.length;
        if (column.fixed())
            plan.fixedSize = static_cast<std::uint16_t>(std::max<std::size_t>(plan.fixedSize, column.fixedOffset + std::size_t{column.length}));
        else
            plan.variableCount = static_cast<std::uint16_t>(std::max<std::size_t>(plan.variableCount, column.variableIndex + std::size_t{1}));
    }
    plan.fixedSize = std::max<std::uint16_t>(plan.fixedSize, 32); // a value is encoded by itself too
    return plan;
}

std::uint32_t rowOfEntry(const std::string& entry) {
    std::uint32_t row = 0;
    for (std::size_t i = entry.size() - 4; i < entry.size(); ++i)
        row = row << 8 | static_cast<std::uint8_t>(entry[i]);
    return row;
}

JetPageSet setOf(const std::set<std::uint32_t>& pages) {
    JetPageSet set;
    for (const std::uint32_t page : pages)
        set.add(page);
    return set;
}

std::set<std::uint32_t> pagesIn(const JetPageSet& set) {
    std::set<std::uint32_t> pages;
    for (const JetPageSet::Run& run : set.runs())
        for (std::uint32_t page = run.first; page < run.end; ++page)
            pages.insert(page);
    return pages;
}

std::set<std::uint32_t> pagesOf(const JetFile& file, std::uint32_t map) {
    const std::vector<std::uint32_t> pages = pagesOfMap(file, map);
    return {pages.begin(), pages.end()};
}
} // namespace

JetTablePatch::JetTablePatch(const JetFile& file, const JetOrigin& origin, JetImage& image)
    : mFile(file), mOrigin(origin), mImage(image), mDecoder(file), mDefinition(readDefinition(file, origin.page, mDecoder)),
      mTail(readTail(file, mDefinition)), mColumns(orderedColumns(mDefinition)),
      mPlan(planOf(origin.name, describeTable(file, origin.name, mColumns), mColumns)), mEncoder(std::make_unique<JetRowEncoder>(mPlan, image)),
      mRow(std::make_unique<JetRow>(file, mDefinition)), mUsed(pagesOf(file, mDefinition.usedMap)), mRoom(pagesOf(file, mDefinition.freeMap)) {}

void JetTablePatch::read(std::size_t row) {
    if (!mChanged) { // not before something is changed at all
        mChanged = true;
        for (const JetIndex& index : mTail.indexes) {
            Index& read = mIndexes.emplace_back();
            for (const std::string& entry : entriesOfIndex(mFile, mDefinition, index))
                read.entries[rowOfEntry(entry)] = entry.substr(0, entry.size() - 4);
        }
    }
    if (row < mOrigin.rows.size())
        mRow->parse(rowAt(mFile, mDefinition, mOrigin.rows[row], mRowPage));
}

// ---- values ------------------------------------------------------------------------------

std::string JetTablePatch::encoded(std::size_t column, const StoreCell& cell) {
    const auto bytes = mEncoder->encodeAlone(column, cell);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Whether the row that was read last has the value already: then its bytes stay, however they came about.
bool JetTablePatch::isSame(std::size_t column, const StoreCell& cell) {
    std::string text;
    const StoreCell before = cellOf(mFile, mDecoder, mColumns[column], mPlan.columns[column].column.kind, *mRow, text);
    if (before.type != cell.type)
        return false;
    switch (cell.type) {
    case StoreCell::Type::Null:
        return true;
    case StoreCell::Type::Integer:
        return before.integer == cell.integer;
    case StoreCell::Type::Real:
        return std::bit_cast<std::uint64_t>(before.real) == std::bit_cast<std::uint64_t>(cell.real);
    case StoreCell::Type::Text:
    case StoreCell::Type::Bytes:
        return before.bytes == cell.bytes;
    }
    return false;
}

std::vector<std::uint8_t> JetTablePatch::assemble(const JetValues& values) const {
    std::vector<std::uint8_t> row(2), mask((mDefinition.maxColumns + std::size_t{7}) / 8);
    put16(row.data(), mDefinition.maxColumns);
    std::vector<const std::string*> variables(mDefinition.variableColumns);
    for (const JetColumn& column : mColumns) {
        const std::optional<std::string>& value = values[column.number];
        if (column.fixed() && !column.is(ColumnType::Bool))
            row.resize(std::max<std::size_t>(row.size(), std::size_t{2} + column.fixedOffset + column.length));
        if (!value)
            continue;
        mask[column.number / 8] = static_cast<std::uint8_t>(mask[column.number / 8] | 1u << (column.number % 8));
        if (!column.fixed())
            variables.at(column.variableIndex) = &*value;
        else if (!column.is(ColumnType::Bool))
            std::copy_n(value->begin(), std::min<std::size_t>(value->size(), column.length), row.begin() + 2 + column.fixedOffset);
    }
    std::vector<std::size_t> offsets;
    for (const std::string* value : variables) {
        offsets.push_back(row.size());
        if (value != nullptr)
            row.insert(row.end(), value->begin(), value->end());
    }
    if (!variables.empty()) { // their end, their beginnings from the last to the first, their number
        offsets.push_back(row.size());
        for (std::size_t i = offsets.size(); i-- > 0;) {
            row.resize(row.size() + 2);
            put16(row.data() + row.size() - 2, offsets[i]);
        }
        row.resize(row.size() + 2);
        put16(row.data() + row.size() - 2, variables.size());
    }
    row.insert(row.end(), mask.begin(), mask.end());
    if (row.size() > data::kMaxRow)
        throw StoreError("A tábla (" + mOrigin.name + ") egyik sora hosszabb, mint az Accessben megengedett 4060 bájt.");
    return row;
}

// ---- rows --------------------------------------------------------------------------------

void JetTablePatch::removed(std::size_t row) {
    read(row);
    const JetValues values = valuesOf(mDefinition, *mRow);
    for (std::size_t i = 0; i < mColumns.size(); ++i)
        if (mPlan.columns[i].isLong() && values[mColumns[i].number])
            eraseLong(*values[mColumns[i].number]);
    erase(mOrigin.rows[row]);
    for (Index& index : mIndexes)
        index.entries.erase(mOrigin.rows[row]);
    --mRows;
}

void JetTablePatch::replaced(std::size_t row, std::span<const StoreCell> cells) {
    read(row);
    const JetValues before = valuesOf(mDefinition, *mRow);
    JetValues values = before;
    for (std::size_t i = 0; i < mColumns.size(); ++i) {
        const JetColumn& column = mColumns[i];
        if (isSame(i, cells[i]))
            continue;
        std::optional<std::string>& value = values[column.number];
        if (mPlan.columns[i].isLong() && value)
            eraseLong(*value);
        value.reset();
        if (column.is(ColumnType::Bool) ? cells[i].integer != 0 : cells[i].type != StoreCell::Type::Null)
            value = column.is(ColumnType::Bool) ? std::string() : encoded(i, cells[i]);
    }
    if (values == before)
        return;
    const std::vector<std::uint8_t> bytes = assemble(values);
    erase(mOrigin.rows[row]);
    addKeys(values, insert(bytes), &before, mOrigin.rows[row]);
}

void JetTablePatch::added(std::span<const StoreCell> cells) {
    read(mOrigin.rows.size());
    JetValues values(mDefinition.maxColumns);
    for (std::size_t i = 0; i < mColumns.size(); ++i)
        if (mColumns[i].is(ColumnType::Bool) ? cells[i].integer != 0 : cells[i].type != StoreCell::Type::Null)
            values[mColumns[i].number] = mColumns[i].is(ColumnType::Bool) ? std::string() : encoded(i, cells[i]);
    addKeys(values, insert(assemble(values)), nullptr, 0);
    ++mRows;
}

bool JetTablePatch::isOwn(const JetPage& page) const {
    return page.type() == PageType::Data && page.owner() == mDefinition.page();
}

std::uint32_t JetTablePatch::pageFor(std::size_t size) {
    if (mOpen != 0 && hasRoom(mFile, mImage.page(mOpen), size))
        return mOpen;
    for (const std::uint32_t page : mRoom)
        if (mUsed.contains(page) && isOwn(mImage.page(page)) && hasRoom(mFile, mImage.page(page), size))
            return page;
    const std::uint32_t page = mImage.allocate();
    PageBytes& bytes = mImage.edit(page);
    bytes[0] = static_cast<std::uint8_t>(PageType::Data);
    bytes[1] = 1;
    put32(bytes.data() + data::kOwner, mDefinition.page());
    layOutRows(bytes, {});
    mUsed.insert(page);
    return page;
}

std::uint32_t JetTablePatch::insert(const std::vector<std::uint8_t>& row) {
    if (mOpen == 0 || !hasRoom(mFile, mImage.page(mOpen), row.size()))
        mOpen = pageFor(row.size());
    const JetPage page = mImage.page(mOpen);
    const std::size_t count = rowCountOf(mFile, page), free = roomIn(mFile, page);
    PageBytes& bytes = mImage.edit(mOpen);
    const std::size_t begin = data::kRows + 2 * count + free - row.size();
    std::copy(row.begin(), row.end(), bytes.begin() + static_cast<std::ptrdiff_t>(begin));
    put16(bytes.data() + data::kRows + 2 * count, begin);
    put16(bytes.data() + data::kRowCount, count + 1);
    put16(bytes.data() + data::kFree, free - row.size() - 2);
    return mOpen << 8 | static_cast<std::uint32_t>(count);
}

// The row's bytes go to the page's room. Its place stays taken, so that the rows behind it keep theirs; at the end of
// the page places are given back, or a page would run out of them.
void JetTablePatch::empty(std::uint32_t pointer) {
    const JetPage page = mImage.page(pointer >> 8);
    std::vector<JetImageRow> rows = rowsOf(mFile, page);
    rows.at(pointer & 0xFF) = {kGone, {}};
    while (!rows.empty() && (rows.back().flags & data::kDeleted) != 0 && rows.back().bytes.empty())
        rows.pop_back();
    layOutRows(mImage.edit(pointer >> 8), rows);
}

void JetTablePatch::erase(std::uint32_t pointer) {
    const JetPage page = mImage.page(pointer >> 8);
    const JetSlot slot = slotOf(mFile, page, pointer & 0xFF);
    if ((slot.flags & data::kOverflow) != 0 && slot.bytes.size() >= 4) {
        const std::uint32_t far = get32(slot.bytes.data());
        empty(far);
        mRoom.insert(far >> 8);
    }
    empty(pointer);
    mRoom.insert(pointer >> 8);
}

void JetTablePatch::eraseLong(const std::string& inRow) {
    if (inRow.size() < longvalue::kHeader)
        return;
    const auto* at = reinterpret_cast<const std::uint8_t*>(inRow.data());
    const std::uint32_t head = get32(at);
    if ((head & longvalue::kInline) != 0 || (head & longvalue::kLengthMask) == 0)
        return;
    std::uint32_t pointer = get32(at + 4);
    while (pointer != 0) {
        const JetPage page = mImage.page(pointer >> 8);
        if (page.owner() != data::kLongValueOwner)
            mFile.damaged("page " + std::to_string(page.number) + " should hold a long value and does not");
        const JetSlot slot = slotOf(mFile, page, pointer & 0xFF);
        const std::uint32_t next = (head & longvalue::kSinglePage) != 0 || slot.bytes.size() < 4 ? 0 : get32(slot.bytes.data());
        empty(pointer); // an emptied row has no next one, so that a ring ends
        pointer = next;
    }
}

// ---- indexes, maps, counts ---------------------------------------------------------------

void JetTablePatch::addKeys(const JetValues& values, std::uint32_t pointer, const JetValues* before, std::uint32_t beforePointer) {
    for (std::size_t i = 0; i < mIndexes.size(); ++i) {
        const JetIndex& index = mTail.indexes[i];
        std::map<std::uint32_t, std::string>& entries = mIndexes[i].entries;
        const bool same = before != nullptr && std::all_of(index.parts.begin(), index.parts.end(), [&](const JetIndex::Part& part) {
                              return (*before)[part.column] == values[part.column];
                          });
        const auto old = before != nullptr ? entries.find(beforePointer) : entries.end();
        if (same && old == entries.end())
            continue;
        std::string key;
        if (same) {
            key = old->second;
        } else {
            const std::optional<JetKey> made = keyOf(mDefinition, index, values);
            if (!made)
                throw StoreError("A tábla (" + mOrigin.name + ") indexében (" + index.name + ") egy sor szövegének nincs ismert helye.");
            if (!made->allNull || (index.flags & jet::index::kIgnoreNulls) == 0)
                key = made->bytes;
        }
        if (old != entries.end())
            entries.erase(old);
        if (!key.empty())
            entries[pointer] = key;
    }
}

void JetTablePatch::saveIndex(std::size_t number) {
    const JetIndex& index = mTail.indexes[number];
    for (const std::uint32_t page : pagesOf(mFile, index.map)) {
        const JetPage old = mImage.page(page);
        if ((old.type() != PageType::IndexNode && old.type() != PageType::IndexLeaf) || get32(old.at(jet::index::kOwner)) != mDefinition.page())
            mFile.damaged("the map of the index \"" + index.name + "\" lists a page that is not its own");
        if (page != index.root)
            mImage.release(page);
    }
    JetIndexBuilder builder;
    for (const auto& [row, key] : mIndexes[number].entries)
        builder.add(key, row);
    const JetPageSet pages = builder.write(index.root, mDefinition.page(), mImage);
    mIndexes[number].distinct = builder.distinctKeys();
    saveMap(index.map, pagesIn(pages));
}

void JetTablePatch::saveMap(std::uint32_t pointer, const std::set<std::uint32_t>& pages) {
    const JetPage at = mImage.page(pointer >> 8);
    const JetSlot slot = slotOf(mFile, at, pointer & 0xFF);
    if (slot.bytes.size() != usage::kRowSize)
        mFile.damaged("the usage map on page " + std::to_string(at.number) + " is not as long as it should be");
    if (slot.bytes[0] == usage::kReference)
        for (std::size_t i = 0; i < usage::kReferences; ++i)
            if (const std::uint32_t bitmap = get32(slot.bytes.data() + 1 + 4 * i))
                mImage.release(bitmap);
    const UsageRow row = usageRow(setOf(pages), mImage);
    std::copy(row.begin(), row.end(), mImage.edit(pointer >> 8).begin() + (slot.bytes.data() - at.bytes.data()));
}

void JetTablePatch::saveLongMaps() {
    mEncoder->finish();
    std::size_t place = 0;
    for (std::size_t i = 0; i < mColumns.size(); ++i) {
        if (!mPlan.columns[i].isLong())
            continue;
        const std::set<std::uint32_t> added = pagesIn(mEncoder->longValues()[place++].used());
        const auto map = std::find_if(mTail.longMaps.begin(), mTail.longMaps.end(), [&](const JetLongMap& m) { return m.column == mColumns[i].number; });
        if (added.empty())
            continue;
        if (map == mTail.longMaps.end())
            mFile.damaged("the column \"" + mColumns[i].name + "\" has no map of its long values");
        std::set<std::uint32_t> all = pagesOf(mFile, map->used);
        all.insert(added.begin(), added.end());
        saveMap(map->used, all);
    }
}

void JetTablePatch::saveCounter(std::int64_t lastNumber) {
    constexpr std::size_t kLastNumber = 20;
    const auto number = static_cast<std::uint32_t>(lastNumber);
    if (get32(mImage.page(mDefinition.page()).at(kLastNumber)) != number)
        put32(mImage.edit(mDefinition.page()).data() + kLastNumber, number);
}

void JetTablePatch::saveCounts() {
    PageBytes& page = mImage.edit(mDefinition.page());
    put32(page.data() + definition::kRowCount, static_cast<std::uint32_t>(static_cast<std::int64_t>(mOrigin.rows.size()) + mRows));
    for (std::size_t i = 0; i < mIndexes.size(); ++i)
        put32(page.data() + definition::kBody + definition::kIndexCountSize * i + 4, mIndexes[i].distinct);
}

void JetTablePatch::finish(std::optional<std::int64_t> lastNumber) {
    for (std::size_t i = 0; i < mIndexes.size(); ++i)
        saveIndex(i);
    saveLongMaps();
    if (mOpen != 0)
        mRoom.insert(mOpen);
    std::erase_if(mRoom, [&](std::uint32_t page) { return !mUsed.contains(page) || !isOwn(mImage.page(page)) || !hasRoom(mFile, mImage.page(page), 1); });
    saveMap(mDefinition.usedMap, mUsed);
    saveMap(mDefinition.freeMap, mRoom);
    saveCounts();
    if (lastNumber)
        saveCounter(*lastNumber);
}

} // namespace odbc::jet
