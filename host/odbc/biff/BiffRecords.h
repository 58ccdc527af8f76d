// Walks the records of a stream, and the fields of a record that goes on in CONTINUE records.
#pragma once

#include "BiffFormat.h"

#include <concepts>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace odbc::biff {

// The number at a place of a record's body; 0 where the body ends before it.
template <class T> T fieldAt(std::string_view body, std::size_t at) {
    T value{};
    if (at + sizeof value <= body.size())
        std::memcpy(&value, body.data() + at, sizeof value);
    return value;
}

class RecordCursor {
public:
    explicit RecordCursor(std::string_view bytes) : mRest(bytes) {}
    // Takes the next record; false where there is no whole one.
    bool next() {
        if (mRest.size() < 4)
            return false;
        const std::size_t size = fieldAt<std::uint16_t>(mRest, 2);
        if (mRest.size() - 4 < size)
            return false;
        mId = fieldAt<std::uint16_t>(mRest, 0);
        mBody = mRest.substr(4, size);
        mRest.remove_prefix(4 + size);
        return true;
    }
    Record id() const { return static_cast<Record>(mId); }
    std::string_view body() const { return mBody; }
    // The bodies of this record and of the CONTINUE records behind it, which are taken too.
    std::vector<std::string_view> bodies() {
        std::vector<std::string_view> all{mBody};
        while (fieldAt<std::uint16_t>(mRest, 0) == static_cast<std::uint16_t>(Record::Continue) && next())
            all.push_back(mBody);
        return all;
    }

private:
    std::string_view mRest, mBody;
    std::uint16_t mId = 0;
};

// Reads over the seams of a continued record. After a failed read everything fails.
class FieldReader {
public:
    explicit FieldReader(std::vector<std::string_view> bodies) : mBodies(std::move(bodies)) {}
    bool failed() const { return mFailed; }
    template <std::unsigned_integral T> T number() {
        T value = 0;
        for (std::size_t i = 0; i < sizeof value; ++i)
            value = static_cast<T>(value | static_cast<T>(T{byte()} << (8 * i)));
        return value;
    }
    void skip(std::uint64_t count);
    // `count` characters behind the option byte; a string that goes on in the next body has an
    // option byte there too, which may change the width of the rest.
    std::u16string characters(std::size_t count, std::uint8_t options);
    // A string with a 16-bit count, with the formatting runs and phonetics that may hang on it.
    std::u16string richString();

private:
    std::uint8_t byte();
    bool atSeam() const { return mAt == mBodies[mBody].size(); }
    bool advance(); // to the next body
    std::vector<std::string_view> mBodies;
    std::size_t mBody = 0, mAt = 0;
    bool mFailed = false;
};

} // namespace odbc::biff
