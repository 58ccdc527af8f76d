// An Access file that is changed in places: the pages as they stand, and those that were changed or added.
#pragma once

#include "JetFile.h"
#include "JetUsageMap.h"

#include <map>
#include <set>

namespace odbc::jet {

class JetImage : public JetPages {
public:
    explicit JetImage(const JetFile& file);

    JetPage page(std::uint32_t number) const;
    // To be changed.
    PageBytes& edit(std::uint32_t number);
    // Pages that the file calls free or that were released here come first, then new ones behind the end.
    std::uint32_t allocate() override;
    void put(std::uint32_t page, const PageBytes& bytes) override { edit(page) = bytes; }
    void release(std::uint32_t page) { mFree.insert(page); }

    // The whole file, with the map of free pages brought up to date.
    void writeTo(int descriptor, const std::string& name);

private:
    void saveFreeMap();
    void addBitmap(UsageRow& row, std::size_t place);
    void setFree(std::uint8_t* bits, std::size_t first, std::size_t count) const;

    const JetFile& mFile;
    std::uint32_t mCount;
    std::map<std::uint32_t, PageBytes> mChanged;
    std::set<std::uint32_t> mFree; // within the file
};

// One row of a data page, as it is put back.
struct JetImageRow {
    std::uint16_t flags = 0;
    std::vector<std::uint8_t> bytes;
};
std::vector<JetImageRow> rowsOf(const JetFile& file, const JetPage& page);
// Lays the rows out anew behind the page's header; they must fit.
void layOutRows(PageBytes& page, const std::vector<JetImageRow>& rows);
// The room between the list of rows and the rows, whatever the page's header says of it.
std::size_t roomIn(const JetFile& file, const JetPage& page);
// Whether a further row fits.
bool hasRoom(const JetFile& file, const JetPage& page, std::size_t size);

} // namespace odbc::jet
