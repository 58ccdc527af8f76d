#include "WinTextFile.h"

#include "AcUtText.h"
#include "WinBinaryFile.h"
#include "WinFiles.h"

#include <cstdarg>
#include <string_view>

namespace {
constexpr const char* kUtf8Mark = "\xEF\xBB\xBF";
constexpr char kEndOfText = 0x1A;

struct Mode {
    wchar_t kind = 0; // r, w or a; 0 for junk
    bool utf8 = false;
};

Mode readMode(std::wstring mode) {
    Mode result;
    const std::size_t comma = mode.find(L',');
    if (comma != std::wstring::npos) {
        std::wstring encoding = mode.substr(comma + 1);
        std::erase(encoding, L' ');
        if (acutWcsicmp(encoding.c_str(), L"ccs=UTF-8") != 0)
            return result;
        result.utf8 = true;
        mode.erase(comma);
    }
    std::erase(mode, L' ');
    if (!mode.empty() && mode.back() == L't')
        mode.pop_back();
    if (mode == L"r" || mode == L"w" || mode == L"a")
        result.kind = mode[0];
    return result;
}

// "\r\n" becomes "\n"; a lone "\r" stays; 0x1A ends the text.
std::string toProgramLines(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size() && bytes[i] != kEndOfText; ++i) {
        if (bytes[i] != '\r' || i + 1 == bytes.size() || bytes[i + 1] != '\n')
            text += bytes[i];
    }
    return text;
}

std::string toFileLines(const std::string& text) {
    std::string bytes;
    bytes.reserve(text.size() + 8);
    for (const char c : text) {
        if (c == '\n')
            bytes += '\r';
        bytes += c;
    }
    return bytes;
}
} // namespace

struct WinTextFile::Impl {
    WinBinaryFile output;
    std::wstring text; // what was read
    std::size_t at = 0;
    Mode mode;
    bool isOpen = false, failed = false;

    bool openForReading(LPCWSTR path) {
        std::string bytes;
        if (!winReadFile(path, bytes))
            return false;
        const bool hasMark = mode.utf8 && bytes.rfind(kUtf8Mark, 0) == 0;
        const std::string lines = toProgramLines(std::string_view(bytes).substr(hasMark ? 3 : 0));
        text = mode.utf8 ? acFromUtf8(lines) : acFromAnsi(lines);
        at = 0;
        return true;
    }
    bool openForWriting(LPCWSTR path) {
        std::string earlier;
        if (mode.kind == L'a')
            winReadFile(path, earlier); // an absent file is begun
        if (!output.open(path, L"wb"))
            return false;
        if (mode.utf8 && earlier.empty())
            earlier = kUtf8Mark;
        return write(earlier);
    }
    bool write(const std::string& bytes) {
        const bool isWhole = output.write(bytes.data(), bytes.size()) == bytes.size();
        failed = failed || !isWhole;
        return isWhole;
    }
};

WinTextFile::WinTextFile() : mImpl(std::make_unique<Impl>()) {}

WinTextFile::~WinTextFile() {
    close();
}

bool WinTextFile::open(LPCWSTR path, LPCWSTR mode) {
    close();
    mImpl->mode = readMode(mode == nullptr ? L"" : mode);
    mImpl->failed = false;
    if (mImpl->mode.kind == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    mImpl->isOpen = mImpl->mode.kind == L'r' ? mImpl->openForReading(path) : mImpl->openForWriting(path);
    return mImpl->isOpen;
}

bool WinTextFile::isOpen() const {
    return mImpl->isOpen;
}

wchar_t* WinTextFile::gets(wchar_t* buffer, int size) {
    Impl& file = *mImpl;
    if (!file.isOpen || file.mode.kind != L'r' || size < 2 || file.at >= file.text.size())
        return nullptr;
    std::size_t count = 0;
    const std::size_t room = static_cast<std::size_t>(size) - 1;
    while (count < room && file.at < file.text.size()) {
        buffer[count++] = file.text[file.at++];
        if (buffer[count - 1] == L'\n')
            break;
    }
    buffer[count] = 0;
    return buffer;
}

bool WinTextFile::getLine(std::wstring& line) {
    Impl& file = *mImpl;
    line.clear();
    if (!file.isOpen || file.mode.kind != L'r' || file.at >= file.text.size())
        return false;
    const std::size_t end = std::min(file.text.find(L'\n', file.at), file.text.size());
    line = file.text.substr(file.at, end - file.at);
    file.at = end + 1;
    return true;
}

bool WinTextFile::puts(const std::wstring& text) {
    Impl& file = *mImpl;
    if (!file.isOpen || file.mode.kind == L'r')
        return false;
    return file.write(toFileLines(file.mode.utf8 ? acToUtf8(text) : acToAnsi(text)));
}

int WinTextFile::printf(LPCWSTR format, ...) {
    va_list args;
    va_start(args, format);
    const std::wstring text = acFormatV(format, args);
    va_end(args);
    return puts(text) ? static_cast<int>(text.size()) : -1;
}

bool WinTextFile::close() {
    if (!mImpl->isOpen)
        return true;
    mImpl->isOpen = false;
    const bool isClosed = mImpl->mode.kind == L'r' || mImpl->output.close();
    return isClosed && !mImpl->failed;
}
