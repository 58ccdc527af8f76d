// Rows of one table as the bytes that lie on its data pages. Long values go to pages of their own
// while a row is encoded.
#pragma once

#include "JetRowPages.h"
#include "JetTablePlan.h"
#include "JetTextEncoder.h"

namespace odbc::jet {

class JetRowEncoder {
public:
    // The plan outlives the encoder.
    JetRowEncoder(const JetTablePlan& plan, JetPages& store);

    // One cell a column; the bytes are valid until the next call. Throws StoreError for a value that
    // its column cannot hold and for a row that no page can hold.
    std::span<const std::uint8_t> encode(std::span<const StoreCell> cells);
    // One cell that is not null, as it lies in a row; likewise.
    std::span<const std::uint8_t> encodeAlone(std::size_t column, const StoreCell& cell);
    // Puts the last pages of long values; then their pages are known: one a long column, in order.
    void finish();
    const std::vector<JetRowPages>& longValues() const { return m_longValues; }

private:
    void encodeFixed(const JetColumnPlan& column, const StoreCell& cell, std::uint8_t* at) const;
    void appendVariable(const JetColumnPlan& column, const StoreCell& cell);
    void appendText(const JetColumnPlan& column, std::string_view utf8);
    void appendLongValue(const JetColumnPlan& column, const StoreCell& cell);
    std::uint32_t storeLongValue(JetRowPages& pages, std::span<const std::uint8_t> value);
    void append(std::span<const std::uint8_t> bytes);
    [[noreturn]] void fail(const JetColumnPlan& column, const std::string& why) const;
    std::int64_t integerOf(const JetColumnPlan& column, const StoreCell& cell, std::int64_t least,
                           std::int64_t most) const;
    double realOf(const JetColumnPlan& column, const StoreCell& cell) const;
    void encodeCurrency(const JetColumnPlan& column, const StoreCell& cell, std::uint8_t* at) const;
    void encodeNumeric(const JetColumnPlan& column, const StoreCell& cell, std::uint8_t* at) const;
    void encodeGuid(const JetColumnPlan& column, const StoreCell& cell, std::uint8_t* at) const;

    const JetTablePlan* m_plan;
    std::vector<JetRowPages> m_longValues;
    std::vector<std::size_t> m_longPlace; // of a column number in the above
    std::vector<std::uint8_t> m_row;
    std::vector<std::uint16_t> m_offsets;
    std::size_t m_size = 0;
    JetTextEncoder m_text;
    std::vector<std::uint8_t> m_piece;
};

} // namespace odbc::jet
