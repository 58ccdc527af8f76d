#include "JetSource.h"

#include "JetKeys.h"
#include "JetRows.h"
#include "JetWriter.h"

#include <algorithm>
#include <map>
#include <set>

namespace odbc {

using namespace jet;

namespace {
constexpr std::uint8_t kKnownFlags = jet::index::kUnique | jet::index::kIgnoreNulls | jet::index::kRequired | jet::index::kAlways;
constexpr std::uint8_t kAutonumber = 0x04, kAutoGuid = 0x40; // a column's flags
constexpr std::uint32_t kNotEnforced = 0x02, kCascadeUpdates = 0x100, kCascadeDeletes = 0x1000; // a relation's

// The rows of one of the engine's tables, by the names of its columns.
class SystemRows {
public:
    SystemRows(const JetFile& file, std::uint32_t page) : mFile(file), mDecoder(file), mDefinition(readDefinition(file, page, mDecoder)), mRow(file, mDefinition) {}

    void forEach(const std::function<void()>& take) {
        forEachRow(mFile, mDefinition, [&](std::uint32_t, std::span<const std::uint8_t> bytes) {
            mRow.parse(bytes);
            take();
        });
    }
    bool isNull(std::string_view name) const {
        const auto value = bytes(name);
        return !value || value->empty();
    }
    std::uint32_t number(std::string_view name) const {
        const auto value = bytes(name);
        return !value ? 0 : value->size() == 2 ? get16(value->data()) : value->size() == 4 ? get32(value->data()) : 0;
    }
    std::string text(std::string_view name) {
        std::string out;
        if (const auto value = bytes(name))
            mDecoder.appendText(*value, 0, out);
        return out;
    }

private:
    std::optional<std::span<const std::uint8_t>> bytes(std::string_view name) const {
        for (const JetColumn& column : mDefinition.columns)
            if (column.name == name)
                return mRow.value(column);
        return std::nullopt;
    }
    const JetFile& mFile;
    JetDecoder mDecoder;
    JetDefinition mDefinition;
    JetRow mRow;
};

std::size_t rowsIn(const JetFile& file, std::uint32_t page) {
    std::size_t rows = 0;
    SystemRows(file, page).forEach([&] { ++rows; });
    return rows;
}

bool isPlainTable(const JetFile& file, const JetOrigin& origin) {
    JetDecoder decoder(file);
    const JetDefinition definition = readDefinition(file, origin.page, decoder);
    constexpr std::uint8_t kPlain = columnbit::kFixed | columnbit::kNullable;
    return definition.indexes == 0 && definition.realIndexes == 0 && definition.tableType == definition::kUserTable &&
           definition.maxColumns == definition.columns.size() && origin.rows.size() >= definition.rowCount &&
           std::all_of(definition.columns.begin(), definition.columns.end(), [](const JetColumn& column) { return (column.flags & ~kPlain) == 0; });
}

// The rules of one table.
class Demands {
public:
    Demands(const JetFile& file, const JetOrigin& origin)
        : mFile(file), mOrigin(origin), mDecoder(file), mDefinition(readDefinition(file, origin.page, mDecoder)), mTail(readTail(file, mDefinition)) {}

    TableRules rules() {
        TableRules rules;
        rules.lastNumber = static_cast<std::int32_t>(get32(mDefinition.bytes.data() + 20));
        const std::vector<JetColumn> columns = orderedColumns(mDefinition);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            mPlaces[columns[i].number] = static_cast<int>(i);
            if (!isSound(columns[i]))
                mFile.damaged("the column \"" + columns[i].name + "\" of the table on page " + std::to_string(mOrigin.page) + " has no sensible place in a row");
            if ((columns[i].flags & kAutonumber) != 0 && columns[i].is(ColumnType::Long) && rules.counter < 0)
                rules.counter = static_cast<int>(i);
            else if ((columns[i].flags & (kAutonumber | kAutoGuid)) != 0)
                rules.unchangeable = "A tábla (" + mOrigin.name + ") egyik oszlopa ismeretlen módon tölti ki magát, ezért a tábla nem módosítható: " + columns[i].name + ".";
        }
        for (const JetIndex& index : mTail.indexes)
            if (rules.unchangeable.empty())
                addKey(index, rules);
        return rules;
    }

private:
    bool isSound(const JetColumn& column) const {
        constexpr std::size_t kLongestFixed = 17;
        return column.number < mDefinition.maxColumns &&
               (column.fixed() ? column.length <= kLongestFixed && column.fixedOffset + std::size_t{column.length} < data::kMaxRow
                               : column.variableIndex < mDefinition.variableColumns);
    }
    void addKey(const JetIndex& index, TableRules& rules) {
        const bool known = (index.flags & ~kKnownFlags) == 0 && !index.parts.empty() &&
                           std::all_of(index.parts.begin(), index.parts.end(), [&](const JetIndex::Part& part) { return knowsKeysOf(mDefinition, part); });
        if (!known || !makesSameKeys(index)) {
            rules.unchangeable = "A tábla (" + mOrigin.name + ") egyik indexe nem tartható rendben, ezért a tábla nem módosítható: " + index.name + ".";
            return;
        }
        TableRules::Key key{index.name, {}, (index.flags & jet::index::kUnique) != 0, (index.flags & jet::index::kRequired) != 0};
        for (const JetIndex::Part& part : index.parts) {
            const int place = mPlaces[part.column];
            key.columns.push_back(place);
            if (orderedColumns(mDefinition)[static_cast<std::size_t>(place)].is(ColumnType::Text))
                rules.sorted.push_back(place);
        }
        rules.keys.push_back(std::move(key));
    }
    // The proof of the pudding: the keys that stand in the file are those that we would make.
    bool makesSameKeys(const JetIndex& index) const {
        std::map<std::uint32_t, std::string> entries;
        for (const std::string& entry : entriesOfIndex(mFile, mDefinition, index)) {
            const std::size_t end = entry.size() - 4;
            std::uint32_t row = 0;
            for (std::size_t i = end; i < entry.size(); ++i)
                row = row << 8 | static_cast<std::uint8_t>(entry[i]);
            entries[row] = entry.substr(0, end);
        }
        bool same = true;
        JetRow row(mFile, mDefinition);
        forEachRow(mFile, mDefinition, [&](std::uint32_t pointer, std::span<const std::uint8_t> bytes) {
            row.parse(bytes);
            const std::optional<JetKey> key = keyOf(mDefinition, index, valuesOf(mDefinition, row));
            const auto entry = entries.find(pointer);
            if (entry == entries.end())
                same = same && key && key->allNull && (index.flags & jet::index::kIgnoreNulls) != 0;
            else
                same = same && (!key || entry->second == key->bytes);
        });
        return same;
    }

    const JetFile& mFile;
    const JetOrigin& mOrigin;
    JetDecoder mDecoder;
    JetDefinition mDefinition;
    JetTail mTail;
    std::map<std::uint16_t, int> mPlaces; // of a column's number among the cells
};
} // namespace

bool JetSource::madeHere() const {
    JetPage header;
    mFile.read(0, header);
    const PageBytes own = headerPage();
    if (mFile.jet3() || !std::equal(own.begin(), own.end(), header.bytes.begin()))
        return false;
    bool plain = true;
    std::size_t others = 0;
    SystemRows objects(mFile, kObjectsPage);
    objects.forEach([&] {
        for (const char* name : {"Database", "Connect", "ForeignName", "RmtInfoShort", "RmtInfoLong", "Lv", "LvProp", "LvModule", "LvExtra"})
            plain = plain && objects.isNull(name);
        const bool table = objects.number("Type") == kTableObject && objects.number("Flags") == 0 && objects.number("ParentId") == kTablesId;
        others += table ? 0 : 1;
    });
    constexpr std::size_t kOwnObjects = 8, kOwnRights = 16, kRightsOfTable = 2;
    plain = plain && others == kOwnObjects && rowsIn(mFile, kAcesPage) == kOwnRights + kRightsOfTable * mOrigins.size() &&
            rowsIn(mFile, kQueriesPage) == 0 && rowsIn(mFile, kRelationshipsPage) == 0;
    return plain && std::all_of(mOrigins.begin(), mOrigins.end(), [this](const JetOrigin& origin) { return isPlainTable(mFile, origin); });
}

void JetSource::demand(const std::function<void(const std::string&, const TableRules&)>& table,
                       const std::function<void(const TableRelation&)>& relation) const {
    for (const JetOrigin& origin : mOrigins) {
        TableRules rules;
        try {
            rules = Demands(mFile, origin).rules();
        } catch (const StoreError& error) { // it could be read; it is only not changed
            rules.unchangeable = error.what();
        }
        table(origin.name, rules);
    }
    std::map<std::string, std::map<std::uint32_t, std::pair<std::string, std::string>>> columns; // by relation and number
    std::map<std::string, TableRelation> found;
    SystemRows relations(mFile, kRelationshipsPage);
    relations.forEach([&] {
        const std::uint32_t flags = relations.number("grbit");
        if ((flags & kNotEnforced) != 0)
            return;
        const std::string name = relations.text("szRelationship");
        found[name] = {name, relations.text("szReferencedObject"), relations.text("szObject"), {}, {}, (flags & kCascadeUpdates) != 0, (flags & kCascadeDeletes) != 0};
        columns[name][relations.number("icolumn")] = {relations.text("szReferencedColumn"), relations.text("szColumn")};
    });
    for (auto& [name, one] : found) {
        for (const auto& [number, pair] : columns[name]) {
            one.parentColumns.push_back(pair.first);
            one.childColumns.push_back(pair.second);
        }
        relation(one);
    }
}

} // namespace odbc
