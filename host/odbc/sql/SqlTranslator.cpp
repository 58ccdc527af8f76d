#include "sql/SqlTranslator.h"

#include "sql/SqlExpression.h"
#include "sql/SqlTypes.h"
#include "store/StoreText.h"

#include <algorithm>

namespace odbc {

namespace {
using TokenKind = SqlToken::Kind;

// A column of a SELECT's result.
struct Item {
    std::string sql;
    StoreColumn source; // with the name that the result shows
    bool aggregate = false;
    int column = -1;
};

std::string joined(const std::string& list, const std::string& next) {
    return list.empty() ? next : list + "," + next;
}

class Translator {
public:
    Translator(const std::vector<SqlToken>& tokens, const Catalogue& catalogue) : mCursor(tokens), mCatalogue(catalogue) {
        mStatement.literalColumns.assign(static_cast<std::size_t>(std::count_if(tokens.begin(), tokens.end(), isLiteral)), -1);
    }

    SqlStatement run() {
        struct Row {
            const wchar_t* word;
            SqlStatement::Kind kind;
            void (Translator::*parse)();
        };
        static constexpr Row kRows[] = {
            {L"SELECT", SqlStatement::Kind::Select, &Translator::select}, {L"INSERT", SqlStatement::Kind::Insert, &Translator::insert},
            {L"UPDATE", SqlStatement::Kind::Update, &Translator::update}, {L"DELETE", SqlStatement::Kind::Delete, &Translator::remove},
            {L"CREATE", SqlStatement::Kind::Create, &Translator::create}, {L"DROP", SqlStatement::Kind::Drop, &Translator::drop},
        };
        for (const Row& row : kRows)
            if (mCursor.accept(row.word)) {
                mStatement.kind = row.kind;
                (this->*row.parse)();
                finish();
                return std::move(mStatement);
            }
        throw StoreError("Érvénytelen SQL-utasítás: SELECT, INSERT, UPDATE, DELETE, CREATE TABLE vagy DROP TABLE kell.");
    }

private:
    void finish() {
        if (mCursor.accept(';') && mCursor.peek().kind != TokenKind::End)
            throw StoreError("Az SQL-utasítás vége után is áll szöveg.");
        if (mCursor.peek().kind != TokenKind::End)
            mCursor.refuseSyntax();
    }

    void useTable() {
        const std::string wanted = mCursor.name();
        mTable = mCatalogue.find(foldedName(wanted));
        if (mTable == nullptr)
            throw StoreError("Az adatbázisban nincs ilyen tábla: " + wanted + ".");
        mStatement.table = mTable->key;
    }

    int column() { return takeColumn(mCursor, *mTable); }
    const StoreColumn& storeColumn(int column) const { return mTable->table.columns[static_cast<std::size_t>(column)]; }

    // ---- CREATE, DROP --------------------------------------------------------------------
    void create() {
        mCursor.expect(L"TABLE");
        mStatement.created.name = mCursor.name();
        mCursor.expect('(');
        do
            mStatement.created.columns.push_back(definition());
        while (mCursor.accept(','));
        mCursor.expect(')');
        mStatement.table = foldedName(mStatement.created.name);
    }

    StoreColumn definition() {
        StoreColumn column;
        column.name = mCursor.name();
        if (!isName(mCursor.peek()))
            mCursor.refuseSyntax();
        const SqlTypeRow* type = sqlType(mCursor.peek());
        if (type == nullptr)
            throw StoreError("Ismeretlen oszloptípus (" + column.name + "): " + shown(mCursor.peek()) + ".");
        mCursor.take();
        column.kind = type->kind;
        std::uint16_t size = type->defaultSize, scale = 0;
        if (type->sizes != SqlTypeRow::Sizes::None && mCursor.accept('(')) {
            size = sizeNumber(1, type->mostSize);
            if (type->sizes == SqlTypeRow::Sizes::Decimal && mCursor.accept(','))
                scale = sizeNumber(0, size);
            mCursor.expect(')');
        }
        if (type->sizes == SqlTypeRow::Sizes::Decimal) {
            column.precision = static_cast<std::uint8_t>(size);
            column.scale = static_cast<std::uint8_t>(scale);
        } else {
            column.size = size;
        }
        return column;
    }

    std::uint16_t sizeNumber(int least, int most) {
        if (mCursor.peek().kind != TokenKind::Number)
            mCursor.refuseSyntax();
        const double value = numberOf(mCursor.take());
        if (!(value >= least && value <= most) || value != static_cast<int>(value))
            throw StoreError("Egy oszlop mérete nem lehet ekkora.");
        return static_cast<std::uint16_t>(value);
    }

    void drop() {
        mCursor.expect(L"TABLE");
        useTable();
    }

    // ---- INSERT, UPDATE, DELETE ----------------------------------------------------------
    void insert() {
        mCursor.expect(L"INTO");
        useTable();
        const std::vector<int> columns = insertColumns();
        mCursor.expect(L"VALUES");
        mCursor.expect('(');
        std::string names, values;
        for (const int column : columns) {
            if (!values.empty() && !mCursor.accept(','))
                refuseCount();
            names = joined(names, columnSql(column));
            values = joined(values, stored(column, nullptr));
        }
        if (!mCursor.accept(')'))
            refuseCount();
        // A yes/no column has no null: what is left out is false.
        for (std::size_t i = 0; i < mTable->table.columns.size(); ++i)
            if (mTable->table.columns[i].kind == ColumnKind::Bool && std::find(columns.begin(), columns.end(), static_cast<int>(i)) == columns.end()) {
                names = joined(names, columnSql(static_cast<int>(i)));
                values = joined(values, "0");
            }
        mStatement.sql = "INSERT INTO " + mTable->sqlName + "(" + names + ") VALUES(" + values + ")";
    }

    [[noreturn]] void refuseCount() const {
        if (!isSymbol(mCursor.peek(), ',') && !isSymbol(mCursor.peek(), ')'))
            mCursor.refuseSyntax();
        throw StoreError("Az értékek és az oszlopok száma nem egyezik.");
    }

    std::vector<int> insertColumns() {
        std::vector<int> columns;
        std::vector<bool> seen(mTable->table.columns.size());
        if (!mCursor.accept('(')) {
            for (std::size_t i = 0; i < seen.size(); ++i)
                columns.push_back(static_cast<int>(i));
            return columns;
        }
        do
            columns.push_back(target(seen));
        while (mCursor.accept(','));
        mCursor.expect(')');
        return columns;
    }

    // A column that is given a value; each only once.
    int target(std::vector<bool>& seen) {
        const int next = column();
        if (seen[static_cast<std::size_t>(next)])
            throw StoreError("Egy oszlop két értéket kapna: " + storeColumn(next).name + ".");
        seen[static_cast<std::size_t>(next)] = true;
        return next;
    }

    // The value to be put into a column. readable: the table whose columns the value may name, or null.
    std::string stored(int into, const CatalogueTable* readable) {
        const StoreColumn& column = storeColumn(into);
        if (endsValue(mCursor.peek(1))) { // one token is the whole value
            if (isLiteral(mCursor.peek()))
                return literalFor(into);
            if (mCursor.accept(L"NULL"))
                return column.kind == ColumnKind::Bool ? "0" : "NULL";
            if (isKeyword(mCursor.peek(), L"TRUE") || isKeyword(mCursor.peek(), L"FALSE"))
                return truthFor(column);
        }
        const SqlOperand value = SqlExpression(mCursor, readable).parse();
        if (!endsValue(mCursor.peek()))
            mCursor.refuseSyntax();
        if (value.column >= 0) {
            const StoreColumn& from = storeColumn(value.column);
            if (from.kind == column.kind && from.precision == column.precision && from.scale == column.scale && from.size <= column.size)
                return columnSql(value.column);
        }
        if (column.kind != ColumnKind::Double || value.type != SqlValueType::Number)
            throw StoreError("Az oszlop csak egyszerű értéket kaphat: " + column.name + ".");
        return value.sql;
    }

    static bool endsValue(const SqlToken& token) {
        return token.kind == TokenKind::End || isSymbol(token, ',') || isSymbol(token, ')') || isSymbol(token, ';') || isKeyword(token, L"WHERE");
    }

    std::string literalFor(int column) {
        mStatement.literalColumns[static_cast<std::size_t>(mCursor.literalsTaken())] = column;
        std::string parameter = mCursor.parameter();
        mCursor.take();
        return parameter;
    }

    std::string truthFor(const StoreColumn& column) {
        if (valueType(column.kind) != SqlValueType::Number)
            refuseMismatch();
        const bool yes = isKeyword(mCursor.take(), L"TRUE");
        return !yes ? "0" : column.kind == ColumnKind::Bool ? "1" : "-1";
    }

    void update() {
        useTable();
        mCursor.expect(L"SET");
        std::string sets;
        std::vector<bool> seen(mTable->table.columns.size());
        do {
            const int into = target(seen);
            mCursor.expect('=');
            sets = joined(sets, columnSql(into) + "=" + stored(into, mTable));
        } while (mCursor.accept(','));
        mStatement.sql = "UPDATE " + mTable->sqlName + " SET " + sets + where();
    }

    // DELETE FROM t, DELETE * FROM t, DELETE t.* FROM t.
    void remove() {
        std::string of;
        if (!mCursor.accept('*') && !isKeyword(mCursor.peek(), L"FROM")) {
            of = mCursor.name();
            mCursor.expect('.');
            mCursor.expect('*');
        }
        mCursor.expect(L"FROM");
        useTable();
        if (!of.empty())
            requireTable(*mTable, of);
        mStatement.sql = "DELETE FROM " + mTable->sqlName + where();
    }

    std::string where() {
        if (!mCursor.accept(L"WHERE"))
            return {};
        SqlExpression expression(mCursor, mTable);
        const SqlOperand condition = expression.parseCondition();
        mStatement.lookupColumn = expression.equalColumn();
        return " WHERE " + condition.sql;
    }

    // ---- SELECT --------------------------------------------------------------------------
    void select() {
        findFrom();
        const bool distinct = mCursor.accept(L"DISTINCT");
        if (!distinct)
            mCursor.accept(L"ALL");
        std::vector<Item> items;
        do
            selectItem(items);
        while (mCursor.accept(','));
        mCursor.expect(L"FROM");
        mCursor.name();
        const std::string condition = where();
        const std::string order = orderBy(items, distinct);
        checkAggregates(items, !order.empty());
        std::string list;
        for (Item& item : items) {
            list = joined(list, item.sql);
            mStatement.columns.push_back(resultColumn(item.source));
            mStatement.sources.push_back(std::move(item.source));
        }
        mStatement.sql = std::string("SELECT ") + (distinct ? "DISTINCT " : "") + list + " FROM " + mTable->sqlName + condition + order;
    }

    // The columns stand before the table that explains them.
    void findFrom() {
        const std::size_t start = mCursor.place();
        const int literals = mCursor.literalsTaken();
        while (!mCursor.accept(L"FROM"))
            if (mCursor.take().kind == TokenKind::End)
                mCursor.refuseSyntax();
        useTable();
        mCursor.returnTo(start, literals);
    }

    void selectItem(std::vector<Item>& items) {
        if (mCursor.accept('*')) {
            allColumns(items);
            return;
        }
        if (isName(mCursor.peek()) && isSymbol(mCursor.peek(1), '.') && isSymbol(mCursor.peek(2), '*')) {
            requireTable(*mTable, mCursor.name());
            mCursor.take();
            mCursor.take();
            allColumns(items);
            return;
        }
        Item item = isName(mCursor.peek()) && isSymbol(mCursor.peek(1), '(') ? aggregate() : plainItem();
        if (mCursor.accept(L"AS"))
            item.source.name = mCursor.name();
        else if (item.column < 0)
            item.source.name = "Expr" + std::to_string(1000 + items.size());
        items.push_back(std::move(item));
    }

    void allColumns(std::vector<Item>& items) const {
        for (std::size_t i = 0; i < mTable->table.columns.size(); ++i)
            items.push_back({columnSql(static_cast<int>(i)), mTable->table.columns[i], false, static_cast<int>(i)});
    }

    Item plainItem() {
        const SqlOperand value = SqlExpression(mCursor, mTable).parse();
        Item item{value.sql, {}, false, value.column};
        if (value.column >= 0) {
            item.sql = columnSql(value.column);
            item.source = storeColumn(value.column);
        } else if (value.type == SqlValueType::Text) {
            item.source.kind = ColumnKind::Memo;
        } else if (value.type != SqlValueType::Number) {
            throw StoreError("A SELECT egyik oszlopa se nem szám, se nem szöveg.");
        }
        return item;
    }

    Item aggregate() {
        enum class Result : std::uint8_t { Count, SameKind, Double };
        struct Row {
            const wchar_t* word;
            const char* sql;
            Result result;
        };
        static constexpr Row kRows[] = {
            {L"COUNT", "count", Result::Count}, {L"MIN", "min", Result::SameKind}, {L"MAX", "max", Result::SameKind},
            {L"SUM", "sum", Result::Double},    {L"AVG", "avg", Result::Double},
        };
        const auto* row = std::find_if(std::begin(kRows), std::end(kRows), [this](const Row& r) { return isKeyword(mCursor.peek(), r.word); });
        if (row == std::end(kRows))
            throw StoreError("Ismeretlen függvény: " + shown(mCursor.peek()) + ".");
        mCursor.take();
        mCursor.expect('(');
        Item item{std::string(row->sql) + "(*)", {}, true, -1};
        if (row->result != Result::Count || !mCursor.accept('*')) {
            const int of = column();
            item.sql = std::string(row->sql) + "(" + columnSql(of) + ")";
            item.source = storeColumn(of);
            const SqlValueType type = valueType(item.source.kind);
            const bool orderless = type == SqlValueType::Bytes || item.source.kind == ColumnKind::Bool;
            if ((row->result == Result::SameKind && orderless) || (row->result == Result::Double && type != SqlValueType::Number))
                refuseMismatch();
        }
        if (row->result != Result::SameKind)
            item.source = {{}, row->result == Result::Count ? ColumnKind::Long : ColumnKind::Double, 0, 0, 0};
        mCursor.expect(')');
        return item;
    }

    static void checkAggregates(const std::vector<Item>& items, bool ordered) {
        const auto count = static_cast<std::size_t>(std::count_if(items.begin(), items.end(), [](const Item& item) { return item.aggregate; }));
        if (count > 0 && (count < items.size() || ordered))
            throw StoreError("Az utasítás egyes sorokat és az összes sorra vonatkozó függvényt kever.");
    }

    std::string orderBy(const std::vector<Item>& items, bool distinct) {
        if (!mCursor.accept(L"ORDER"))
            return {};
        mCursor.expect(L"BY");
        std::string list;
        do {
            const int by = column();
            const bool given = std::any_of(items.begin(), items.end(), [by](const Item& item) { return item.column == by; });
            if (distinct && !given)
                throw StoreError("Az ORDER BY olyan oszlopot nevez meg, amelyet a SELECT DISTINCT nem ad: " + storeColumn(by).name + ".");
            const bool descending = mCursor.accept(L"DESC");
            if (!descending)
                mCursor.accept(L"ASC");
            list = joined(list, columnSql(by) + (descending ? " DESC" : ""));
        } while (mCursor.accept(','));
        return " ORDER BY " + list;
    }

    SqlCursor mCursor;
    const Catalogue& mCatalogue;
    const CatalogueTable* mTable = nullptr;
    SqlStatement mStatement;
};
} // namespace

SqlStatement translate(const std::vector<SqlToken>& tokens, const Catalogue& catalogue) {
    return Translator(tokens, catalogue).run();
}

} // namespace odbc
