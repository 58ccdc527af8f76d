// Little-endian bytes and whole records at the end of a growing buffer.
#pragma once

#include "BiffFormat.h"

#include <bit>
#include <concepts>
#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>

namespace odbc::biff {

static_assert(std::endian::native == std::endian::little, "numbers are stored as they lie in memory");

template <class T>
concept Plain = std::unsigned_integral<T> || std::floating_point<T>;

template <Plain T> void append(std::string& out, T value) {
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    out.append(bytes, sizeof value);
}
template <Plain T> void patch(std::string& out, std::size_t at, T value) { std::memcpy(out.data() + at, &value, sizeof value); }

inline void appendHead(std::string& out, Record id, std::size_t size) {
    append(out, static_cast<std::uint16_t>(id));
    append(out, static_cast<std::uint16_t>(size));
}
// A record whose fields are given one by one, each with the size of its type.
template <Plain... Fields> void appendRecord(std::string& out, Record id, Fields... fields) {
    appendHead(out, id, (sizeof(Fields) + ... + 0));
    (append(out, fields), ...);
}
inline void appendRecord(std::string& out, Record id, std::string_view body) {
    appendHead(out, id, body.size());
    out += body;
}
inline void appendRecord(std::string& out, Record id, std::initializer_list<std::uint16_t> words) {
    appendHead(out, id, words.size() * 2);
    for (const std::uint16_t word : words)
        append(out, word);
}

// True where each character fits one byte; the strings of the format then leave the upper ones out.
inline bool isNarrow(std::u16string_view text) {
    for (const char16_t c : text)
        if (c > 0xFF)
            return false;
    return true;
}
inline void appendCharacters(std::string& out, std::u16string_view text, bool narrow) {
    if (!narrow) {
        out.append(reinterpret_cast<const char*>(text.data()), text.size() * 2);
        return;
    }
    for (const char16_t c : text)
        out += static_cast<char>(c);
}
// Option byte and characters, behind a count that the caller has appended in the field's own width.
inline void appendString(std::string& out, std::u16string_view text) {
    const bool narrow = isNarrow(text);
    out += static_cast<char>(narrow ? 0 : 1);
    appendCharacters(out, text, narrow);
}

} // namespace odbc::biff
