// The tokens of the Access dialect.
#pragma once

#include "store/StoreTable.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace odbc {

struct SqlToken {
    enum class Kind : std::uint8_t {
        End,
        Word,   // a bare name or a keyword; which of them, its place decides
        Name,   // [name] or `name`; text is what stands between
        Number, // a sign before it is taken in where it cannot be an operation
        Text,   // 'text' or "text"; text is what stands between, its quotes still doubled
        Symbol
    };
    Kind kind = Kind::End;
    bool negative = false;  // Number
    bool doubled = false;   // Text: a doubled quote stands in it
    char symbol = 0;        // a character, or kLessEqual and the like
    std::wstring_view text; // part of the statement
};

// Control characters, which no name holds: in a shape a letter would run into the name before it.
constexpr char kLessEqual = '\x05', kGreaterEqual = '\x06', kNotEqual = '\x07';

// Replaces `tokens` by those of the statement and a last one of the kind End. Throws StoreError for a text or
// a name that does not end, and for a character that begins no token.
void tokenize(std::wstring_view sql, std::vector<SqlToken>& tokens);

bool isLiteral(const SqlToken& token);
// word: capitals.
bool isKeyword(const SqlToken& token, std::wstring_view word);
// What is between the quotes of a Text, with doubled ones single, as UTF-8 behind `out`. StoreError
// where it is no Unicode.
void appendText(const SqlToken& token, std::string& out);
// StoreError where the number is beyond the doubles.
double numberOf(const SqlToken& token);
// The token as it is shown in a message: UTF-8, shortened.
std::string shown(const SqlToken& token);

// What statements that differ only in their literals have in common, as bytes behind `out`.
void appendShape(const std::vector<SqlToken>& tokens, std::string& out);

} // namespace odbc
