// Any bytes as a settings file: what was read can be asked for, written and read again.
#include "AcUtText.h"
#include "TrfcAppSettings.h"
#include "WinBinaryFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {
std::wstring filePath() {
    static const std::string path = [] {
        std::string pattern = "/tmp/korvant-fuzz-XXXXXX";
        return std::string(mkdtemp(pattern.data())) + "/settings.ini";
    }();
    return acFromUtf8(path);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace TrfcAppSettings;
    const std::wstring path = filePath();
    WinBinaryFile file;
    if (!file.open(path.c_str(), L"wb"))
        return 0;
    file.write(data, size);
    file.close();
    loadAppSettings(path);
    loadDocDefaults(path);
    getAppInt(BLOCK_VIEW_SIZE);
    const std::wstring drawing = getDocDefault(DOC_POST_DEFAULT_DWG);
    saveDocDefaults(path);
    loadDocDefaults(path);
    // What one line held comes back on one line, unless its end was cut off by the reader's limit.
    if (drawing.size() < 900 && drawing.find(L'\n') == std::wstring::npos && drawing.find(L'\x1a') == std::wstring::npos &&
        drawing.find_first_of(L" \t\r") == std::wstring::npos && getDocDefault(DOC_POST_DEFAULT_DWG) != drawing)
        std::abort();
    return 0;
}
