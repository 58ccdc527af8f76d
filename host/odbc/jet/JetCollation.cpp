#include "JetCollation.h"

#include "JetFormat.h"
#include "store/StoreText.h"

#include <algorithm>
#include <array>

namespace odbc::jet {

namespace {
constexpr std::u16string_view kPunctuation = u" !\"#$%&()*,./:;?@[\\]^_`{|}~+<=>";
// The weights of the above in its order; a second byte behind 0x2B.
constexpr std::array<std::uint16_t, 31> kPunctuationWeights{
    0x07, 0x09, 0x0A, 0x0C, 0x0E,   0x10,   0x12,   0x14,   0x16,   0x18,   0x1A,   0x1C, 0x1E, 0x20, 0x22, 0x24,
    0x26, 0x27, 0x29, 0x2A, 0x2B02, 0x2B03, 0x2B07, 0x2B09, 0x2B0B, 0x2B0D, 0x2B0F, 0x2C, 0x2E, 0x30, 0x32};
static_assert(kPunctuation.size() == kPunctuationWeights.size());

constexpr std::array<std::uint8_t, 26> kLetterWeights{0x4A, 0x4C, 0x4D, 0x4F, 0x51, 0x53, 0x55, 0x57, 0x59,
                                                      0x5B, 0x5C, 0x5E, 0x60, 0x62, 0x64, 0x66, 0x68, 0x69,
                                                      0x6B, 0x6D, 0x6F, 0x71, 0x73, 0x75, 0x76, 0x78};

struct Accent {
    std::uint8_t weight;
    std::u16string_view letters; // each accented letter behind its base letter
};
constexpr std::array<Accent, 13> kAccents{{
    {0x0E, u"AÁaáCĆcćEÉeéIÍiíLĹlĺNŃnńOÓoóRŔrŕSŚsśUÚuúYÝyýZŹzź"},
    {0x0F, u"AÀaàEÈeèIÌiìOÒoòUÙuù"},
    {0x10, u"CĊcċEĖeėGĠgġZŻzż"},
    {0x12, u"AÂaâCĈcĉEÊeêGĜgĝHĤhĥIÎiîJĴjĵOÔoôSŜsŝUÛuûWŴwŵYŶyŷ"},
    {0x13, u"AÄaäEËeëIÏiïOÖoöUÜuüYŸyÿ"},
    {0x14, u"CČcčDĎdďEĚeěNŇnňRŘrřSŠsšTŤtťZŽzž"},
    {0x15, u"AĂaăEĔeĕGĞgğIĬiĭOŎoŏUŬuŭ"},
    {0x17, u"AĀaāEĒeēIĪiīOŌoōUŪuū"},
    {0x19, u"AÃaãIĨiĩNÑnñOÕoõUŨuũ"},
    {0x1A, u"AÅaåUŮuů"},
    {0x1B, u"AĄaąEĘeęIĮiįUŲuų"},
    {0x1C, u"CÇcçSŞsşTŢtţ"},
    {0x1D, u"OŐoőUŰuű"},
}};

std::uint8_t letterWeight(char16_t c) {
    const char16_t small = static_cast<char16_t>(c | 0x20);
    return c < 0x80 && small >= u'a' && small <= u'z' ? kLetterWeights[static_cast<std::size_t>(small - u'a')]
                                                      : std::uint8_t{0};
}

SortWeight accentedWeight(char16_t c) {
    for (const Accent& accent : kAccents)
        for (std::size_t i = 1; i < accent.letters.size(); i += 2)
            if (accent.letters[i] == c)
                return {letterWeight(accent.letters[i - 1]), 0, accent.weight, 0};
    return {};
}
} // namespace

SortWeight sortWeightOf(char16_t c) {
    if (const std::uint8_t letter = letterWeight(c))
        return {letter, 0, 2, 0};
    if (c >= u'0' && c <= u'9')
        return {static_cast<std::uint8_t>(0x36 + 2 * (c - u'0')), 0, 2, 0};
    if (const std::size_t at = kPunctuation.find(c); at != std::u16string_view::npos) {
        const std::uint16_t weight = kPunctuationWeights[at];
        return weight < 0x100
                   ? SortWeight{static_cast<std::uint8_t>(weight), 0, 2, 0}
                   : SortWeight{static_cast<std::uint8_t>(weight >> 8), static_cast<std::uint8_t>(weight), 2, 0};
    }
    if (c == u'\'')
        return {0, 0, 2, 0x80};
    if (c == u'-')
        return {0, 0, 2, 0x82};
    return accentedWeight(c);
}

bool isSortable(std::string_view utf8) {
    std::u16string wide;
    return appendUtf16(utf8, wide) && std::all_of(wide.begin(), wide.end(), [](char16_t c) { return sortWeightOf(c).known(); });
}

bool appendSortKey(std::u16string_view text, std::string& key) {
    const std::size_t before = key.size();
    std::string accents, last;
    std::size_t place = 0, lastAccent = 0;
    for (const char16_t c : text.substr(0, kMaxTextLength)) {
        const SortWeight weight = sortWeightOf(c);
        if (!weight.known()) {
            key.resize(before);
            return false;
        }
        if (weight.last != 0) {
            const std::size_t mark = 0x8000 | (7 + 4 * place);
            last += {static_cast<char>(mark >> 8), static_cast<char>(mark), '\x06', static_cast<char>(weight.last)};
            continue;
        }
        key += static_cast<char>(weight.weight);
        if (weight.extra != 0)
            key += static_cast<char>(weight.extra);
        accents += static_cast<char>(weight.accent);
        ++place;
        if (weight.accent != 2)
            lastAccent = place;
    }
    key += '\x01';
    key += accents.substr(0, lastAccent);
    if (!last.empty())
        key += "\x01\x01\x01" + last;
    key += '\0';
    return true;
}

} // namespace odbc::jet
