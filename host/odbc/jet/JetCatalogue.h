// The engine's own four tables: what objects there are, who may use them, queries, relationships.
#pragma once

#include "JetTableWriter.h"

namespace odbc::jet {

class JetCatalogue {
public:
    // The store stands at page 2: these tables have fixed places there.
    explicit JetCatalogue(JetPageStore& store);
    // A user's table, told by its name and its definition page. Throws StoreError for a name that
    // stands already (capitals and small letters are the same) or that cannot be indexed.
    void addTable(const std::string& name, std::uint32_t definitionPage);
    // Throws what addTable would throw for the name.
    void checkName(const std::string& name) const;
    void finish();

private:
    struct Object;
    void addObject(const Object& object);
    void addAccess(std::uint32_t object, std::string_view who, std::uint32_t rights, bool inheritable);
    std::string keyOf(const std::string& name) const;

    double m_now;
    std::vector<JetTableWriter> m_tables; // MSysObjects, MSysACEs, MSysQueries, MSysRelationships
    std::vector<std::string> m_names;     // the keys of the tables there are, sorted
};

} // namespace odbc::jet
