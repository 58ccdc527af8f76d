// Finds a stream in a compound file (MS-CFB), the container of workbooks. The bytes may be anybody's.
//
// Of our own for reading: libgsf, which writes the container, walks a foreign directory recursively,
// and a file of a few megabytes can make that deep enough to end the program.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace odbc::biff {

// True where the bytes begin as a compound file does.
bool isCompound(std::string_view file);

class CompoundFile {
public:
    // `file` must outlive the object.
    explicit CompoundFile(std::string_view file);
    // The tables could be read; without them there is no stream.
    bool valid() const { return mValid; }
    // True where the root storage has a stream of this name (ASCII, cases are not told apart).
    bool has(std::string_view name) const { return entry(name).has_value(); }
    // Its bytes; nothing where it is absent or its chain is broken, too short or endless.
    std::optional<std::string> stream(std::string_view name) const;

private:
    struct Entry {
        std::uint32_t start = 0;
        std::uint64_t size = 0;
    };
    std::optional<std::string_view> sector(std::uint32_t number) const;
    bool readFat();
    // The sectors of a chain, at most as many as `bytes` needs; all of it where bytes is kWhole.
    static constexpr std::uint64_t kWhole = ~std::uint64_t{0};
    std::optional<std::string> chain(std::uint32_t start, std::uint64_t bytes) const;
    std::optional<std::string> smallChain(const Entry& entry) const;
    std::optional<Entry> entry(std::string_view name) const;

    std::string_view mFile;
    std::size_t mSectorSize = 512;
    std::vector<std::uint32_t> mFat;
    std::string mDirectory;
    std::string mSmallFat;
    Entry mRoot; // the stream that holds the small streams
    bool mValid = false;
};

} // namespace odbc::biff
