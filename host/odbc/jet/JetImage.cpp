#include "JetImage.h"

#include "JetUsageMap.h"
#include "store/StoreTable.h"

#include <algorithm>

namespace odbc::jet {

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
    if (!mReleased.empty()) {
        number = *mReleased.begin();
        mReleased.erase(mReleased.begin());
    } else if (mCount++ >= kMaxPages) {
        throw StoreError("The database would grow past 2 GB, the most that an Access file can hold.");
    }
    mChanged[number] = PageBytes{};
    return number;
}

void JetImage::release(std::uint32_t page) {
    mReleased.insert(page);
}

// Pages of ours are used or released; of the others the file's own word stands.
void JetImage::setFree(std::uint8_t* bits, std::size_t first, std::size_t count) const {
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t page = first + i;
        const auto number = static_cast<std::uint32_t>(page);
        const auto mask = static_cast<std::uint8_t>(1u << (i % 8));
        const bool set = page >= mCount || mReleased.contains(number);
        const bool clear = !set && page >= mFile.pageCount();
        bits[i / 8] = static_cast<std::uint8_t>(set ? bits[i / 8] | mask : clear ? bits[i / 8] & ~mask : bits[i / 8]);
    }
}

void JetImage::saveFreeMap() {
    const std::uint32_t pointer = get32(mFile.headerPage().at(header::kMapPointer)), home = pointer >> 8;
    const JetPage at = page(home);
    const JetSlot slot = slotOf(mFile, at, pointer & 0xFF);
    if (slot.bytes.size() != usage::kRowSize)
        mFile.damaged("the map of free pages is not as long as it should be");
    const auto place = static_cast<std::size_t>(slot.bytes.data() - at.bytes.data());
    UsageRow row;
    std::copy(slot.bytes.begin(), slot.bytes.end(), row.begin());
    if (row[0] == usage::kInline && get32(row.data() + 1) == 0 && mCount <= usage::kInlinePages) {
        setFree(row.data() + 5, 0, usage::kInlinePages);
    } else {
        if (row[0] == usage::kInline) { // its bits go to a page of their own
            const UsageRow before = row;
            const std::uint32_t bitmap = allocate();
            PageBytes& bytes = edit(bitmap);
            bytes[0] = static_cast<std::uint8_t>(PageType::Bitmap);
            bytes[1] = 1;
            const std::uint32_t start = get32(before.data() + 1);
            if (start % 8 != 0 || start / 8 + usage::kInlineBytes > kPageSize - usage::kBitmapHeader)
                mFile.damaged("the map of free pages begins at an impossible page");
            std::copy(before.begin() + 5, before.end(), bytes.begin() + static_cast<std::ptrdiff_t>(usage::kBitmapHeader + start / 8));
            row.fill(0);
            row[0] = usage::kReference;
            put32(row.data() + 1, bitmap);
        }
        for (std::size_t i = 0; i < usage::kReferences && i * usage::kPagesPerBitmap < mCount; ++i) {
            std::uint32_t bitmap = get32(row.data() + 1 + 4 * i);
            if (bitmap == 0) {
                bitmap = allocate();
                edit(bitmap)[0] = static_cast<std::uint8_t>(PageType::Bitmap);
                edit(bitmap)[1] = 1;
                put32(row.data() + 1 + 4 * i, bitmap);
            }
        }
        for (std::size_t i = 0; i < usage::kReferences; ++i)
            if (const std::uint32_t bitmap = get32(row.data() + 1 + 4 * i))
                setFree(edit(bitmap).data() + usage::kBitmapHeader, i * usage::kPagesPerBitmap, usage::kPagesPerBitmap);
    }
    std::copy(row.begin(), row.end(), edit(home).begin() + static_cast<std::ptrdiff_t>(place));
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

bool hasRoom(const JetPage& page, std::size_t size) {
    return get16(page.at(data::kRowCount)) < data::kMaxRows && get16(page.at(data::kFree)) >= size + 2;
}

} // namespace odbc::jet
