// From the Access dialect to SQLite's, by parsing: what is not understood is refused, so that no
// statement means something else there.
//
// Understood: CREATE TABLE, DROP TABLE, INSERT INTO ... VALUES, UPDATE ... SET ... WHERE, DELETE [*]
// FROM ... WHERE, SELECT [DISTINCT] ... FROM one table ... WHERE ... ORDER BY, with COUNT, MIN, MAX, SUM,
// AVG; in conditions AND, OR, NOT, comparisons, BETWEEN, IN, IS NULL, the four operations.
#pragma once

#include "sql/SqlTokens.h"
#include "store/Catalogue.h"
#include "store/ResultSet.h"

namespace odbc {

struct SqlStatement {
    enum class Kind : std::uint8_t { Select, Insert, Update, Delete, Create, Drop };
    Kind kind = Kind::Select;
    std::string table; // key in the catalogue
    // SQLite's text, where literal n of the statement (from 1) is the parameter ?n. Empty for Create
    // and Drop.
    std::string sql;
    // By literal: the column it is stored in, -1 where it is compared. A number is compared as a double.
    std::vector<int> literalColumns;
    // Select.
    std::vector<ResultColumn> columns;
    std::vector<StoreColumn> sources; // how the cells of `columns` are to be read
    // A column that every row wanted has equal to a literal, -1 where there is none: worth an index.
    int lookupColumn = -1;
    // Create.
    StoreTable created;
};

// StoreError, with one sentence, for everything that Access refuses: faulty syntax, an unknown table
// or column, values and columns that do not pair, an operation on values of the wrong kind, more than one
// statement.
SqlStatement translate(const std::vector<SqlToken>& tokens, const Catalogue& catalogue);

} // namespace odbc
