#include "sql/SqlExpression.h"

#include "store/StoreText.h"

namespace odbc {

using Type = SqlValueType;

SqlValueType valueType(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Bool:
    case ColumnKind::Byte:
    case ColumnKind::Short:
    case ColumnKind::Long:
    case ColumnKind::Currency:
    case ColumnKind::Single:
    case ColumnKind::Double:
    case ColumnKind::Date:
    case ColumnKind::Numeric:
        return Type::Number;
    case ColumnKind::Text:
    case ColumnKind::Memo:
    case ColumnKind::Guid:
        return Type::Text;
    case ColumnKind::Binary:
    case ColumnKind::Ole:
        return Type::Bytes;
    }
    return Type::Bytes;
}

void refuseMismatch() {
    throw StoreError("Az utasításban nem egyeznek az adattípusok: szöveg és szám találkozik.");
}

std::string columnSql(int column) {
    return "c" + std::to_string(column);
}

int columnNamed(const CatalogueTable& table, const std::string& name) {
    const int column = table.column(foldedName(name));
    if (column < 0)
        throw StoreError("A táblának (" + table.table.name + ") nincs ilyen oszlopa: " + name + ".");
    return column;
}

void requireTable(const CatalogueTable& table, const std::string& name) {
    if (foldedName(name) != table.key)
        throw StoreError("Az utasítás nem ezt a táblát olvassa: " + name + ".");
}

int takeColumn(SqlCursor& cursor, const CatalogueTable& table) {
    const std::string first = cursor.name();
    if (!cursor.accept('.'))
        return columnNamed(table, first);
    requireTable(table, first);
    return columnNamed(table, cursor.name());
}

namespace {
SqlOperand truth(std::string sql) {
    return {std::move(sql), Type::Truth, -1, false};
}

void requireCondition(const SqlOperand& operand) {
    if (operand.type != Type::Truth && operand.type != Type::Number)
        refuseMismatch();
}

void requireNumber(const SqlOperand& operand) {
    if (operand.type != Type::Number && operand.type != Type::Null)
        refuseMismatch();
}

void requireSameType(const SqlOperand& a, const SqlOperand& b) {
    for (const SqlOperand* side : {&a, &b})
        if (side->type == Type::Bytes || side->type == Type::Truth)
            refuseMismatch();
    if (a.type != b.type && a.type != Type::Null && b.type != Type::Null)
        refuseMismatch();
}

SqlOperand connected(const SqlOperand& a, const char* sql, const SqlOperand& b) {
    requireCondition(a);
    requireCondition(b);
    return truth("(" + a.sql + sql + b.sql + ")");
}

SqlOperand reckoned(const SqlOperand& a, const char* sql, const SqlOperand& b) {
    requireNumber(a);
    requireNumber(b);
    return {"(" + a.sql + sql + b.sql + ")", Type::Number, -1, false};
}

struct Comparison {
    char symbol;
    const char* sql;
};
constexpr Comparison kComparisons[] = {{'=', "="},           {'<', "<"},
                                       {'>', ">"},           {kLessEqual, "<="},
                                       {kGreaterEqual, ">="}, {kNotEqual, "<>"}};
} // namespace

// Keeps a statement of brackets without end from using up the stack.
class SqlExpression::Depth {
public:
    explicit Depth(int& depth) : mDepth(depth) {
        if (++mDepth > 100)
            throw StoreError("Az utasítás túl bonyolult.");
    }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;
    ~Depth() { --mDepth; }

private:
    int& mDepth;
};

SqlOperand SqlExpression::parseCondition() {
    SqlOperand condition = parse();
    requireCondition(condition);
    return condition;
}

SqlOperand SqlExpression::parse() {
    const Depth depth(mDepth);
    SqlOperand left = conjunction();
    while (mCursor.accept(L"OR")) {
        mOnlyAnd = false;
        left = connected(left, " OR ", conjunction());
    }
    return left;
}

SqlOperand SqlExpression::conjunction() {
    SqlOperand left = negation();
    while (mCursor.accept(L"AND"))
        left = connected(left, " AND ", negation());
    return left;
}

SqlOperand SqlExpression::negation() {
    if (!mCursor.accept(L"NOT"))
        return comparison();
    const Depth depth(mDepth);
    mOnlyAnd = false;
    const SqlOperand inner = negation();
    requireCondition(inner);
    return truth("(NOT " + inner.sql + ")");
}

SqlOperand SqlExpression::comparison() {
    SqlOperand left = sum();
    if (mCursor.accept(L"IS")) {
        const bool negative = mCursor.accept(L"NOT");
        mCursor.expect(L"NULL");
        return truth("(" + left.sql + (negative ? " IS NOT NULL)" : " IS NULL)"));
    }
    const bool negative = mCursor.accept(L"NOT");
    if (mCursor.accept(L"BETWEEN"))
        return between(left, negative);
    if (mCursor.accept(L"IN"))
        return in(left, negative);
    if (negative)
        mCursor.refuseSyntax();
    for (const Comparison& row : kComparisons)
        if (mCursor.accept(row.symbol)) {
            const SqlOperand right = sum();
            requireSameType(left, right);
            if (row.symbol == '=')
                noteEquality(left, right);
            return truth("(" + left.sql + row.sql + right.sql + ")");
        }
    return left;
}

SqlOperand SqlExpression::between(const SqlOperand& value, bool negative) {
    const SqlOperand low = sum();
    mCursor.expect(L"AND");
    const SqlOperand high = sum();
    requireSameType(value, low);
    requireSameType(value, high);
    return truth("(" + value.sql + (negative ? " NOT" : "") + " BETWEEN " + low.sql + " AND " + high.sql + ")");
}

SqlOperand SqlExpression::in(const SqlOperand& value, bool negative) {
    mCursor.expect('(');
    std::string list;
    do {
        const SqlOperand one = sum();
        requireSameType(value, one);
        list += (list.empty() ? "" : ",") + one.sql;
    } while (mCursor.accept(','));
    mCursor.expect(')');
    return truth("(" + value.sql + (negative ? " NOT" : "") + " IN (" + list + "))");
}

void SqlExpression::noteEquality(const SqlOperand& a, const SqlOperand& b) {
    const int column = b.literal ? a.column : a.literal ? b.column : -1;
    if (mEqualColumn < 0)
        mEqualColumn = column;
}

SqlOperand SqlExpression::sum() {
    SqlOperand left = product();
    for (;;) {
        if (mCursor.accept('+'))
            left = reckoned(left, "+", product());
        else if (mCursor.accept('-'))
            left = reckoned(left, "-", product());
        else
            return left;
    }
}

SqlOperand SqlExpression::product() {
    SqlOperand left = factor();
    for (;;) {
        if (mCursor.accept('*'))
            left = reckoned(left, "*", factor());
        else if (mCursor.accept('/'))
            left = reckoned(left, "*1.0/", factor()); // the quotient of whole numbers is real
        else
            return left;
    }
}

SqlOperand SqlExpression::factor() {
    const Depth depth(mDepth);
    if (mCursor.accept('-')) {
        const SqlOperand inner = factor();
        requireNumber(inner);
        return {"(- " + inner.sql + ")", Type::Number, -1, false}; // the blank: two minuses begin a comment
    }
    if (mCursor.accept('+'))
        return factor();
    if (mCursor.accept('(')) {
        SqlOperand inner = parse();
        mCursor.expect(')');
        return inner;
    }
    return value();
}

SqlOperand SqlExpression::value() {
    const SqlToken& token = mCursor.peek();
    if (isLiteral(token)) {
        SqlOperand literal{mCursor.parameter(), token.kind == SqlToken::Kind::Text ? Type::Text : Type::Number, -1, true};
        mCursor.take();
        return literal;
    }
    if (mCursor.accept(L"NULL"))
        return {"NULL", Type::Null, -1, false};
    if (mCursor.accept(L"TRUE"))
        return {"-1", Type::Number, -1, false};
    if (mCursor.accept(L"FALSE"))
        return {"0", Type::Number, -1, false};
    if (isName(token) && isSymbol(mCursor.peek(1), '('))
        throw StoreError("Ott nem állhat függvény: " + shown(token) + ".");
    if (!isName(token))
        mCursor.refuseSyntax();
    if (mTable == nullptr)
        throw StoreError("Ez nem érték: " + shown(token) + ".");
    const int column = takeColumn(mCursor, *mTable);
    const ColumnKind kind = mTable->table.columns[static_cast<std::size_t>(column)].kind;
    if (kind == ColumnKind::Bool) // yes is -1 in a condition of Access and 1 in the store
        return {"(-" + columnSql(column) + ")", Type::Number, column, false};
    return {columnSql(column), valueType(kind), column, false};
}

} // namespace odbc
