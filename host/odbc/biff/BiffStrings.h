// The shared string table: each text is stored once and cells hold its number.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace odbc::biff {

class Strings {
public:
    Strings();
    static constexpr std::uint32_t kNotUnicode = 0xFFFFFFFFu;
    static constexpr std::uint32_t kTooLong = 0xFFFFFFFEu;
    // The number of the text (UTF-8), counted as one more use of it; or one of the two above,
    // with nothing changed.
    std::uint32_t add(std::string_view utf8);
    // How wide the text shows, in digits; of several lines the longest counts.
    std::uint16_t width(std::uint32_t text) const { return mTexts[text].width; }
    std::uint32_t count() const { return static_cast<std::uint32_t>(mTexts.size()); }
    std::size_t bytes() const { return mBytes.size(); }
    // Appends the records SST, CONTINUE and EXTSST. `out` must hold the stream from its begin on, since
    // EXTSST names places in the stream.
    void write(std::string& out) const;

private:
    struct Text {
        std::size_t offset;
        std::uint32_t size;
        std::uint32_t hash;
        std::uint16_t width;
    };
    std::size_t slotOf(std::string_view utf8, std::uint32_t hash) const;
    void grow();
    std::string_view bytesOf(const Text& text) const { return std::string_view(mBytes).substr(text.offset, text.size); }

    std::string mBytes; // all texts, UTF-8
    std::vector<Text> mTexts;
    std::vector<std::uint32_t> mSlots; // number of a text and 1, or 0; a power of two of them
    std::u16string mScratch;
    std::uint32_t mUses = 0;
};

} // namespace odbc::biff
