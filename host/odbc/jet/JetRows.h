// The rows of a table in a file, and the bytes of each column in them.
#pragma once

#include "JetDefinition.h"

#include <functional>
#include <optional>

namespace odbc::jet {

// Calls for every row that is not deleted, in page order; a row that moved to another page is
// followed. `pointer` is where the table lists the row. The bytes last for the call.
void forEachRow(const JetFile& file, const JetDefinition& definition,
                const std::function<void(std::uint32_t pointer, std::span<const std::uint8_t> row)>& take);

// The row that the table lists there, followed where it moved; its bytes lie in `page`.
std::span<const std::uint8_t> rowAt(const JetFile& file, const JetDefinition& definition, std::uint32_t pointer, JetPage& page);

// A row taken apart. Throws StoreError where its parts contradict each other.
class JetRow {
public:
    JetRow(const JetFile& file, const JetDefinition& definition);
    void parse(std::span<const std::uint8_t> row);
    // The column's bytes, nothing where it is null. Bools have none: see boolean().
    std::optional<std::span<const std::uint8_t>> value(const JetColumn& column) const;
    bool boolean(const JetColumn& column) const { return present(column); }

private:
    bool present(const JetColumn& column) const {
        return column.number < m_columns && (m_mask[column.number / 8] >> (column.number % 8) & 1) != 0;
    }
    void parseOffsets(std::size_t end);
    void parseOffsetsJet3(std::size_t end);
    [[noreturn]] void damaged() const;

    const JetFile* m_file;
    const JetDefinition* m_definition;
    std::uint32_t m_firstVariable = UINT32_MAX; // the least number of a variable column
    std::span<const std::uint8_t> m_row;
    std::size_t m_columns = 0;
    const std::uint8_t* m_mask = nullptr;
    std::size_t m_fixedEnd = 0;
    std::vector<std::size_t> m_offsets; // of the variable columns, and the end of the last
};

} // namespace odbc::jet
