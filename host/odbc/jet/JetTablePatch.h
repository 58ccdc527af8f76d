// The changes of one table in an Access file that is changed in places.
#pragma once

#include "JetImage.h"
#include "JetKeys.h"
#include "JetRowEncoder.h"
#include "JetSource.h"

#include <map>
#include <memory>
#include <set>

namespace odbc::jet {

class JetTablePatch : public ChangeSink {
public:
    JetTablePatch(const JetFile& file, const JetOrigin& origin, JetImage& image);

    void removed(std::size_t row) override;
    void replaced(std::size_t row, std::span<const StoreCell> cells) override;
    void added(std::span<const StoreCell> cells) override;

    bool changed() const { return mChanged; }
    // Brings indexes, maps and counts up to date.
    void finish(std::optional<std::int64_t> lastNumber);
    void saveCounter(std::int64_t lastNumber);

private:
    void read(std::size_t row);
    bool isSame(std::size_t column, const StoreCell& cell);
    bool isOwn(const JetPage& page) const;
    std::string encoded(std::size_t column, const StoreCell& cell);
    std::vector<std::uint8_t> assemble(const JetValues& values) const;
    std::uint32_t insert(const std::vector<std::uint8_t>& row);
    std::uint32_t pageFor(std::size_t size);
    void erase(std::uint32_t pointer);
    void empty(std::uint32_t pointer);
    void eraseLong(const std::string& inRow);
    void addKeys(const JetValues& values, std::uint32_t pointer, const JetValues* before, std::uint32_t beforePointer);
    void saveIndex(std::size_t index);
    void saveMap(std::uint32_t pointer, const std::set<std::uint32_t>& pages);
    void saveLongMaps();
    void saveCounts();

    const JetFile& mFile;
    const JetOrigin& mOrigin;
    JetImage& mImage;
    JetDecoder mDecoder;
    JetDefinition mDefinition;
    JetTail mTail;
    std::vector<JetColumn> mColumns; // in the order of the cells
    JetTablePlan mPlan;              // the same columns
    std::unique_ptr<JetRowEncoder> mEncoder;
    JetPage mRowPage, mOtherPage;
    std::unique_ptr<JetRow> mRow; // that was read last

    std::set<std::uint32_t> mUsed, mRoom; // pages
    std::uint32_t mOpen = 0;              // the page that took the last row
    std::int64_t mRows = 0;               // more than before
    struct Index {
        std::map<std::uint32_t, std::string> entries; // keys by row
        std::uint32_t distinct = 0;
    };
    std::vector<Index> mIndexes;
    bool mChanged = false;
};

} // namespace odbc::jet
