#include "JetCheck.h"

#include "JetCheckIndex.h"
#include "jet/JetDecoder.h"
#include "store/StoreTable.h"

#include <functional>
#include <memory>

namespace odbc {

using namespace jet;

namespace {
struct Object {
    std::uint32_t page = 0; // of its row
    std::uint32_t id = 0, parent = 0, flags = 0;
    std::int16_t type = 0;
    std::string name;
    bool owned = false;
};

class Checker {
public:
    explicit Checker(const JetFile& file) : m_file(file), m_context(file) {}

    std::vector<JetViolation> run() {
        guarded([&] { checkHeader(); });
        guarded([&] { readCatalogue(); });
        for (const auto& [id, object] : m_objects)
            if (object.type == kTableObject && id != kObjectsPage)
                guarded([&, &one = object] { checkTable(one); });
        for (const auto& table : m_tables)
            for (const JetCheckIndex& index : table->indexes())
                guarded([&] { JetCheckIndexTree(m_context, *table, index).check(); });
        guarded([&] { checkCatalogue(); });
        guarded([&] { checkAces(); });
        guarded([&] { checkPages(); });
        return m_context.take();
    }

private:
    // What a check did not foresee is a violation too, and the other checks go on.
    void guarded(const std::function<void()>& check) {
        try {
            check();
        } catch (const StoreError& error) {
            m_context.report(0, error.what());
        }
    }
    void checkHeader();
    void readCatalogue();
    void readObject(std::uint32_t page, std::span<const std::uint8_t> row);
    void checkTable(const Object& object);
    void checkCatalogue();
    void checkObject(const Object& object);
    void checkAces();
    void checkPages();
    const JetCheckTable* table(std::uint32_t page) const;
    void requireIndex(std::uint32_t page, std::string_view name, std::vector<std::string_view> columns);
    std::uint32_t numberOf(const JetCheckTable& table, std::span<const std::uint8_t> row,
                           std::string_view column) const;

    const JetFile& m_file;
    JetCheckContext m_context;
    std::set<std::uint32_t> m_free;
    std::vector<std::unique_ptr<JetCheckTable>> m_tables;
    std::map<std::uint32_t, Object> m_objects; // by id
};

void Checker::checkHeader() {
    const JetPage& header = m_file.headerPage();
    m_context.claim(0, PageType::Header, "the header");
    if (get32(header.at(header::kMapPointer)) != 0x100)
        m_context.report(0, "The header does not lead to the map of free pages.");
    for (std::uint32_t page = kObjectsPage; page <= kRelationshipsPage; ++page)
        if (get32(header.at(header::kMapPointer + 4 * page)) != page)
            m_context.report(0, "The header does not lead to the system table on page " + std::to_string(page) + ".");
    for (std::size_t user = 0; user < header::kCommitCount; ++user)
        if (get16(header.at(header::kCommitBytes + 2 * user)) == 0) {
            m_context.report(0, "The header says that user " + std::to_string(user) + " was cut off while writing.");
            break;
        }
    m_free = m_context.freePages(0x100);
}

const JetCheckTable* Checker::table(std::uint32_t page) const {
    for (const auto& table : m_tables)
        if (table->definition().page() == page)
            return table.get();
    return nullptr;
}

std::uint32_t Checker::numberOf(const JetCheckTable& table, std::span<const std::uint8_t> row,
                                std::string_view name) const {
    const JetColumn* column = table.column(name);
    const auto value = column == nullptr ? std::nullopt : table.value(row, *column);
    return !value ? 0 : value->size() == 2 ? get16(value->data()) : value->size() == 4 ? get32(value->data()) : 0;
}

void Checker::readCatalogue() {
    auto objects = std::make_unique<JetCheckTable>(m_context, "MSysObjects", kObjectsPage);
    if (!objects->checkDefinitionAndRows())
        return;
    for (const std::string_view name : {"Id", "ParentId", "Name", "Type", "Flags", "Owner"})
        if (objects->column(name) == nullptr)
            m_context.report(kObjectsPage, "The table of objects has no column " + std::string(name) + ".");
    m_tables.push_back(std::move(objects));
    for (const auto& [pointer, row] : m_tables.front()->rows())
        readObject(pointer >> 8, row);
}

void Checker::readObject(std::uint32_t page, std::span<const std::uint8_t> row) {
    const JetCheckTable& objects = *m_tables.front();
    Object object{page,
                  numberOf(objects, row, "Id"),
                  numberOf(objects, row, "ParentId"),
                  numberOf(objects, row, "Flags"),
                  static_cast<std::int16_t>(numberOf(objects, row, "Type")),
                  {},
                  false};
    const auto bytes = [&](std::string_view name) {
        const JetColumn* column = objects.column(name);
        return column == nullptr ? std::nullopt : objects.value(row, *column);
    };
    if (const auto name = bytes("Name"))
        appendJet4Text(*name, object.name);
    const auto owner = bytes("Owner");
    object.owned = owner && !owner->empty();
    if (const auto [other, added] = m_objects.emplace(object.id, object); !added)
        m_context.report(page, "The objects \"" + object.name + "\" and \"" + other->second.name +
                                   "\" have the same number.");
}

void Checker::checkTable(const Object& object) {
    if (object.id == 0 || object.id >= m_file.pageCount()) {
        m_context.report(object.page, "The catalogue says that the table \"" + object.name + "\" is defined on page " +
                                          std::to_string(object.id) + ", which does not exist.");
        return;
    }
    auto table = std::make_unique<JetCheckTable>(m_context, object.name, object.id);
    if (!table->checkDefinitionAndRows())
        return;
    const bool system = table->definition().tableType == definition::kSystemTable;
    // Access keeps what belongs to its newer column types in users' tables with flags of their own.
    const bool plain = (object.flags & ~(kSystemObject | kSystemObjectOfAccess)) == 0;
    if (system != ((object.flags & kSystemObject) != 0) && (system || plain))
        m_context.report(object.id, "The definition and the catalogue do not agree whether \"" + object.name +
                                        "\" is a system table.");
    m_tables.push_back(std::move(table));
}

void Checker::checkObject(const Object& object) {
    const std::string what = "The object \"" + object.name + "\"";
    if (object.name.empty())
        m_context.report(object.page, "An object of the catalogue has no name.");
    if (!object.owned)
        m_context.report(object.page, what + " has no owner.");
    if (object.type == kTableObject && object.parent != kTablesId)
        m_context.report(object.page, what + " is a table, but does not lie in the container \"Tables\".");
    else if (object.type == kContainerObject && object.parent != kRootId)
        m_context.report(object.page, what + " is a container, but does not lie in the root.");
    else if (object.parent != kRootId && !m_objects.contains(object.parent))
        m_context.report(object.page, what + " lies in an object that does not exist.");
}

void Checker::requireIndex(std::uint32_t page, std::string_view name, std::vector<std::string_view> columns) {
    const JetCheckTable* of = table(page);
    if (of == nullptr)
        return;
    for (const JetCheckIndex& index : of->indexes()) {
        bool same = index.parts.size() == columns.size();
        for (std::size_t i = 0; same && i < columns.size(); ++i) {
            const JetColumn* column = of->column(index.parts[i].column);
            same = column != nullptr && column->name == columns[i];
        }
        if (same && index.name == name)
            return;
    }
    m_context.report(page, "The table \"" + of->name() + "\" lacks the index \"" + std::string(name) + "\".");
}

void Checker::checkCatalogue() {
    if (m_tables.empty())
        return; // it could not be read, and that has been said
    struct Needed {
        std::uint32_t id;
        std::string_view name;
        std::int16_t type;
        std::uint32_t parent;
    };
    constexpr Needed needed[] = {{kTablesId, "Tables", kContainerObject, kRootId},
                                 {kDatabasesId, "Databases", kContainerObject, kRootId},
                                 {kRelationshipsId, "Relationships", kContainerObject, kRootId},
                                 {kDatabaseObjectId, "MSysDb", kDatabaseObject, kDatabasesId},
                                 {kObjectsPage, "MSysObjects", kTableObject, kTablesId},
                                 {kAcesPage, "MSysACEs", kTableObject, kTablesId},
                                 {kQueriesPage, "MSysQueries", kTableObject, kTablesId},
                                 {kRelationshipsPage, "MSysRelationships", kTableObject, kTablesId}};
    for (const Needed& one : needed) {
        const auto found = m_objects.find(one.id);
        if (found == m_objects.end())
            m_context.report(kObjectsPage, "The catalogue lacks the object \"" + std::string(one.name) + "\".");
        else if (found->second.name != one.name || found->second.type != one.type ||
                 found->second.parent != one.parent || (found->second.flags & kSystemObject) == 0)
            m_context.report(found->second.page, "The catalogue's row of the object \"" + std::string(one.name) +
                                                     "\" is not as it should be.");
    }
    for (const auto& [id, object] : m_objects)
        checkObject(object);
    requireIndex(kObjectsPage, "ParentIdName", {"ParentId", "Name"});
    requireIndex(kObjectsPage, "Id", {"Id"});
    requireIndex(kAcesPage, "ObjectId", {"ObjectId"});
    requireIndex(kQueriesPage, "ObjectIdAttribute", {"ObjectId", "Attribute", "Order"});
    requireIndex(kRelationshipsPage, "szObject", {"szObject"});
    requireIndex(kRelationshipsPage, "szReferencedObject", {"szReferencedObject"});
    requireIndex(kRelationshipsPage, "szRelationship", {"szRelationship"});
}

void Checker::checkAces() {
    const JetCheckTable* aces = table(kAcesPage);
    if (aces == nullptr)
        return;
    const JetColumn* who = aces->column("SID");
    std::set<std::uint32_t> granted;
    for (const auto& [pointer, row] : aces->rows()) {
        const std::uint32_t object = numberOf(*aces, row, "ObjectId");
        granted.insert(object);
        if (!m_objects.contains(object))
            m_context.report(pointer >> 8, "Row " + std::to_string(pointer & 0xFF) +
                                               " of the page grants rights on the object " + std::to_string(object) +
                                               ", which does not exist.");
        const auto sid = who == nullptr ? std::nullopt : aces->value(row, *who);
        if (!sid || sid->empty())
            m_context.report(pointer >> 8,
                             "Row " + std::to_string(pointer & 0xFF) + " of the page grants rights to nobody.");
    }
    // Access leaves some of its own objects (settings, the layout of windows) without rights.
    for (const auto& [id, object] : m_objects)
        if (!granted.contains(id) && object.type >= kTableObject && object.type <= kContainerObject)
            m_context.report(object.page, "Nobody has rights on the object \"" + object.name + "\".");
}

void Checker::checkPages() {
    JetPage page;
    for (std::uint32_t number = 0; number < m_file.pageCount(); ++number) {
        if (m_context.claimed(number)) {
            if (m_free.contains(number))
                m_context.report(number, "The page is in use, but the map of free pages lists it.");
            continue;
        }
        if (m_free.contains(number))
            continue;
        m_file.read(number, page);
        const bool rows =
            page.type() == PageType::Data && page.owner() != data::kLongValueOwner && table(page.owner()) != nullptr;
        m_context.report(number, rows ? "The page holds rows of the table \"" + table(page.owner())->name() +
                                            "\", which does not list it."
                                 : page.type() == PageType::Definition
                                     ? "The page defines a table that the catalogue does not list."
                                     : "The page belongs to nothing and is not free.");
    }
}
} // namespace

std::vector<JetViolation> jet::checkRules(const JetFile& file) {
    return Checker(file).run();
}

std::vector<JetViolation> checkJet(const std::string& path) {
    const JetFile file(path);
    if (file.jet3())
        throw StoreError("The file \"" + path + "\" is of Jet 3 (Access 97); only the rules of Jet 4 are known here.");
    return checkRules(file);
}

} // namespace odbc
