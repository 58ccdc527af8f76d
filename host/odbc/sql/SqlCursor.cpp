#include "sql/SqlCursor.h"

#include "store/StoreText.h"

#include <algorithm>

namespace odbc {

bool isSymbol(const SqlToken& token, char symbol) {
    return token.kind == SqlToken::Kind::Symbol && token.symbol == symbol;
}

bool isName(const SqlToken& token) {
    return token.kind == SqlToken::Kind::Word || token.kind == SqlToken::Kind::Name;
}

const SqlToken& SqlCursor::peek(std::size_t ahead) const {
    return mTokens[std::min(mAt + ahead, mTokens.size() - 1)];
}

const SqlToken& SqlCursor::take() {
    const SqlToken& token = peek();
    if (isLiteral(token))
        ++mLiteralsTaken;
    if (token.kind != SqlToken::Kind::End)
        ++mAt;
    return token;
}

bool SqlCursor::accept(std::wstring_view word) {
    const bool found = isKeyword(peek(), word);
    if (found)
        take();
    return found;
}

bool SqlCursor::accept(char symbol) {
    const bool found = isSymbol(peek(), symbol);
    if (found)
        take();
    return found;
}

std::string SqlCursor::name() {
    if (!isName(peek()))
        refuseSyntax();
    std::string utf8;
    if (!appendUtf8(take().text, utf8))
        throw StoreError("Az utasítás egyik nevében nem Unicode karakter áll.");
    return utf8;
}

void SqlCursor::refuseSyntax() const {
    if (peek().kind == SqlToken::Kind::End)
        throw StoreError("Szintaktikai hiba: az utasítás túl korán ér véget.");
    throw StoreError("Szintaktikai hiba az utasításban, itt: " + shown(peek()) + ".");
}

void SqlCursor::returnTo(std::size_t place, int literalsTaken) {
    mAt = place;
    mLiteralsTaken = literalsTaken;
}

} // namespace odbc
