#include "JetFile.h"

#include "store/StoreTable.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace odbc::jet {

namespace {
bool hasText(const std::uint8_t* at, const char* text) {
    return std::memcmp(at, text, std::strlen(text)) == 0;
}
} // namespace

JetFile::JetFile(const std::string& path) : m_name(path), m_ownsFile(true) {
    m_file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); // a pipe must not hold us up
    if (m_file < 0) {
        const int error = errno;
        if (error == ENOENT || error == ENOTDIR)
            throw StoreError("A fájl nem létezik: \"" + path + "\".");
        if (error == EACCES || error == EPERM)
            throw StoreError("Nincs jog a fájl olvasásához: \"" + path + "\".");
        throw StoreError("A fájl nem nyitható meg: \"" + path + "\": " + std::strerror(error) + ".");
    }
    try {
        readStatus();
        readHeader();
    } catch (...) {
        ::close(m_file);
        throw;
    }
}

JetFile::JetFile(int descriptor, std::string name) : m_name(std::move(name)), m_file(descriptor) {
    readStatus();
    readHeader();
}

void JetFile::readStatus() {
    struct stat status {};
    if (::fstat(m_file, &status) != 0)
        throw StoreError("A fájl nem nyitható meg: \"" + m_name + "\": " + std::strerror(errno) + ".");
    if (S_ISDIR(status.st_mode))
        throw StoreError("Ez mappa, nem adatbázis: \"" + m_name + "\".");
    if (!S_ISREG(status.st_mode))
        throw StoreError("Ez nem fájl: \"" + m_name + "\".");
    m_size = static_cast<std::uint64_t>(status.st_size);
}

JetFile::JetFile(std::string name, std::span<const std::uint8_t> bytes)
    : m_name(std::move(name)), m_bytes(bytes), m_size(bytes.size()) {
    readHeader();
}

JetFile::~JetFile() {
    if (m_ownsFile)
        ::close(m_file);
}

void JetFile::damaged(const std::string& why) const {
    throw StoreError("A fájl sérült: \"" + m_name + "\" (" + why + ").");
}

void JetFile::readHeader() {
    const std::string what = "Ez nem Access adatbázis: \"" + m_name + "\".";
    constexpr std::size_t least = kPageSize / 2;
    if (m_size < least)
        throw StoreError(what);
    readBytes(0, m_header.bytes.data(), static_cast<std::size_t>(std::min<std::uint64_t>(kPageSize, m_size)));
    if (hasText(m_header.at(4), "Standard ACE DB"))
        throw StoreError("Ez az adatbázis Access 2007 vagy újabb formátumú (.accdb), mentse el Accessben .mdb formátumban: \"" + m_name + "\".");
    if (m_header.bytes[0] != 0 || !hasText(m_header.at(4), "Standard Jet DB") || m_header.bytes[header::kVersion] > 1)
        throw StoreError(what);
    m_jet3 = m_header.bytes[header::kVersion] == 0;
    maskHeader(m_header.bytes, m_jet3 ? header::kMaskedSizeJet3 : header::kMaskedSize);
    checkHeader();
}

void JetFile::checkHeader() {
    if (get32(m_header.at(header::kKey)) != 0)
        throw StoreError("Az adatbázis titkosított, előbb oldja fel Accessben: \"" + m_name + "\".");
    // Jet 4 masks the password with the whole days of the creation stamp.
    std::uint32_t mask = 0;
    if (!m_jet3) {
        const double created = std::bit_cast<double>(get64(m_header.at(header::kCreated)));
        if (created > -2147483648.0 && created < 2147483647.0)
            mask = static_cast<std::uint32_t>(static_cast<std::int32_t>(created));
    }
    std::array<std::uint8_t, 4> maskBytes{};
    put32(maskBytes.data(), mask);
    for (std::size_t i = 0; i < (m_jet3 ? header::kPasswordSizeJet3 : header::kPasswordSize); ++i)
        if (m_header.bytes[header::kPassword + i] != maskBytes[i % 4])
            throw StoreError("Az adatbázist jelszó védi, előbb vegye le Accessben: \"" + m_name + "\".");
    if (m_size % pageSize() != 0)
        throw StoreError("A fájl csonka, az utolsó lapja nem egész: \"" + m_name + "\".");
    m_codePage = get16(m_header.at(header::kCodePage));
}

void JetFile::readBytes(std::uint64_t offset, std::uint8_t* out, std::size_t size) const {
    if (m_file < 0) {
        std::memcpy(out, m_bytes.data() + offset, size);
        return;
    }
    while (size > 0) {
        const ssize_t got = ::pread(m_file, out, size, static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            throw StoreError("A fájl nem olvasható: \"" + m_name + "\"" +
                             (got < 0 ? std::string(": ") + std::strerror(errno) : "") + ".");
        out += got;
        size -= static_cast<std::size_t>(got);
        offset += static_cast<std::uint64_t>(got);
    }
}

void JetFile::read(std::uint32_t number, JetPage& page) const {
    if (number >= pageCount())
        damaged("it speaks of page " + std::to_string(number) + " but has " + std::to_string(pageCount()));
    page.number = number;
    readBytes(static_cast<std::uint64_t>(number) * pageSize(), page.bytes.data(), pageSize());
}

std::size_t rowCountOf(const JetFile& file, const JetPage& page) {
    const std::size_t count = get16(page.at(file.jet3() ? data::kRowCountJet3 : data::kRowCount));
    if ((file.jet3() ? data::kRowsJet3 : data::kRows) + 2 * count > file.pageSize())
        file.damaged("page " + std::to_string(page.number) + " counts more rows than it can hold");
    return count;
}

JetSlot slotOf(const JetFile& file, const JetPage& page, std::size_t row) {
    const std::size_t table = file.jet3() ? data::kRowsJet3 : data::kRows, count = rowCountOf(file, page);
    const auto offset = [&](std::size_t i) { return get16(page.at(table + 2 * i)); };
    if (row >= count)
        file.damaged("page " + std::to_string(page.number) + " has no row " + std::to_string(row));
    const std::size_t begin = offset(row) & data::kOffset,
                      end = row == 0 ? file.pageSize() : offset(row - 1) & data::kOffset;
    if (begin > end || end > file.pageSize() || begin < table + 2 * count)
        file.damaged("row " + std::to_string(row) + " of page " + std::to_string(page.number) +
                     " has no sensible place");
    return {static_cast<std::uint16_t>(offset(row) & (data::kDeleted | data::kOverflow)),
            {page.at(begin), end - begin}};
}

JetSlot slotAt(const JetFile& file, std::uint32_t pointer, JetPage& page) {
    file.read(pointer >> 8, page);
    if (page.type() != PageType::Data)
        file.damaged("page " + std::to_string(page.number) + " should hold rows and does not");
    return slotOf(file, page, pointer & 0xFF);
}

std::vector<std::uint32_t> pagesOfMap(const JetFile& file, std::uint32_t pointer) {
    JetPage page, bitmap;
    const JetSlot row = slotAt(file, pointer, page);
    if (row.bytes.size() < 5)
        file.damaged("the usage map on page " + std::to_string(page.number) + " is too short");
    std::vector<std::uint32_t> pages;
    const auto collect = [&](std::uint64_t first, std::span<const std::uint8_t> bits) {
        for (std::size_t i = 0; i < bits.size(); ++i)
            for (unsigned bit = 0; bits[i] >> bit != 0; ++bit)
                if (bits[i] >> bit & 1u) {
                    const std::uint64_t number = first + 8 * i + bit;
                    if (number >= file.pageCount())
                        file.damaged("a usage map lists page " + std::to_string(number) + ", but there are " +
                                     std::to_string(file.pageCount()) + " pages");
                    pages.push_back(static_cast<std::uint32_t>(number));
                }
    };
    if (row.bytes[0] == usage::kInline) {
        collect(get32(row.bytes.data() + 1), row.bytes.subspan(5));
        return pages;
    }
    if (row.bytes[0] != usage::kReference)
        file.damaged("the usage map on page " + std::to_string(page.number) + " is of an unknown type");
    const std::size_t bitsPerPage = (file.pageSize() - usage::kBitmapHeader) * 8;
    for (std::size_t i = 0; 1 + 4 * (i + 1) <= row.bytes.size(); ++i) {
        const std::uint32_t number = get32(row.bytes.data() + 1 + 4 * i);
        if (number == 0)
            continue;
        file.read(number, bitmap);
        if (bitmap.type() != PageType::Bitmap)
            file.damaged("page " + std::to_string(number) + " should be a page of a usage map and is not");
        collect(i * bitsPerPage, {bitmap.at(usage::kBitmapHeader), file.pageSize() - usage::kBitmapHeader});
    }
    return pages;
}

} // namespace odbc::jet
