#include "sql/SqlTokens.h"

#include "AcUtText.h"
#include "store/StoreText.h"

#include <algorithm>
#include <charconv>

namespace odbc {

namespace {
using Kind = SqlToken::Kind;

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}
bool isWordStart(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_' || c >= 0x80 || c < 0;
}
bool isBlank(wchar_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

class Tokenizer {
public:
    Tokenizer(std::wstring_view sql, std::vector<SqlToken>& tokens) : mSql(sql), mTokens(tokens) {}

    void run() {
        mTokens.clear();
        for (;;) {
            while (mAt < mSql.size() && isBlank(mSql[mAt]))
                ++mAt;
            if (mAt == mSql.size())
                break;
            next(mSql[mAt]);
        }
        mTokens.emplace_back();
    }

private:
    void next(wchar_t c) {
        if (isDigit(c) || (c == L'.' && isDigit(peek(1))))
            number();
        else if (isWordStart(c))
            word();
        else if (c == L'\'' || c == L'"')
            text(c);
        else if (c == L'[')
            name(L']');
        else if (c == L'`')
            name(L'`');
        else
            symbol(c);
    }

    wchar_t peek(std::size_t ahead) const { return mAt + ahead < mSql.size() ? mSql[mAt + ahead] : L'\0'; }

    SqlToken& add(Kind kind, std::size_t begin, std::size_t end) {
        SqlToken& token = mTokens.emplace_back();
        token.kind = kind;
        token.text = mSql.substr(begin, end - begin);
        return token;
    }

    void word() {
        const std::size_t begin = mAt;
        while (isWordStart(peek(0)) || isDigit(peek(0)))
            ++mAt;
        add(Kind::Word, begin, mAt);
    }

    void digits() {
        while (isDigit(peek(0)))
            ++mAt;
    }

    void number() {
        const std::size_t begin = mAt;
        digits();
        if (peek(0) == L'.') {
            ++mAt;
            digits();
        }
        if ((peek(0) == L'e' || peek(0) == L'E') && (isDigit(peek(1)) || ((peek(1) == L'+' || peek(1) == L'-') && isDigit(peek(2))))) {
            mAt += 2;
            digits();
        }
        const bool negative = takeSign();
        add(Kind::Number, begin, mAt).negative = negative;
    }

    // A minus behind an operator, a comma or a bracket belongs to the number, so that rows of any
    // signs have one shape.
    bool takeSign() {
        const std::size_t count = mTokens.size();
        const auto isSymbol = [&](std::size_t back) { return count >= back && mTokens[count - back].kind == Kind::Symbol; };
        if (!isSymbol(1) || mTokens.back().symbol != '-' || !isSymbol(2) || mTokens[count - 2].symbol == ')')
            return false;
        mTokens.pop_back();
        return true;
    }

    void text(wchar_t quote) {
        const std::size_t begin = ++mAt;
        bool doubled = false;
        for (;; mAt += 2, doubled = true) {
            mAt = mSql.find(quote, mAt);
            if (mAt == std::wstring_view::npos)
                throw StoreError("Szintaktikai hiba: az utasítás egyik szövegének nincs záró " + std::string(1, static_cast<char>(quote)) + " jele.");
            if (peek(1) != quote)
                break;
        }
        add(Kind::Text, begin, mAt).doubled = doubled;
        ++mAt;
    }

    void name(wchar_t closing) {
        const std::size_t begin = mAt + 1;
        mAt = mSql.find(closing, begin);
        if (mAt == std::wstring_view::npos)
            throw StoreError("Szintaktikai hiba: az utasításban egy zárójeles név nem ér véget.");
        const SqlToken& token = add(Kind::Name, begin, mAt);
        if (std::any_of(token.text.begin(), token.text.end(), [](wchar_t c) { return c >= 0 && c < L' '; }))
            throw StoreError("Szintaktikai hiba: egy zárójeles névben vezérlőkarakter áll.");
        ++mAt;
    }

    void symbol(wchar_t c) {
        char code = c < 0x80 ? static_cast<char>(c) : '\0';
        const wchar_t second = peek(1);
        if (c == L'<' && second == L'=')
            code = kLessEqual;
        else if (c == L'>' && second == L'=')
            code = kGreaterEqual;
        else if (c == L'<' && second == L'>')
            code = kNotEqual;
        else if (c > L' ' && std::string_view("(),;.*=<>+-/").find(code) == std::string_view::npos)
            code = '\0';
        const std::size_t length = code == kLessEqual || code == kGreaterEqual || code == kNotEqual ? 2 : 1;
        SqlToken& token = add(Kind::Symbol, mAt, mAt + length);
        if (code == '\0' || c <= L' ')
            throw StoreError("Szintaktikai hiba: az utasításban nem állhat ilyen karakter: " + shown(token) + ".");
        token.symbol = code;
        mAt += length;
    }

    std::wstring_view mSql;
    std::vector<SqlToken>& mTokens;
    std::size_t mAt = 0;
};

// Of a number beyond the doubles: whether it is too near to zero.
bool isTiny(std::string_view digits) {
    const std::size_t exponent = digits.find_first_of("eE");
    if (exponent != std::string_view::npos)
        return digits[exponent + 1] == '-';
    return digits.front() == '0' || digits.front() == '.';
}
} // namespace

void tokenize(std::wstring_view sql, std::vector<SqlToken>& tokens) {
    Tokenizer(sql, tokens).run();
}

bool isLiteral(const SqlToken& token) {
    return token.kind == Kind::Number || token.kind == Kind::Text;
}

bool isKeyword(const SqlToken& token, std::wstring_view word) {
    if (token.kind != Kind::Word || token.text.size() != word.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i)
        if (acFoldCase(token.text[i]) != acFoldCase(word[i]))
            return false;
    return true;
}

void appendText(const SqlToken& token, std::string& out) {
    const std::size_t before = out.size();
    if (!appendUtf8(token.text, out))
        throw StoreError("Az utasítás egyik szövegében nem Unicode karakter áll.");
    if (!token.doubled)
        return;
    const char quote = token.text.data()[-1] == L'"' ? '"' : '\'';
    std::size_t kept = before;
    for (std::size_t i = before; i < out.size(); ++i) {
        out[kept++] = out[i];
        if (out[i] == quote)
            ++i; // the second of the pair
    }
    out.resize(kept);
}

double numberOf(const SqlToken& token) {
    char digits[512];
    digits[0] = '\0';
    const std::size_t length = token.text.size();
    if (length >= sizeof digits)
        throw StoreError("Túl hosszú szám: " + shown(token) + ".");
    for (std::size_t i = 0; i < length; ++i)
        digits[i] = static_cast<char>(token.text[i]);
    double value = 0;
    const auto result = std::from_chars(digits, digits + length, value);
    if (result.ec == std::errc::result_out_of_range && !isTiny({digits, length}))
        throw StoreError("Túl nagy szám: " + shown(token) + ".");
    return token.negative ? -value : value;
}

std::string shown(const SqlToken& token) {
    constexpr std::size_t kMost = 40;
    return acToUtf8(token.text.substr(0, kMost)) + (token.text.size() > kMost ? "..." : "");
}

void appendShape(const std::vector<SqlToken>& tokens, std::string& out) {
    for (const SqlToken& token : tokens) {
        // Control characters are in no token, so they mark the kinds.
        switch (token.kind) {
        case Kind::End:
            break;
        case Kind::Number:
            out += '\x01';
            break;
        case Kind::Text:
            out += '\x02';
            break;
        case Kind::Symbol:
            out += token.symbol;
            break;
        case Kind::Word:
        case Kind::Name:
            out += token.kind == Kind::Word ? '\x03' : '\x04';
            if (!appendUtf8(token.text, out))
                throw StoreError("Az utasítás egyik nevében nem Unicode karakter áll.");
            if (token.kind == Kind::Name)
                out += '\x04'; // in brackets it may end with what looks like a symbol
            break;
        }
    }
}

} // namespace odbc
