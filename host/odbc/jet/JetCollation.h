// The keys that text has in an index: the collation "General (legacy)", language 1033.
//
// A key is the weights of the letters, 0x01, the weights of the accents (0x02 for a letter without
// one, none behind the last accent), for the characters that sort last of all three more 0x01 and
// their places, then 0x00. Capitals and small letters weigh the same. Letters, digits, space, comma,
// slash, low line and tilde were observed in indexes that Access had written, the accents are those
// of the public sorting weights of Windows, on which this collation stands.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace odbc::jet {

// What one character weighs. `extra` is the second byte of a two-byte weight or 0; `accent` is 2
// for none. A character with weight 0 (apostrophe, hyphen) stands behind all others, told by `last`.
struct SortWeight {
    std::uint8_t weight = 0, extra = 0, accent = 2, last = 0;
    bool known() const { return weight != 0 || last != 0; }
};
SortWeight sortWeightOf(char16_t c);

// Whether every character of the text (UTF-8) has its weight.
bool isSortable(std::string_view utf8);
// Appends the key of the text, without the flag byte before it. False, with `key` as it was, where
// the text holds a character whose weight is not known.
bool appendSortKey(std::u16string_view text, std::string& key);

} // namespace odbc::jet
