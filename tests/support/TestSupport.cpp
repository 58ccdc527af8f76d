#include "TestSupport.h"

#include "AcUtText.h"

#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {
struct TempFolders {
    std::vector<std::string> made;
    ~TempFolders() {
        std::error_code ignored;
        for (const std::string& folder : made)
            std::filesystem::remove_all(folder, ignored);
    }
};
TempFolders gFolders;
} // namespace

std::string testTempPath() {
    std::string pattern = (std::filesystem::temp_directory_path() / "korvant-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        std::abort();
    gFolders.made.push_back(pattern);
    return pattern;
}

std::wstring testTempDir() {
    return acFromUtf8(testTempPath());
}
