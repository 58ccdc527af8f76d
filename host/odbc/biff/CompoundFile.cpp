#include "CompoundFile.h"

#include <algorithm>
#include <cstring>

namespace odbc::biff {

namespace {
using U32 = std::uint32_t;
using U64 = std::uint64_t;

constexpr U32 kLastSector = 0xFFFFFFFA; // numbers behind it are marks: end of a chain, free, a table's own
constexpr U32 kEndOfChain = 0xFFFFFFFE, kNoEntry = 0xFFFFFFFF;
constexpr std::size_t kHeader = 512, kEntry = 128, kSmallSector = 64, kSmallLimit = 4096;

std::uint16_t u16(std::string_view bytes, std::size_t at) {
    std::uint16_t value;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}
U32 u32(std::string_view bytes, std::size_t at) {
    U32 value;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}
} // namespace

bool isCompound(std::string_view file) { return file.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"); }

CompoundFile::CompoundFile(std::string_view file) : mFile(file) {
    if (!isCompound(file) || file.size() < kHeader)
        return;
    const unsigned shift = u16(file, 30);
    if ((shift != 9 && shift != 12) || u16(file, 32) != 6 || u32(file, 56) != kSmallLimit)
        return;
    mSectorSize = std::size_t{1} << shift;
    if (!readFat())
        return;
    auto directory = chain(u32(file, 48), kWhole);
    if (!directory || directory->size() < kEntry)
        return;
    mDirectory = std::move(*directory);
    mRoot = {u32(mDirectory, 116), u32(mDirectory, 120)};
    if (const U32 start = u32(file, 60); start <= kLastSector) {
        auto table = chain(start, kWhole);
        if (!table)
            return;
        mSmallFat = std::move(*table);
    }
    mValid = true;
}

// Sector 0 lies behind the header, which takes a whole sector of its own. The last one may be cut
// short: not every writer fills it up.
std::optional<std::string_view> CompoundFile::sector(U32 number) const {
    const U64 at = (U64{number} + 1) * mSectorSize;
    if (number > kLastSector || at >= mFile.size())
        return std::nullopt;
    return mFile.substr(static_cast<std::size_t>(at), mSectorSize);
}

// The places of the table's sectors: the first 109 in the header, the others in a chain of sectors
// whose last number leads on.
bool CompoundFile::readFat() {
    const std::size_t sectors = mFile.size() / mSectorSize + 1;
    const auto take = [&](std::string_view numbers) {
        for (std::size_t at = 0; at + 4 <= numbers.size(); at += 4) {
            const U32 number = u32(numbers, at);
            if (number > kLastSector)
                continue;
            const auto part = sector(number);
            if (!part || part->size() < mSectorSize || mFat.size() > sectors)
                return false;
            for (std::size_t i = 0; i < part->size(); i += 4)
                mFat.push_back(u32(*part, i));
        }
        return true;
    };
    if (!take(mFile.substr(76, 109 * 4)))
        return false;
    U32 next = u32(mFile, 68);
    for (std::size_t step = 0; next <= kLastSector; ++step) {
        const auto part = sector(next);
        if (!part || part->size() < mSectorSize || step > sectors || !take(part->substr(0, mSectorSize - 4)))
            return false;
        next = u32(*part, mSectorSize - 4);
    }
    return !mFat.empty();
}

std::optional<std::string> CompoundFile::chain(U32 start, U64 bytes) const {
    std::string out;
    if (bytes != kWhole && bytes > mFile.size())
        return std::nullopt;
    U32 number = start;
    while (number != kEndOfChain && out.size() < bytes) {
        const auto part = sector(number);
        // A chain that is longer than the file runs in a circle.
        if (!part || number >= mFat.size() || out.size() > mFile.size())
            return std::nullopt;
        out += *part;
        if (part->size() < mSectorSize)
            break; // the file ends here
        number = mFat[number];
    }
    if (bytes != kWhole) {
        if (out.size() < bytes)
            return std::nullopt;
        out.resize(static_cast<std::size_t>(bytes));
    }
    return out;
}

std::optional<std::string> CompoundFile::smallChain(const Entry& wanted) const {
    const auto holder = chain(mRoot.start, mRoot.size);
    if (!holder || wanted.size > holder->size())
        return std::nullopt;
    std::string out;
    U32 number = wanted.start;
    while (out.size() < wanted.size) {
        const std::size_t at = std::size_t{number} * kSmallSector;
        if (number > kLastSector || at >= holder->size() || (std::size_t{number} + 1) * 4 > mSmallFat.size())
            return std::nullopt;
        out += std::string_view(*holder).substr(at, kSmallSector);
        number = u32(mSmallFat, std::size_t{number} * 4);
    }
    if (out.size() < wanted.size)
        return std::nullopt;
    out.resize(static_cast<std::size_t>(wanted.size));
    return out;
}

// The root's children are a tree; each is looked at once, whatever its links say.
std::optional<CompoundFile::Entry> CompoundFile::entry(std::string_view name) const {
    if (!mValid)
        return std::nullopt;
    std::vector<bool> seen(mDirectory.size() / kEntry);
    std::vector<U32> waiting{u32(mDirectory, 76)};
    while (!waiting.empty()) {
        const U32 number = waiting.back();
        waiting.pop_back();
        if (number == kNoEntry || number >= seen.size() || seen[number])
            continue;
        seen[number] = true;
        const std::string_view bytes = std::string_view(mDirectory).substr(std::size_t{number} * kEntry, kEntry);
        constexpr char kStream = 2;
        const std::size_t length = u16(bytes, 64);
        bool same = bytes[66] == kStream && length == (name.size() + 1) * 2 && length <= 64;
        for (std::size_t i = 0; same && i < name.size(); ++i) {
            const unsigned c = u16(bytes, i * 2), wanted = static_cast<unsigned char>(name[i]);
            same = c == wanted || (c < 0x80 && (c ^ wanted) == 0x20 && (c | 0x20) >= 'a' && (c | 0x20) <= 'z');
        }
        if (same)
            return Entry{u32(bytes, 116), u32(bytes, 120)};
        waiting.push_back(u32(bytes, 68));
        waiting.push_back(u32(bytes, 72));
    }
    return std::nullopt;
}

std::optional<std::string> CompoundFile::stream(std::string_view name) const {
    const auto found = entry(name);
    if (!found)
        return std::nullopt;
    return found->size < kSmallLimit ? smallChain(*found) : chain(found->start, found->size);
}

} // namespace odbc::biff
