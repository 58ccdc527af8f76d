// The place of a parser in the tokens of a statement.
#pragma once

#include "sql/SqlTokens.h"

namespace odbc {

class SqlCursor {
public:
    explicit SqlCursor(const std::vector<SqlToken>& tokens) : mTokens(tokens) {} // the last one is the end

    const SqlToken& peek(std::size_t ahead = 0) const;
    const SqlToken& take();
    // Takes the token if it is that keyword (capitals) or symbol.
    bool accept(std::wstring_view word);
    bool accept(char symbol);
    template <class T> void expect(T wanted) {
        if (!accept(wanted))
            refuseSyntax();
    }
    // Takes a name, UTF-8; syntax error where none comes.
    std::string name();
    [[noreturn]] void refuseSyntax() const;

    std::size_t place() const { return mAt; }
    void returnTo(std::size_t place, int literalsTaken);
    int literalsTaken() const { return mLiteralsTaken; }
    // SQLite's parameter of the literal that comes next.
    std::string parameter() const { return "?" + std::to_string(mLiteralsTaken + 1); }

private:
    const std::vector<SqlToken>& mTokens;
    std::size_t mAt = 0;
    int mLiteralsTaken = 0;
};

bool isSymbol(const SqlToken& token, char symbol);
bool isName(const SqlToken& token);

} // namespace odbc
