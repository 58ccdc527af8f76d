#include "BiffStrings.h"

#include "BiffBytes.h"
#include "store/StoreText.h"

#include <algorithm>
#include <functional>

namespace odbc::biff {

namespace {
// Capitals and wide letters take more room than digits in a proportional font.
std::uint16_t widthOf(std::u16string_view text) {
    std::uint32_t longest = 0, tenths = 0;
    for (const char16_t c : text) {
        if (c == u'\n') {
            tenths = 0;
            continue;
        }
        const bool wide = (c >= u'A' && c <= u'Z') || c == u'm' || c == u'w' || c == u'%' || c == u'@' || (c >= 0xC0 && c < 0xDF);
        tenths += c >= 0x1100 ? 20 : wide ? 13 : 10; // from the Hangul on, letters are two digits wide
        longest = std::max(longest, tenths);
    }
    return static_cast<std::uint16_t>(std::min<std::uint32_t>((longest + 9) / 10, 255));
}

// Writes the strings of the table; starts a CONTINUE record where the current one is full.
class SstWriter {
public:
    explicit SstWriter(std::string& out) : mOut(out), mRecord(out.size()) { appendHead(mOut, Record::Sst, 0); }
    std::size_t record() const { return mRecord; }
    template <Plain T> void field(T value) { append(mOut, value); }
    void string(std::u16string_view text) {
        const bool narrow = isNarrow(text);
        const std::size_t unit = narrow ? 1 : 2;
        // A head is never torn apart, nor left alone at the end of a record without a character.
        if (room() < 3 + (text.empty() ? 0 : unit))
            next();
        append(mOut, static_cast<std::uint16_t>(text.size()));
        mOut += static_cast<char>(narrow ? 0 : 1);
        while (true) {
            const std::size_t fits = std::min(text.size(), room() / unit);
            appendCharacters(mOut, text.substr(0, fits), narrow);
            text.remove_prefix(fits);
            if (text.empty())
                return;
            next();
            mOut += static_cast<char>(narrow ? 0 : 1); // the option byte again
        }
    }
    // Where the next string would begin.
    void breakIfFull(std::u16string_view text) {
        if (room() < 3 + (text.empty() ? 0u : isNarrow(text) ? 1u : 2u))
            next();
    }
    void end() { patch(mOut, mRecord + 2, static_cast<std::uint16_t>(mOut.size() - mRecord - 4)); }

private:
    std::size_t room() const { return kMaxBody - (mOut.size() - mRecord - 4); }
    void next() {
        end();
        mRecord = mOut.size();
        appendHead(mOut, Record::Continue, 0);
    }
    std::string& mOut;
    std::size_t mRecord; // where the current record begins
};

// Strings of one portion of EXTSST: at least 8, and so many that the list stays one small record.
std::uint32_t portionOf(std::uint32_t count) { return std::max<std::uint32_t>(8, count / 128 + 1); }
} // namespace

Strings::Strings() : mSlots(1024) {}

std::size_t Strings::slotOf(std::string_view utf8, std::uint32_t hash) const {
    const std::size_t mask = mSlots.size() - 1;
    std::size_t slot = hash & mask;
    while (mSlots[slot]) {
        const Text& text = mTexts[mSlots[slot] - 1];
        if (text.hash == hash && bytesOf(text) == utf8)
            break;
        slot = (slot + 1) & mask;
    }
    return slot;
}

void Strings::grow() {
    std::vector<std::uint32_t> slots(mSlots.size() * 2);
    const std::size_t mask = slots.size() - 1;
    for (std::uint32_t i = 0; i < mTexts.size(); ++i) {
        std::size_t slot = mTexts[i].hash & mask;
        while (slots[slot])
            slot = (slot + 1) & mask;
        slots[slot] = i + 1;
    }
    mSlots.swap(slots);
}

std::uint32_t Strings::add(std::string_view utf8) {
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>{}(utf8));
    const std::size_t slot = slotOf(utf8, hash);
    if (mSlots[slot]) {
        ++mUses;
        return mSlots[slot] - 1;
    }
    mScratch.clear();
    if (!appendUtf16(utf8, mScratch))
        return kNotUnicode;
    if (mScratch.size() > kMaxCellText)
        return kTooLong;
    const auto number = static_cast<std::uint32_t>(mTexts.size());
    mTexts.push_back({mBytes.size(), static_cast<std::uint32_t>(utf8.size()), hash, widthOf(mScratch)});
    mBytes += utf8;
    mSlots[slot] = number + 1;
    ++mUses;
    if (mTexts.size() * 2 > mSlots.size())
        grow();
    return number;
}

void Strings::write(std::string& out) const {
    const std::uint32_t portion = portionOf(count());
    std::string index;
    append(index, static_cast<std::uint16_t>(portion));
    SstWriter sst(out);
    sst.field(mUses);
    sst.field(count());
    std::u16string text;
    for (std::uint32_t i = 0; i < mTexts.size(); ++i) {
        text.clear();
        appendUtf16(bytesOf(mTexts[i]), text);
        if (i % portion == 0) {
            sst.breakIfFull(text);
            append(index, static_cast<std::uint32_t>(out.size()));
            append(index, static_cast<std::uint16_t>(out.size() - sst.record()));
            append(index, std::uint16_t{0});
        }
        sst.string(text);
    }
    sst.end();
    appendRecord(out, Record::ExtSst, index);
}

} // namespace odbc::biff
