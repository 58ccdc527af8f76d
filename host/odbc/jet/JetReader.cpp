#include "JetReader.h"

#include "JetDecoder.h"
#include "JetInternal.h"
#include "JetRows.h"
#include "JetValues.h"

#include <algorithm>
#include <bit>
#include <set>

namespace odbc {

using namespace jet;

namespace {
std::optional<ColumnKind> kindOf(std::uint8_t type) {
    switch (static_cast<ColumnType>(type)) {
    case ColumnType::Bool:
        return ColumnKind::Bool;
    case ColumnType::Byte:
        return ColumnKind::Byte;
    case ColumnType::Short:
        return ColumnKind::Short;
    case ColumnType::Long:
        return ColumnKind::Long;
    case ColumnType::Currency:
        return ColumnKind::Currency;
    case ColumnType::Single:
        return ColumnKind::Single;
    case ColumnType::Double:
        return ColumnKind::Double;
    case ColumnType::Date:
        return ColumnKind::Date;
    case ColumnType::Binary:
        return ColumnKind::Binary;
    case ColumnType::Text:
        return ColumnKind::Text;
    case ColumnType::Ole:
        return ColumnKind::Ole;
    case ColumnType::Memo:
        return ColumnKind::Memo;
    case ColumnType::Guid:
        return ColumnKind::Guid;
    case ColumnType::Numeric:
        return ColumnKind::Numeric;
    }
    return std::nullopt;
}

// How many bytes a value of the kind takes; 0 where it may be any number.
std::size_t sizeOf(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Byte:
        return 1;
    case ColumnKind::Short:
        return 2;
    case ColumnKind::Long:
    case ColumnKind::Single:
        return 4;
    case ColumnKind::Currency:
    case ColumnKind::Double:
    case ColumnKind::Date:
        return 8;
    case ColumnKind::Guid:
        return 16;
    case ColumnKind::Numeric:
        return 17;
    case ColumnKind::Bool:
    case ColumnKind::Binary:
    case ColumnKind::Text:
    case ColumnKind::Ole:
    case ColumnKind::Memo:
        return 0;
    }
    return 0;
}

struct CatalogueEntry {
    std::uint32_t id = 0;
    std::string name;
};

class Reader {
public:
    Reader(const JetFile& file, TableSink& sink, std::vector<JetOrigin>* origins) : m_file(file), m_sink(sink), m_origins(origins), m_decoder(file) {}

    void readAll() {
        std::set<std::uint32_t> seen;
        for (const CatalogueEntry& entry : readCatalogue()) {
            if (!seen.insert(entry.id).second)
                m_file.damaged("two tables have the same definition");
            readTable(entry);
        }
    }

private:
    std::vector<CatalogueEntry> readCatalogue();
    void readTable(const CatalogueEntry& entry);
    std::string countFault(const std::string& name, std::uint32_t said, std::uint32_t found) const;

    const JetFile& m_file;
    TableSink& m_sink;
    std::vector<JetOrigin>* m_origins;
    JetDecoder m_decoder;
};

// The user's own tables: not the engine's, not Access's, no links to other files, no leftovers.
std::vector<CatalogueEntry> Reader::readCatalogue() {
    const JetDefinition definition = readDefinition(m_file, kObjectsPage, m_decoder);
    const auto find = [&](std::string_view name, ColumnType type) {
        const auto at = std::find_if(definition.columns.begin(), definition.columns.end(),
                                     [&](const JetColumn& column) { return column.name == name && column.is(type); });
        if (at == definition.columns.end())
            m_file.damaged("its table of objects has no column " + std::string(name));
        return *at;
    };
    const JetColumn id = find("Id", ColumnType::Long), name = find("Name", ColumnType::Text),
                    type = find("Type", ColumnType::Short), flags = find("Flags", ColumnType::Long);
    std::vector<CatalogueEntry> entries;
    JetRow row(m_file, definition);
    std::uint32_t found = 0;
    forEachRow(m_file, definition, [&](std::uint32_t, std::span<const std::uint8_t> bytes) {
        ++found;
        row.parse(bytes);
        const auto number = [&](const JetColumn& column) {
            const auto value = row.value(column);
            return !value               ? 0
                   : value->size() == 2 ? get16(value->data())
                   : value->size() == 4 ? get32(value->data())
                                        : 0;
        };
        constexpr std::uint32_t system = kSystemObject | kSystemObjectOfAccess;
        if (number(type) != kTableObject || (number(flags) & system) != 0)
            return;
        CatalogueEntry entry{number(id), {}};
        if (const auto value = row.value(name))
            m_decoder.appendText(*value, name.codePage, entry.name);
        if (!entry.name.starts_with("~TMP"))
            entries.push_back(std::move(entry));
    });
    if (const std::string fault = countFault("MSysObjects", definition.rowCount, found); !fault.empty())
        throw StoreError(fault);
    return entries;
}

// Genuine files tell too few rows here and there, which loses nothing. Fewer rows than told are a loss.
std::string Reader::countFault(const std::string& name, std::uint32_t said, std::uint32_t found) const {
    if (found >= said)
        return {};
    return "A fájl sérült: \"" + m_file.name() + "\". A tábla (" + name + ") szerint " + std::to_string(said) + " sora van, de csak " +
           std::to_string(found) + " található.";
}

void Reader::readTable(const CatalogueEntry& entry) {
    const JetDefinition definition = readDefinition(m_file, entry.id, m_decoder);
    const std::vector<JetColumn> columns = orderedColumns(definition);
    const StoreTable table = describeTable(m_file, entry.name, columns);
    m_sink.beginTable(table);
    JetOrigin origin{entry.name, entry.id, {}};
    JetRow row(m_file, definition);
    std::vector<StoreCell> cells(columns.size());
    std::vector<std::string> texts(columns.size());
    std::uint32_t found = 0;
    forEachRow(m_file, definition, [&](std::uint32_t pointer, std::span<const std::uint8_t> bytes) {
        ++found;
        if (m_origins != nullptr)
            origin.rows.push_back(pointer);
        row.parse(bytes);
        for (std::size_t i = 0; i < columns.size(); ++i)
            cells[i] = cellOf(m_file, m_decoder, columns[i], table.columns[i].kind, row, texts[i]);
        m_sink.row(cells);
    });
    if (const std::string fault = countFault(entry.name, definition.rowCount, found); !fault.empty())
        m_sink.incomplete(fault);
    if (m_origins != nullptr)
        m_origins->push_back(std::move(origin));
    m_sink.endTable();
}

} // namespace

std::vector<JetColumn> jet::orderedColumns(const JetDefinition& definition) {
    std::vector<JetColumn> columns = definition.columns;
    std::stable_sort(columns.begin(), columns.end(), [](const JetColumn& a, const JetColumn& b) { return a.number < b.number; });
    return columns;
}

StoreTable jet::describeTable(const JetFile& file, const std::string& name, const std::vector<JetColumn>& columns) {
    StoreTable table{name, {}};
    for (const JetColumn& column : columns) {
        const auto kind = kindOf(column.type);
        if (!kind)
            throw StoreError("A tábla (" + name + ") egyik oszlopának típusa ismeretlen: " + column.name + ".");
        StoreColumn& described = table.columns.emplace_back(StoreColumn{column.name, *kind, 0, 0, 0});
        if (*kind == ColumnKind::Text) {
            const std::size_t size = file.jet3() ? column.length : column.length / std::size_t{2};
            described.size = static_cast<std::uint16_t>(size == 0 ? kMaxTextLength : std::min(size, kMaxTextLength));
        } else if (*kind == ColumnKind::Binary) {
            described.size = column.length;
        } else if (*kind == ColumnKind::Numeric) {
            described.precision = static_cast<std::uint8_t>(column.detail);
            described.scale = static_cast<std::uint8_t>(column.detail >> 8);
        }
    }
    return table;
}

StoreCell jet::cellOf(const JetFile& file, JetDecoder& decoder, const JetColumn& column, ColumnKind kind, const JetRow& row, std::string& text) {
    if (kind == ColumnKind::Bool)
        return StoreCell::of(std::int64_t{row.boolean(column)});
    const auto value = row.value(column);
    if (!value)
        return StoreCell::null();
    const std::uint8_t* at = value->data();
    if (const std::size_t size = sizeOf(kind); size != 0 && value->size() < size)
        file.damaged("the column \"" + column.name + "\" holds a value that is too short");
    text.clear();
    switch (kind) {
    case ColumnKind::Byte:
        return StoreCell::of(std::int64_t{at[0]});
    case ColumnKind::Short:
        return StoreCell::of(std::int64_t{static_cast<std::int16_t>(get16(at))});
    case ColumnKind::Long:
        return StoreCell::of(std::int64_t{static_cast<std::int32_t>(get32(at))});
    case ColumnKind::Single:
        return StoreCell::of(double{std::bit_cast<float>(get32(at))});
    case ColumnKind::Double:
    case ColumnKind::Date:
        return StoreCell::of(std::bit_cast<double>(get64(at)));
    case ColumnKind::Currency: {
        const auto units = static_cast<std::int64_t>(get64(at));
        text = formatDecimal(
            {units < 0, units < 0 ? ~static_cast<std::uint64_t>(units) + 1 : static_cast<std::uint64_t>(units)}, 4);
        return StoreCell::text(text);
    }
    case ColumnKind::Numeric: {
        JetDecimal number{(at[0] & 0x80) != 0, 0};
        for (unsigned group = 0; group < 4; ++group)
            number.magnitude = number.magnitude << 32 | get32(at + 1 + 4 * group);
        text = formatDecimal(number, column.detail >> 8);
        return StoreCell::text(text);
    }
    case ColumnKind::Guid:
        text = formatGuid(at);
        return StoreCell::text(text);
    case ColumnKind::Text:
        decoder.appendText(*value, column.codePage, text);
        return StoreCell::text(text);
    case ColumnKind::Binary:
        return StoreCell::blob({reinterpret_cast<const char*>(at), value->size()});
    case ColumnKind::Ole:
        decoder.appendLongValue(*value, text);
        return StoreCell::blob(text);
    case ColumnKind::Memo: {
        std::string raw;
        decoder.appendLongValue(*value, raw);
        decoder.appendText({reinterpret_cast<const std::uint8_t*>(raw.data()), raw.size()}, column.codePage, text);
        return StoreCell::text(text);
    }
    case ColumnKind::Bool:
        break; // told above
    }
    return StoreCell::null();
}
void jet::readTables(const JetFile& file, TableSink& sink, std::vector<JetOrigin>* origins) {
    Reader(file, sink, origins).readAll();
}

void readJet(const std::string& path, TableSink& sink) {
    readTables(JetFile(path), sink);
}

} // namespace odbc
