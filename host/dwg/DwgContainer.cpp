// Loading and checking of the outer form; every offset and size is held against the file's length.
#include "DwgContainer.h"

#include "AcDbObjectId.h"
#include "DwgCrc.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <sys/stat.h>

namespace {
constexpr std::size_t kLargestFile = std::size_t{1} << 31U; // offsets are 32-bit numbers with a sign
constexpr std::size_t kLocatorsAt = 0x19;

struct Version {
    const char* code;
    const wchar_t* release;
};
constexpr Version kVersions[] = {
    {"AC1032", L"2018"}, {"AC1027", L"2013"}, {"AC1024", L"2010"}, {"AC1021", L"2007"}, {"AC1018", L"2004"},
    {"AC1014", L"R14"},  {"AC1013", L"R13"},  {"AC1012", L"R13"},  {"AC1009", L"R11"},  {"AC1006", L"R10"},
    {"AC1004", L"R9"},   {"AC1003", L"R2.6"}, {"AC1002", L"R2.5"}, {"AC2.10", L"R2.1"}, {"AC1.50", L"R2.0"},
    {"AC1.40", L"R1.4"}, {"AC1.2\0", L"R1.2"},
};

Adesk::UInt32 number32(const Adesk::UInt8* p) {
    return static_cast<Adesk::UInt32>(p[0]) | static_cast<Adesk::UInt32>(p[1]) << 8U | static_cast<Adesk::UInt32>(p[2]) << 16U |
           static_cast<Adesk::UInt32>(p[3]) << 24U;
}
unsigned number16(const Adesk::UInt8* p) {
    return p[0] | static_cast<unsigned>(p[1]) << 8U;
}
bool checkVersion(const std::vector<Adesk::UInt8>& bytes, DwgError& error) {
    if (bytes.size() < 6)
        return error.set(Acad::eFilerError, L"The file is too short to be a drawing.");
    if (std::memcmp(bytes.data(), "AC1015", 6) == 0)
        return true;
    for (const Version& version : kVersions)
        if (std::memcmp(bytes.data(), version.code, 6) == 0)
            return error.set(Acad::eInvalidDwgVersion, std::wstring(version.code, version.code + 6) + L" (" + version.release + L") drawings cannot be opened yet");
    if (bytes[0] == 'A' && bytes[1] == 'C' && bytes[2] >= '0' && bytes[2] <= '9')
        return error.set(Acad::eInvalidDwgVersion, L"Drawings of an unknown version cannot be opened.");
    return error.set(Acad::eFilerError, L"The file is no drawing.");
}
} // namespace

bool DwgFile::load(const std::string& path, DwgError& error) {
    struct stat info {};
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file)
        return error.set(Acad::eFileNotFound, L"The drawing file cannot be found or read.");
    if (fstat(fileno(file.get()), &info) != 0 || !S_ISREG(info.st_mode))
        return error.set(Acad::eFileAccessErr, L"The path names no drawing file.");
    if (info.st_size < 0 || static_cast<std::size_t>(info.st_size) > kLargestFile)
        return error.set(Acad::eFilerError, L"The drawing file is too large.");
    std::vector<Adesk::UInt8> bytes(static_cast<std::size_t>(info.st_size));
    if (!bytes.empty() && std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        return error.set(Acad::eFileAccessErr, L"The drawing file cannot be read to its end.");
    return load(std::move(bytes), error);
}

bool DwgFile::load(std::vector<Adesk::UInt8> bytes, DwgError& error) {
    mBytes = std::move(bytes);
    return checkVersion(mBytes, error) && readLocators(error);
}

bool DwgFile::readLocators(DwgError& error) {
    if (mBytes.size() < kLocatorsAt)
        return error.set(Acad::eFilerError, L"The drawing file is cut off in its header.");
    const Adesk::UInt8* p = mBytes.data();
    mMaintenance = p[0x0B];
    mPreview = number32(p + 0x0D);
    mCodePage = static_cast<int>(number16(p + 0x13));
    const Adesk::UInt32 count = number32(p + 0x15);
    if (count < 3 || count > kDwgSectionCount)
        return error.set(Acad::eFilerError, L"The drawing file's header is damaged: it names a wrong number of sections.");
    const std::size_t end = kLocatorsAt + 9 * count;
    if (mBytes.size() < end + 2 + sizeof(DwgSentinel))
        return error.set(Acad::eFilerError, L"The drawing file is cut off in its header.");
    // Open Design description of DWG, "File header": the checksum is turned by a mask that depends on the count.
    constexpr unsigned kMasks[] = {0xA598, 0x8101, 0x3CC4, 0x8461};
    if (((dwgCrc(0, p, end)) ^ kMasks[count - 3]) != number16(p + end))
        return error.set(Acad::eDwgCRCDoesNotMatch, L"The drawing file's header is damaged: its checksum is wrong.");
    for (std::size_t i = 0; i < count; ++i) {
        const Adesk::UInt8* record = p + kLocatorsAt + 9 * i;
        const DwgSection section{number32(record + 1), number32(record + 5)};
        if (record[0] >= kDwgSectionCount)
            continue;
        if (section.offset > mBytes.size() || section.size > mBytes.size() - section.offset)
            return error.set(Acad::eFilerError, L"The drawing file is cut off or damaged: a section lies beyond its end.");
        mSections[record[0]] = section;
    }
    return true;
}

std::optional<DwgBitReader> DwgFile::guardedSection(DwgSectionNumber number, const DwgTextCodec* text, const wchar_t* name, DwgError& error) const {
    const DwgSection& section = mSections[number];
    const DwgSentinel& begin = number == kDwgHeaderVars ? kDwgHeaderVarsBegin : kDwgClassesBegin;
    const Adesk::UInt8* p = mBytes.data() + section.offset;
    const std::wstring damaged = std::wstring(L"The drawing file is damaged: ") + name;
    constexpr std::size_t kFrame = 2 * sizeof(DwgSentinel) + 4 + 2; // sentinels, size, checksum
    if (section.size < kFrame || std::memcmp(p, begin.bytes, sizeof begin) != 0) {
        error.set(Acad::eFilerError, damaged + L" cannot be found.");
        return std::nullopt;
    }
    const Adesk::UInt32 size = number32(p + 16);
    if (size > section.size - kFrame) {
        error.set(Acad::eFilerError, damaged + L" is longer than its place.");
        return std::nullopt;
    }
    if (dwgCrc(kDwgCrcSeed, p + 16, size + 4) != number16(p + 20 + size)) {
        error.set(Acad::eDwgCRCDoesNotMatch, damaged + L" has a wrong checksum.");
        return std::nullopt;
    }
    return DwgBitReader(p + 20, size, text);
}

bool DwgFile::objectMap(std::vector<DwgMapEntry>& entries, DwgError& error) const {
    const DwgSection& section = mSections[kDwgObjectMap];
    const Adesk::UInt8* p = mBytes.data() + section.offset;
    std::size_t at = 0;
    while (true) {
        if (section.size - at < 4)
            return error.set(Acad::eFilerError, L"The drawing file is damaged: its object map is cut off.");
        // Sizes and checksums of the map's parts stand with the high byte first; the size
        // counts itself and not the checksum (Open Design description of DWG, chapter "Object map").
        const std::size_t size = static_cast<std::size_t>(p[at]) << 8U | p[at + 1];
        if (size < 2 || size + 2 > section.size - at)
            return error.set(Acad::eFilerError, L"The drawing file is damaged: its object map is cut off.");
        const unsigned crc = static_cast<unsigned>(p[at + size]) << 8U | p[at + size + 1];
        if (dwgCrc(kDwgCrcSeed, p + at, size) != crc)
            return error.set(Acad::eDwgCRCDoesNotMatch, L"The drawing file is damaged: its object map has a wrong checksum.");
        if (size == 2)
            return true;
        DwgBitReader part(p + at + 2, size - 2);
        Adesk::UInt64 handle = 0;
        Adesk::Int64 offset = 0;
        while (part.left() > 0 && !part.failed()) {
            handle += part.MC();
            offset += part.MCsigned();
            if (part.failed() || offset < 0 || static_cast<std::size_t>(offset) >= mBytes.size())
                return error.set(Acad::eFilerError, L"The drawing file is damaged: its object map points beyond its end.");
            entries.push_back({handle, static_cast<Adesk::UInt32>(offset)});
        }
        at += size + 2;
    }
}

bool DwgFile::record(const DwgMapEntry& entry, DwgRecordView& view, DwgError& error) const {
    DwgBitReader reader(mBytes.data() + entry.offset, mBytes.size() - entry.offset);
    const std::size_t size = reader.MS();
    const std::size_t head = reader.position() / 8;
    const auto name = [&entry] { return L"object " + AcDbHandle(entry.handle).text(); };
    if (reader.failed() || size + 2 > reader.left() / 8)
        return error.set(Acad::eFilerError, L"The drawing file is cut off or damaged: " + name() + L" lies beyond its end.");
    const Adesk::UInt8* p = mBytes.data() + entry.offset;
    if (dwgCrc(kDwgCrcSeed, p, head + size) != number16(p + head + size))
        return error.set(Acad::eDwgCRCDoesNotMatch, L"The drawing file is damaged: " + name() + L" has a wrong checksum.");
    view = {entry.handle, p + head, size};
    return true;
}

bool DwgFile::records(std::vector<DwgRecordView>& records, DwgError& error) const {
    std::vector<DwgMapEntry> entries;
    if (!objectMap(entries, error))
        return false;
    records.reserve(entries.size());
    std::size_t total = 0;
    for (const DwgMapEntry& entry : entries) {
        DwgRecordView view;
        // Entries that share one record would let a small file fill the memory.
        if (total > mBytes.size())
            return error.set(Acad::eFilerError, L"The drawing file is damaged: objects share the same place.");
        if (!record(entry, view, error))
            return false;
        total += view.size + 4;
        records.push_back(view);
    }
    return true;
}

int DwgFile::measurement() const {
    const DwgSection& section = mSections[kDwgTemplate];
    const Adesk::UInt8* p = mBytes.data() + section.offset;
    if (section.size < 4)
        return 0;
    const std::size_t text = number16(p); // description of the template, not kept
    return text + 4 <= section.size && number16(p + 2 + text) == 1 ? 1 : 0;
}

std::vector<Adesk::UInt8> DwgFile::preview() const {
    // Open Design description of DWG, chapter "Preview": sentinel, size, number of images, then a
    // triple of kind, start and size each; kind 2 is a bitmap without its file header.
    const std::size_t count = mBytes.size();
    if (mPreview == 0 || mPreview > count || count - mPreview < 21 ||
        std::memcmp(mBytes.data() + mPreview, kDwgPreviewBegin.bytes, sizeof kDwgPreviewBegin) != 0)
        return {};
    const std::size_t images = mBytes[mPreview + 20];
    if (images * 9 > count - mPreview - 21)
        return {};
    for (std::size_t i = 0; i < images; ++i) {
        const Adesk::UInt8* image = mBytes.data() + mPreview + 21 + 9 * i;
        const std::size_t start = number32(image + 1), size = number32(image + 5);
        if (image[0] == 2 && start <= count && size <= count - start)
            return std::vector<Adesk::UInt8>(mBytes.begin() + static_cast<std::ptrdiff_t>(start), mBytes.begin() + static_cast<std::ptrdiff_t>(start + size));
    }
    return {};
}
