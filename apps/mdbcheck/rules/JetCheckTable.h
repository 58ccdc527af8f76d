// The checks of one table: its definition, its maps, its rows and their long values.
#pragma once

#include "JetCheckContext.h"
#include "jet/JetDefinition.h"

namespace odbc::jet {

// A real index as the definition tells it.
struct JetCheckIndex {
    std::string name;
    struct Part {
        std::uint16_t column;
        bool ascending;
    };
    std::vector<Part> parts;
    std::uint32_t map = 0, root = 0, said = 0; // `said`: how many keys the definition counts
    std::uint8_t flags = 0;
};

class JetCheckTable {
public:
    JetCheckTable(JetCheckContext& context, std::string name, std::uint32_t page);

    // Everything but the indexes; false where the definition cannot be read at all.
    bool checkDefinitionAndRows();

    const std::string& name() const { return m_name; }
    const JetDefinition& definition() const { return m_definition; }
    const JetColumn* column(std::uint16_t number) const;
    const JetColumn* column(std::string_view name) const;
    const std::vector<JetCheckIndex>& indexes() const { return m_indexes; }
    // The rows that make sense, by their pointers. Kept only for tables with indexes.
    const std::map<std::uint32_t, std::vector<std::uint8_t>>& rows() const { return m_rows; }

    // The bytes of a value in a row that makes sense; nothing where it is null.
    std::optional<std::span<const std::uint8_t>> value(std::span<const std::uint8_t> row,
                                                       const JetColumn& column) const;

private:
    struct LongMap {
        std::uint16_t column;
        std::uint32_t used, free;
    };
    void checkHead();
    void checkColumns();
    void checkColumn(const JetColumn& column);
    void checkColumnBytes(std::size_t listed);
    void readTail();
    void checkRows();
    void checkDataPage(std::uint32_t number, std::uint32_t& count);
    // False where the row makes no sense; value() is for rows that do.
    bool checkRow(std::uint32_t page, std::size_t number, std::span<const std::uint8_t> row);
    void checkText(std::uint32_t page, const JetColumn& column, std::span<const std::uint8_t> text);
    void checkLongMaps();
    void checkLongValue(std::uint32_t page, const JetColumn& column, std::span<const std::uint8_t> inRow);
    void checkLongRowsUsed();
    void report(std::uint32_t page, const std::string& text) { m_context->report(page, text); }
    std::string quoted() const { return "\"" + m_name + "\""; }

    JetCheckContext* m_context;
    std::string m_name;
    std::uint32_t m_page;
    JetDefinition m_definition;
    std::map<std::uint16_t, const JetColumn*> m_byNumber;
    std::vector<JetCheckIndex> m_indexes;
    std::vector<LongMap> m_longMaps;
    std::map<std::uint16_t, std::set<std::uint32_t>> m_longPages; // of each long column
    std::set<std::uint32_t> m_longRows;                           // pointers that some row has taken
    std::map<std::uint32_t, std::vector<std::uint8_t>> m_rows;
};

} // namespace odbc::jet
