#include "JetTablePlan.h"

#include "AcUtText.h"
#include "store/StoreText.h"

#include <algorithm>
#include <set>

namespace odbc::jet {

namespace {
struct KindFact {
    ColumnType type;
    bool fixed;
    std::uint16_t length; // 0 where it is the column's own or none
};
KindFact factOf(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Bool:
        return {ColumnType::Bool, true, 1};
    case ColumnKind::Byte:
        return {ColumnType::Byte, true, 1};
    case ColumnKind::Short:
        return {ColumnType::Short, true, 2};
    case ColumnKind::Long:
        return {ColumnType::Long, true, 4};
    case ColumnKind::Currency:
        return {ColumnType::Currency, true, 8};
    case ColumnKind::Single:
        return {ColumnType::Single, true, 4};
    case ColumnKind::Double:
        return {ColumnType::Double, true, 8};
    case ColumnKind::Date:
        return {ColumnType::Date, true, 8};
    case ColumnKind::Binary:
        return {ColumnType::Binary, false, 0};
    case ColumnKind::Text:
        return {ColumnType::Text, false, 0};
    case ColumnKind::Ole:
        return {ColumnType::Ole, false, 0};
    case ColumnKind::Memo:
        return {ColumnType::Memo, false, 0};
    case ColumnKind::Guid:
        return {ColumnType::Guid, true, 16};
    case ColumnKind::Numeric:
        return {ColumnType::Numeric, true, 17};
    }
    throw StoreError("Egy oszlop típusát egyetlen Access tábla sem ismeri.");
}

std::u16string checkedName(const std::string& name, const std::string& what) {
    std::u16string wide;
    if (!appendUtf16(name, wide))
        throw StoreError("A név nem Unicode szöveg (" + what + ").");
    if (wide.empty())
        throw StoreError("A név üres (" + what + ").");
    if (wide.size() > kMaxNameLength)
        throw StoreError("A név (" + what + ") hosszabb az Accessben megengedett 64 karakternél: " + name + ".");
    if (std::any_of(wide.begin(), wide.end(), [](char16_t c) { return c < 0x20; }))
        throw StoreError("A névben vezérlőkarakter áll (" + what + ").");
    return wide;
}

std::string folded(const std::string& name) {
    std::wstring wide = acFromUtf8(name);
    std::transform(wide.begin(), wide.end(), wide.begin(), acFoldCase);
    return acToUtf8(wide);
}

void checkSizes(const StoreColumn& column, const std::string& what) {
    if (column.kind == ColumnKind::Text && (column.size < 1 || column.size > kMaxTextLength))
        throw StoreError("A méret 1–255 karakter lehet (" + what + ").");
    if (column.kind == ColumnKind::Binary && (column.size < 1 || column.size > 510))
        throw StoreError("A méret 1–510 bájt lehet (" + what + ").");
    if (column.kind == ColumnKind::Numeric &&
        (column.precision < 1 || column.precision > 28 || column.scale > column.precision))
        throw StoreError("A pontosság 1–28 számjegy lehet, a tizedesek száma nem lehet több ennél (" + what + ").");
}

// Lays the columns out; fixed ones follow each other behind the row's column count.
void layOut(JetTablePlan& plan, const StoreTable& table) {
    for (const StoreColumn& column : table.columns) {
        const KindFact fact = factOf(column.kind);
        JetColumnPlan& planned = plan.columns.emplace_back();
        planned.column = column;
        planned.type = fact.type;
        planned.length = column.kind == ColumnKind::Text     ? static_cast<std::uint16_t>(2 * column.size)
                         : column.kind == ColumnKind::Binary ? column.size
                                                             : fact.length;
        planned.flags = static_cast<std::uint8_t>(columnbit::kNullable | (fact.fixed ? columnbit::kFixed : 0));
        planned.variableIndex = plan.variableCount;
        if (!fact.fixed) {
            ++plan.variableCount;
        } else if (column.kind != ColumnKind::Bool) { // a Bool is a bit of the null mask and takes no room
            planned.fixedOffset = plan.fixedSize;
            plan.fixedSize = static_cast<std::uint16_t>(plan.fixedSize + fact.length);
        }
    }
}

class Bytes {
public:
    explicit Bytes(std::size_t capacity) { m_bytes.reserve(capacity); }
    void u8(std::size_t value) { m_bytes.push_back(static_cast<std::uint8_t>(value)); }
    void u16(std::size_t value) { u8(value & 0xFF), u8(value >> 8); }
    void u32(std::size_t value) { u16(value & 0xFFFF), u16(value >> 16); }
    void zeros(std::size_t count) { m_bytes.insert(m_bytes.end(), count, std::uint8_t{0}); }
    void name(std::u16string_view name) {
        u16(2 * name.size());
        for (const char16_t c : name)
            u16(c);
    }
    std::vector<std::uint8_t> take() { return std::move(m_bytes); }

private:
    std::vector<std::uint8_t> m_bytes;
};

// The numbers of the columns in the order in which the definition lists them: the engine's own
// tables list them by name.
std::vector<std::size_t> listedOrder(const JetTablePlan& plan) {
    std::vector<std::size_t> order(plan.columns.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    if (plan.system)
        std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return folded(plan.columns[a].column.name) < folded(plan.columns[b].column.name);
        });
    return order;
}

void appendColumn(const JetTablePlan& plan, std::size_t number, Bytes& out) {
    const JetColumnPlan& column = plan.columns[number];
    out.u8(static_cast<std::uint8_t>(column.type));
    out.u32(definition::kMarkValue);
    out.u16(number);
    out.u16(column.variableIndex);
    out.u16(plan.system ? 0 : number);
    if (column.type == ColumnType::Numeric) {
        out.u8(column.column.precision);
        out.u8(column.column.scale);
    } else {
        out.u16(kGeneralSortOrder);
    }
    out.u16(0);
    out.u8(column.flags);
    out.u8(column.extraFlags);
    out.zeros(4);
    out.u16(column.fixedOffset);
    out.u16(column.length);
}

void appendRealIndex(const JetIndexPlan& planned, const JetTablePlaces::Index& place, Bytes& out) {
    out.u32(definition::kIndexMarkValue);
    for (std::size_t i = 0; i < definition::kIndexColumns; ++i) {
        const bool used = i < planned.columns.size();
        out.u16(used ? planned.columns[i] : definition::kNoColumn);
        out.u8(used ? 1 : 0);
    }
    out.u32(place.map);
    out.u32(place.root);
    out.zeros(4);
    out.u8(planned.flags);
    out.zeros(5);
}

void appendIndex(const JetIndexPlan& planned, std::size_t number, Bytes& out) {
    out.u32(definition::kMarkValue);
    out.u32(number);
    out.u32(number);
    out.u8(0);
    out.u32(0xFFFFFFFF); // no related index
    out.u32(0);
    out.u16(0x0404);
    out.u8(planned.primary ? 1 : 0);
    out.zeros(4);
}
} // namespace

std::size_t JetTablePlan::longColumns() const {
    return static_cast<std::size_t>(
        std::count_if(columns.begin(), columns.end(), [](const JetColumnPlan& c) { return c.isLong(); }));
}

JetTablePlan planTable(const StoreTable& table) {
    const std::string what = "tábla: " + table.name;
    JetTablePlan plan;
    plan.name = table.name;
    checkedName(table.name, "tábla");
    if (table.columns.empty())
        throw StoreError("Nincs oszlop (" + what + ").");
    if (table.columns.size() > kMaxColumns)
        throw StoreError("Az oszlopok száma több az Accessben megengedett 255-nél (" + what + ").");
    layOut(plan, table);
    std::set<std::string> names;
    for (JetColumnPlan& planned : plan.columns) {
        planned.name = checkedName(planned.column.name, what + " oszlopa");
        if (!names.insert(folded(planned.column.name)).second)
            throw StoreError("Az oszlop kétszer szerepel (" + what + "): " + planned.column.name + ".");
        checkSizes(planned.column, what + ", oszlop: " + planned.column.name);
        if (planned.type == ColumnType::Text || planned.type == ColumnType::Memo)
            planned.extraFlags = columnbit::kCompressed;
    }
    return plan;
}

JetTablePlan planSystemTable(const StoreTable& table, std::string_view masked, std::vector<JetIndexPlan> indexes) {
    JetTablePlan plan;
    plan.name = table.name;
    plan.system = true;
    plan.indexes = std::move(indexes);
    layOut(plan, table);
    for (JetColumnPlan& planned : plan.columns) {
        appendUtf16(planned.column.name, planned.name);
        planned.flags = static_cast<std::uint8_t>(
            planned.flags |
            (planned.column.name == masked ? columnbit::kMasked | columnbit::kSystem : columnbit::kSystem));
    }
    return plan;
}

std::size_t definitionSize(const JetTablePlan& plan) {
    std::size_t size = definition::kBody + 2 + plan.columns.size() * definition::kColumnSize + plan.longColumns() * 10;
    size += plan.indexes.size() * (definition::kIndexCountSize + definition::kRealIndexSize + definition::kIndexSize);
    for (const JetColumnPlan& column : plan.columns)
        size += 2 + 2 * column.name.size();
    for (const JetIndexPlan& planned : plan.indexes)
        size += 2 + 2 * planned.name.size();
    return size;
}

std::vector<std::uint8_t> encodeDefinition(const JetTablePlan& plan, const JetTablePlaces& places) {
    Bytes out(definitionSize(plan));
    out.u8(static_cast<std::uint8_t>(PageType::Definition));
    out.u8(1);
    out.zeros(6); // free space and next page: the writer of the pages knows them
    out.u32(definitionSize(plan));
    out.u32(definition::kMarkValue);
    out.u32(places.rowCount);
    out.u32(0); // the last automatic number: there is no such column
    out.u32(1);
    out.zeros(12);
    out.u8(plan.system ? definition::kSystemTable : definition::kUserTable);
    out.u16(plan.columns.size());
    out.u16(plan.variableCount);
    out.u16(plan.columns.size());
    out.u32(plan.indexes.size());
    out.u32(plan.indexes.size());
    out.u32(places.usedMap);
    out.u32(places.freeMap);
    for (const JetTablePlaces::Index& place : places.indexes) {
        out.u32(0);
        out.u32(place.distinct);
        out.u32(0);
    }
    const std::vector<std::size_t> order = listedOrder(plan);
    for (const std::size_t number : order)
        appendColumn(plan, number, out);
    for (const std::size_t number : order)
        out.name(plan.columns[number].name);
    for (std::size_t i = 0; i < plan.indexes.size(); ++i)
        appendRealIndex(plan.indexes[i], places.indexes[i], out);
    std::vector<std::size_t> byName(plan.indexes.size());
    for (std::size_t i = 0; i < byName.size(); ++i)
        byName[i] = i;
    std::sort(byName.begin(), byName.end(),
              [&](std::size_t a, std::size_t b) { return plan.indexes[a].name < plan.indexes[b].name; });
    for (const std::size_t i : byName)
        appendIndex(plan.indexes[i], i, out);
    for (const std::size_t i : byName)
        out.name(plan.indexes[i].name);
    for (const std::size_t number : order) {
        if (!plan.columns[number].isLong())
            continue;
        std::size_t place = 0;
        for (std::size_t before = 0; before < number; ++before)
            place += plan.columns[before].isLong() ? 2 : 0;
        out.u16(number);
        out.u32(places.longMaps[place]);
        out.u32(places.longMaps[place + 1]);
    }
    out.u16(definition::kNoColumn);
    return out.take();
}

} // namespace odbc::jet
