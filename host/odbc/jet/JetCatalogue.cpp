#include "JetCatalogue.h"

#include "store/StoreText.h"

#include <algorithm>
#include <ctime>

namespace odbc::jet {

namespace {
// Security identifiers as they lie in the file. In clear they are 0x0203 the engine, 0x0301 the user
// "Admin", 0x0201 the group "Users", 0x0204 whoever creates; the file's creation stamp makes the mask
// (87 94 for the stamp that the header carries, see JetWriter.cpp).
constexpr std::string_view kEngine = "\x85\x97", kAdmin = "\x84\x95", kUsers = "\x85\x95", kCreator = "\x85\x90";

constexpr std::size_t kObjects = 0, kAces = 1;
constexpr std::size_t kByParentAndName = 0, kById = 1, kByObject = 0;

StoreColumn columnOf(const char* name, ColumnKind kind) {
    const std::uint16_t size = kind == ColumnKind::Text ? 255 : kind == ColumnKind::Binary ? 510 : 0;
    return {name, kind, size, 0, 0};
}

JetIndexPlan indexOf(std::u16string name, std::vector<std::uint16_t> columns, unsigned flags, bool primary) {
    return {std::move(name), std::move(columns), static_cast<std::uint8_t>(index::kAlways | flags), primary};
}

JetTablePlan objectsPlan() {
    using enum ColumnKind;
    return planSystemTable(
        {"MSysObjects",
         {columnOf("Id", Long), columnOf("ParentId", Long), columnOf("Name", Text), columnOf("Type", Short),
          columnOf("DateCreate", Date), columnOf("DateUpdate", Date), columnOf("Owner", Binary),
          columnOf("Flags", Long), columnOf("Database", Memo), columnOf("Connect", Memo), columnOf("ForeignName", Text),
          columnOf("RmtInfoShort", Binary), columnOf("RmtInfoLong", Ole), columnOf("Lv", Ole), columnOf("LvProp", Ole),
          columnOf("LvModule", Ole), columnOf("LvExtra", Ole)}},
        "Owner", {indexOf(u"ParentIdName", {1, 2}, index::kUnique, false), indexOf(u"Id", {0}, index::kUnique, true)});
}

JetTablePlan acesPlan() {
    using enum ColumnKind;
    return planSystemTable(
        {"MSysACEs",
         {columnOf("ObjectId", Long), columnOf("SID", Binary), columnOf("ACM", Long), columnOf("FInheritable", Bool)}},
        "SID", {indexOf(u"ObjectId", {0}, index::kRequired, false)});
}

JetTablePlan queriesPlan() {
    using enum ColumnKind;
    return planSystemTable(
        {"MSysQueries",
         {columnOf("ObjectId", Long), columnOf("Attribute", Byte), columnOf("Order", Binary), columnOf("Name1", Text),
          columnOf("Name2", Text), columnOf("Expression", Memo), columnOf("Flag", Short), columnOf("LvExtra", Long)}},
        {}, {indexOf(u"ObjectIdAttribute", {0, 1, 2}, index::kUnique, true)});
}

JetTablePlan relationshipsPlan() {
    using enum ColumnKind;
    return planSystemTable({"MSysRelationships",
                            {columnOf("szRelationship", Text), columnOf("grbit", Long), columnOf("ccolumn", Long),
                             columnOf("icolumn", Long), columnOf("szObject", Text), columnOf("szColumn", Text),
                             columnOf("szReferencedObject", Text), columnOf("szReferencedColumn", Text)}},
                           {},
                           {indexOf(u"szRelationship", {0}, index::kIgnoreNulls, false),
                            indexOf(u"szObject", {4}, index::kIgnoreNulls, false),
                            indexOf(u"szReferencedObject", {6}, index::kIgnoreNulls, false)});
}

// The present in the user's own time, as days since 1899-12-30.
double accessNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const std::time_t asUtc = timegm(&local);
    return 25569.0 + static_cast<double>(asUtc) / 86400.0;
}
} // namespace

struct JetCatalogue::Object {
    std::uint32_t id, parent;
    std::string_view name;
    std::int16_t type;
    std::string_view owner;
    std::uint32_t flags;
};

JetCatalogue::JetCatalogue(JetPageStore& store) : m_now(accessNow()) {
    std::uint32_t pages[4];
    for (std::uint32_t& page : pages)
        page = store.allocate();
    JetTablePlan (*const plans[])() = {objectsPlan, acesPlan, queriesPlan, relationshipsPlan};
    for (std::size_t i = 0; i < 4; ++i)
        m_tables.emplace_back(plans[i](), pages[i], store);

    addObject({kTablesId, kRootId, "Tables", kContainerObject, kEngine, kSystemObject});
    addObject({kDatabasesId, kRootId, "Databases", kContainerObject, kEngine, kSystemObject});
    addObject({kRelationshipsId, kRootId, "Relationships", kContainerObject, kEngine, kSystemObject});
    addObject({kDatabaseObjectId, kDatabasesId, "MSysDb", kDatabaseObject, kAdmin, kSystemObject});
    for (std::size_t i = 0; i < 4; ++i) {
        addObject({pages[i], kTablesId, m_tables[i].name(), kTableObject, kEngine, kSystemObject});
        m_names.push_back(keyOf(m_tables[i].name()));
    }
    std::sort(m_names.begin(), m_names.end());

    // What Jet itself grants: full rights in the containers, none but reading in its own tables.
    addAccess(kObjectsPage, kAdmin, 0x60000, false);
    addAccess(kAcesPage, kAdmin, 0x60000, false);
    addAccess(kQueriesPage, kAdmin, 0x60000, false);
    addAccess(kRelationshipsPage, kAdmin, 0xE0000, false);
    addAccess(kTablesId, kCreator, 0xF00FE, true);
    addAccess(kTablesId, kAdmin, 0xFFEFF, true);
    addAccess(kRelationshipsId, kCreator, 0xF00FE, true);
    addAccess(kRelationshipsId, kAdmin, 0x60001, false);
    addAccess(kDatabasesId, kAdmin, 0x60000, false);
    addAccess(kDatabaseObjectId, kAdmin, 0x6000E, false);
    addAccess(kDatabaseObjectId, kUsers, 0x0000E, false);
    addAccess(kObjectsPage, kUsers, 0x14, false);
    addAccess(kQueriesPage, kUsers, 0x14, false);
    addAccess(kRelationshipsPage, kUsers, 0x14, false);
    addAccess(kTablesId, kUsers, 0xFFEFF, true);
    addAccess(kRelationshipsId, kUsers, 0xFFFFF, true);
}

std::string JetCatalogue::keyOf(const std::string& name) const {
    std::u16string wide;
    std::string key;
    if (!appendUtf16(name, wide) || !appendTextKey(wide, key))
        throw StoreError("Ez a név nem adható táblának, mert olyan karakter van benne, amelynek nincs helye az Access rendezésében: " + name + ".");
    return key;
}

void JetCatalogue::checkName(const std::string& name) const {
    if (std::binary_search(m_names.begin(), m_names.end(), keyOf(name)))
        throw StoreError("Két tábla neve azonos: " + name + ".");
}

void JetCatalogue::addTable(const std::string& name, std::uint32_t definitionPage) {
    checkName(name);
    const std::string key = keyOf(name);
    m_names.insert(std::lower_bound(m_names.begin(), m_names.end(), key), key);
    addObject({definitionPage, kTablesId, name, kTableObject, kAdmin, 0});
    addAccess(definitionPage, kAdmin, 0xFFEFF, false);
    addAccess(definitionPage, kUsers, 0xFFEFF, false);
}

void JetCatalogue::addObject(const Object& object) {
    const auto id = static_cast<std::int32_t>(object.id), parent = static_cast<std::int32_t>(object.parent);
    std::array<StoreCell, 17> cells{};
    cells[0] = StoreCell::of(std::int64_t{id});
    cells[1] = StoreCell::of(std::int64_t{parent});
    cells[2] = StoreCell::text(object.name);
    cells[3] = StoreCell::of(std::int64_t{object.type});
    cells[4] = cells[5] = StoreCell::of(m_now);
    cells[6] = StoreCell::blob(object.owner);
    cells[7] = StoreCell::of(std::int64_t{static_cast<std::int32_t>(object.flags)});
    const std::uint32_t row = m_tables[kObjects].row(cells);
    std::string byParent, byId;
    appendLongKey(parent, byParent);
    m_tables[kObjects].addKey(kByParentAndName, byParent + keyOf(std::string(object.name)), row);
    appendLongKey(id, byId);
    m_tables[kObjects].addKey(kById, std::move(byId), row);
}

void JetCatalogue::addAccess(std::uint32_t object, std::string_view who, std::uint32_t rights, bool inheritable) {
    const auto id = static_cast<std::int32_t>(object);
    const std::array<StoreCell, 4> cells{StoreCell::of(std::int64_t{id}), StoreCell::blob(who),
                                         StoreCell::of(std::int64_t{rights}), StoreCell::of(std::int64_t{inheritable})};
    std::string key;
    appendLongKey(id, key);
    m_tables[kAces].addKey(kByObject, std::move(key), m_tables[kAces].row(cells));
}

void JetCatalogue::finish() {
    for (JetTableWriter& table : m_tables)
        table.finish();
}

} // namespace odbc::jet
