// The list of font folders, the look-alikes of fonts that are not free, and the search.
#include "GiFontFolders.h"

#include "AcUtText.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string_view>

namespace {
namespace fs = std::filesystem;

constexpr std::string_view kDraftingFont = "osifont";
constexpr std::string_view kFallbackFont = "dejavusans";

struct LookAlike {
    std::string_view name, file;
};
// Same advance widths as the font replaced where one exists, so that texts keep their length.
constexpr LookAlike kLookAlikes[] = {
    {"arial", "liberationsans-regular"},
    {"arialmt", "liberationsans-regular"},
    {"arialbd", "liberationsans-bold"},
    {"arialbold", "liberationsans-bold"},
    {"ariali", "liberationsans-italic"},
    {"arialn", "liberationsansnarrow-regular"},
    {"arialnarrow", "liberationsansnarrow-regular"},
    {"helvetica", "liberationsans-regular"},
    {"calibri", "liberationsans-regular"},
    {"tahoma", "liberationsans-regular"},
    {"verdana", "dejavusans"},
    {"times", "liberationserif-regular"},
    {"timesnewroman", "liberationserif-regular"},
    {"cour", "liberationmono-regular"},
    {"couriernew", "liberationmono-regular"},
};

std::vector<fs::path> fontFolders() {
    std::vector<fs::path> folders;
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0')
        folders.push_back(fs::path(home) / ".local/share/fonts");
    folders.emplace_back("/usr/local/share/fonts");
    folders.emplace_back("/usr/share/fonts");
    return folders;
}

// Lower case, without blanks, without a font file's ending: the form in which names are compared.
std::string plainName(std::string_view name) {
    std::string plain;
    for (const char c : name)
        if (c != ' ')
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    for (const std::string_view ending : {".shx", ".ttf", ".otf", ".ttc"})
        if (plain.ends_with(ending)) {
            plain.resize(plain.size() - ending.size());
            break;
        }
    return plain;
}

std::map<std::string, std::string> findFonts() {
    std::map<std::string, std::string> files;
    for (const fs::path& folder : fontFolders()) {
        std::error_code failed;
        fs::recursive_directory_iterator walk(folder, fs::directory_options::skip_permission_denied, failed);
        for (; !failed && walk != fs::recursive_directory_iterator(); walk.increment(failed)) {
            const std::string ending = walk->path().extension().string();
            if (ending == ".ttf" || ending == ".otf" || ending == ".TTF")
                files.emplace(plainName(walk->path().filename().string()), walk->path().string());
        }
    }
    return files;
}

std::string installedFile(std::string_view plain) {
    static const std::map<std::string, std::string> files = findFonts();
    const auto found = files.find(std::string(plain));
    return found == files.end() ? std::string() : found->second;
}
} // namespace

std::string giFontFile(const std::wstring& name) {
    // A style may name a second font for characters of the Far East after a comma.
    const std::string plain = plainName(acToUtf8(name.substr(0, name.find(L','))));
    const auto* alike = std::ranges::find(kLookAlikes, std::string_view(plain), &LookAlike::name);
    std::string file = installedFile(plain);
    if (file.empty() && alike != std::end(kLookAlikes))
        file = installedFile(alike->file);
    if (file.empty())
        file = installedFile(kDraftingFont);
    return file.empty() ? giFallbackFontFile() : file;
}

std::string giFallbackFontFile() {
    return installedFile(kFallbackFont);
}
