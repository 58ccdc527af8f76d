#include "BiffRecords.h"

#include <algorithm>

namespace odbc::biff {

bool FieldReader::advance() {
    mFailed = mFailed || mBody + 1 == mBodies.size();
    if (mFailed)
        return false;
    ++mBody;
    mAt = 0;
    return true;
}

std::uint8_t FieldReader::byte() {
    while (!mFailed && atSeam())
        advance();
    return mFailed ? std::uint8_t{0} : static_cast<std::uint8_t>(mBodies[mBody][mAt++]);
}

void FieldReader::skip(std::uint64_t count) {
    while (!mFailed && count > 0) {
        const std::size_t here = static_cast<std::size_t>(std::min<std::uint64_t>(count, mBodies[mBody].size() - mAt));
        mAt += here;
        count -= here;
        if (count > 0)
            advance();
    }
}

std::u16string FieldReader::characters(std::size_t count, std::uint8_t options) {
    std::u16string text;
    while (!mFailed && text.size() < count) {
        if (atSeam()) {
            if (!advance())
                break;
            options = byte();
            continue;
        }
        const std::string_view rest = mBodies[mBody].substr(mAt);
        const std::size_t unit = options & 1 ? 2 : 1;
        const std::size_t fits = std::min(count - text.size(), rest.size() / unit);
        for (std::size_t i = 0; i < fits; ++i)
            text += unit == 2 ? static_cast<char16_t>(fieldAt<std::uint16_t>(rest, i * 2)) : static_cast<char16_t>(static_cast<unsigned char>(rest[i]));
        mAt += fits * unit;
        if (fits == 0)
            mFailed = true; // half a character before the seam
    }
    return text;
}

std::u16string FieldReader::richString() {
    const std::size_t count = number<std::uint16_t>();
    const auto options = number<std::uint8_t>();
    const std::uint64_t runs = options & 0x08 ? number<std::uint16_t>() : 0;
    const std::uint64_t phonetics = options & 0x04 ? number<std::uint32_t>() : 0;
    std::u16string text = characters(count, options);
    skip(runs * 4 + phonetics);
    return text;
}

} // namespace odbc::biff
