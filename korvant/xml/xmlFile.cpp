// From the bytes of an XML file to its text. The module's files are UTF-16 or plain ANSI: bytes
// that are not 16-bit text are read with the ANSI page even behind a UTF-8 mark.
#include "xmlParser.h"

#include "WinBinaryFile.h"
#include "WinCodePage.h"
#include "XmlScanner.h"

#include <limits>
#include <optional>
#include <string_view>

namespace {

bool gDetectEncoding = true;

std::optional<std::wstring> fromAnsi(std::string_view bytes) {
    if (bytes.empty())
        return std::wstring();
    const int count = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), count, nullptr, 0);
    if (size <= 0)
        return std::nullopt;
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    if (MultiByteToWideChar(CP_ACP, 0, bytes.data(), count, text.data(), size) != size)
        return std::nullopt;
    return text;
}

std::optional<std::wstring> decode(std::string_view bytes) {
    if (gDetectEncoding && IsTextUnicode(bytes.data(), static_cast<int>(bytes.size()), nullptr) != FALSE) {
        if (bytes.starts_with("\xFF\xFE"))
            bytes.remove_prefix(2);
        return winFromUtf16(bytes);
    }
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    return fromAnsi(bytes);
}

} // namespace

XmlDocNode openDocument(const std::wstring& path, const ACHAR* tag, XmlParseResult* result) {
    const auto failed = [result](Adesk::Int32 code) {
        if (result != nullptr)
            *result = {code, 0, 0};
        return XmlDocNode();
    };
    std::string bytes;
    if (!winReadFile(path.c_str(), bytes))
        return failed(kXmlFileNotFound);
    if (bytes.empty())
        return failed(kXmlNoData);
    if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return failed(kXmlConversion);
    const auto text = decode(bytes);
    return text ? parseDocument(*text, tag, result) : failed(kXmlConversion);
}
