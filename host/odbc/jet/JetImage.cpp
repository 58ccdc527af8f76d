#include "JetImage.h"

#include "store/StoreTable.h"

#include <algorithm>

namespace odbc::jet {

namespace {
UsageRow rowOf(const JetFile& file, std::uint32_t pointer, JetPage& page) {
    const JetSlot slot = slotAt(file, pointer, page);
    if (slot.bytes.size() != usage::kRowSize)
        file.damaged("the map of free pages is not as long as it should be");
    UsageRow row;
    std::copy(slot.bytes.begin(), slot.bytes.end(), row.begin());
    return row;
}

std::uint32_t freePointer(const JetFile& file) {
    return get32(file.headerPage().at(header::kMapPointer));
}
} // namespace

JetImage::JetImage(const JetFile& file) : mFile(file), mCount(file.pageCount()) {
    JetPage page;
    const UsageRow row = rowOf(file, freePointer(file), page);
    const auto collect = [&](std::size_t first, const std::uint8_t* bits, std::size_t count) {
        for (std::size_t i = 0; i < count && first + i < mCount; ++i)
            if ((bits[i / 8] >> (i % 8) & 1) != 0)
                mFree.insert(static_cast<std::uint32_t>(first + i));
    };
    if (row[0] == usage::kInline) {
        collect(get32(row.data() + 1), row.data() + 5, usage::kInlinePages);
        return;
    }
    for (std::size_t i = 0; i < usage::kReferences; ++i) {
        const std::uint32_t bitmap = get32(row.data() + 1 + 4 * i);
        if (bitmap == 0)
            continue;
        file.read(bitmap, page);
        if (page.type() != PageType::Bitmap)
            file.damaged("page " + std::to_string(bitmap) + " should be a page of a usage map and is not");
        collect(i * usage::kPagesPerBitmap, page.at(usage::kBitmapHeader), usage::kPagesPerBitmap);
    }
}

JetPage JetImage::page(std::uint32_t number) const {
    JetPage page;
    if (const auto changed = mChanged.find(number); changed != mChanged.end()) {
        page.number = number;
        page.bytes = changed->second;
    } else {
        mFile.read(number, page);
    }
    return page;
}

PageBytes& JetImage::edit(std::uint32_t number) {
    if (const auto changed = mChanged.find(number); changed != mChanged.end())
        return changed->second;
    return mChanged.emplace(number, page(number).bytes).first->second;
}

std::uint32_t JetImage::allocate() {
    std::uint32_t number = mCount;
    if (!mFree.empty()) {
        number = *mFree.begin();
        mFree.erase(mFree.begin());
    } else if (mCount++ >= kMaxPages) {
        throw StoreError("Az adatbázis 2 GB-nál nagyobb lenne, ennyit egy Access fájl nem tárolhat.");
    }
    mChanged[number] = PageBytes{};
    return number;
}

void JetImage::setFree(std::uint8_t* bits, std::size_t first, std::size_t count) const {
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t page = first + i;
        const auto mask = static_cast<std::uint8_t>(1u << (i % 8));
        const bool free = page >= mCount || mFree.contains(static_cast<std::uint32_t>(page));
        bits[i / 8] = static_cast<std::uint8_t>(free ? bits[i / 8] | mask : bits[i / 8] & ~mask);
    }
}

void JetImage::addBitmap(UsageRow& row, std::size_t place) {
    const std::uint32_t bitmap = allocate();
    PageBytes& bytes = edit(bitmap);
    bytes[0] = static_cast<std::uint8_t>(PageType::Bitmap);
    bytes[1] = 1;
    put32(row.data() + 1 + 4 * place, bitmap);
}

void JetImage::saveFreeMap() {
    const std::uint32_t pointer = freePointer(mFile);
    JetPage at;
    UsageRow row = rowOf(mFile, pointer, at);
    if (row[0] == usage::kInline && get32(row.data() + 1) == 0 && mCount <= usage::kInlinePages) {
        setFree(row.data() + 5, 0, usage::kInlinePages);
    } else {
        if (row[0] == usage::kInline) { // its bits go to a page of their own
            row.fill(0);
            row[0] = usage::kReference;
        }
        for (std::size_t i = 0; i < usage::kReferences && i * usage::kPagesPerBitmap < mCount; ++i)
            if (get32(row.data() + 1 + 4 * i) == 0)
                addBitmap(row, i);
        for (std::size_t i = 0; i < usage::kReferences; ++i)
            if (const std::uint32_t bitmap = get32(row.data() + 1 + 4 * i))
                setFree(edit(bitmap).data() + usage::kBitmapHeader, i * usage::kPagesPerBitmap, usage::kPagesPerBitmap);
    }
    const JetSlot slot = slotOf(mFile, at, pointer & 0xFF);
    std::copy(row.begin(), row.end(), edit(pointer >> 8).begin() + (slot.bytes.data() - at.bytes.data()));
}

void JetImage::writeTo(int descriptor, const std::string& name) {
    saveFreeMap();
    JetPageStore store(descriptor, name);
    for (std::uint32_t number = 0; number < mCount; ++number)
        store.put(store.allocate(), page(number).bytes);
    store.close();
}

std::vector<JetImageRow> rowsOf(const JetFile& file, const JetPage& page) {
    std::vector<JetImageRow> rows;
    for (std::size_t i = 0; i < rowCountOf(file, page); ++i) {
        const JetSlot slot = slotOf(file, page, i);
        rows.push_back({slot.flags, {slot.bytes.begin(), slot.bytes.end()}});
    }
    return rows;
}

void layOutRows(PageBytes& page, const std::vector<JetImageRow>& rows) {
    std::fill(page.begin() + data::kRows, page.end(), std::uint8_t{0});
    std::size_t end = kPageSize, place = data::kRows;
    for (const JetImageRow& row : rows) {
        end -= row.bytes.size();
        std::copy(row.bytes.begin(), row.bytes.end(), page.begin() + static_cast<std::ptrdiff_t>(end));
        put16(page.data() + place, end | row.flags);
        place += 2;
    }
    put16(page.data() + data::kRowCount, rows.size());
    put16(page.data() + data::kFree, end - place);
}

std::size_t roomIn(const JetFile& file, const JetPage& page) {
    const std::size_t count = rowCountOf(file, page);
    const std::size_t end = count == 0 ? kPageSize : static_cast<std::size_t>(slotOf(file, page, count - 1).bytes.data() - page.bytes.data());
    return end - data::kRows - 2 * count;
}

bool hasRoom(const JetFile& file, const JetPage& page, std::size_t size) {
    return rowCountOf(file, page) < data::kMaxRows && roomIn(file, page) >= size + 2;
}

} // namespace odbc::jet
