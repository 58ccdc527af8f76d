#include "JetPageStore.h"

#include "store/StoreTable.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace odbc::jet {

JetPageStore::JetPageStore(const std::string& path, std::uint32_t limit)
    : m_path(path), m_limit(limit), m_window(kWindow * kPageSize) {
    m_file = ::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (m_file < 0)
        throw StoreError("A fájl nem hozható létre: \"" + path + "\": " + std::strerror(errno) + ".");
}

JetPageStore::JetPageStore(int descriptor, std::string name, std::uint32_t limit)
    : m_path(std::move(name)), m_limit(limit), m_file(descriptor), m_ownsFile(false), m_window(kWindow * kPageSize) {}

JetPageStore::~JetPageStore() {
    if (m_ownsFile && m_file >= 0)
        ::close(m_file);
}

void JetPageStore::fail(int error) const {
    if (error == ENOSPC || error == EDQUOT)
        throw StoreError("A fájl nem írható, mert a lemez megtelt: \"" + m_path + "\".");
    throw StoreError("A fájl nem írható: \"" + m_path + "\": " + std::strerror(error) + ".");
}

std::uint32_t JetPageStore::allocate() {
    if (m_count >= m_limit)
        throw StoreError("Az adatbázis 2 GB-nál nagyobb lenne, ennyit egy Access fájl nem tárolhat.");
    if (m_count == m_first + kWindow)
        flush();
    return m_count++;
}

void JetPageStore::put(std::uint32_t page, const PageBytes& bytes) {
    if (page >= m_first)
        std::memcpy(m_window.data() + (page - m_first) * kPageSize, bytes.data(), kPageSize);
    else
        write(bytes.data(), kPageSize, static_cast<std::uint64_t>(page) * kPageSize);
}

void JetPageStore::flush() {
    const std::size_t size = (m_count - m_first) * kPageSize;
    write(m_window.data(), size, static_cast<std::uint64_t>(m_first) * kPageSize);
    std::memset(m_window.data(), 0, size);
    m_first = m_count;
}

void JetPageStore::write(const std::uint8_t* bytes, std::size_t size, std::uint64_t offset) {
    while (size > 0) {
        const ssize_t written = ::pwrite(m_file, bytes, size, static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            fail(written < 0 ? errno : ENOSPC);
        bytes += written;
        size -= static_cast<std::size_t>(written);
        offset += static_cast<std::uint64_t>(written);
    }
}

void JetPageStore::close() {
    flush();
    const int file = m_file;
    m_file = -1;
    if (m_ownsFile && ::close(file) != 0)
        fail(errno);
}

} // namespace odbc::jet
