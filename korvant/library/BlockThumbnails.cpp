#include "BlockThumbnails.h"

#include "AcDbDatabase.h"
#include "WinFiles.h"

#include <algorithm>

namespace {
// Library previews have wide empty margins; this part of the width is left out on either side.
constexpr double kMargin = 0.2;
const CSize kLeastPreview(100, 50);

struct FolderFile {
    std::wstring name, path;
};

std::vector<FolderFile> filesOf(const std::wstring& mask) {
    std::vector<FolderFile> files;
    const std::wstring folder = mask.substr(0, mask.rfind(L'\\') + 1);
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(mask.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return files;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            files.push_back({found.cFileName, folder + found.cFileName});
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return files;
}

// Empty where the drawing has no preview or cannot be read.
CBitmap previewOf(const std::wstring& path) {
    CBitmap preview;
    std::vector<Adesk::UInt8> dib;
    if (acdbGetPreviewBitmapFromDwg(path.c_str(), dib))
        preview.CreateFromDib(dib.data(), dib.size());
    return preview;
}

CBitmap thumbnailOf(const CBitmap& preview, CSize size) {
    CBitmap thumbnail;
    thumbnail.CreateBlank(size.cx, size.cy, RGB(255, 255, 255));
    const CSize whole = preview.GetSize();
    const int margin = static_cast<int>(whole.cx * kMargin);
    if (whole.cx > 0 && whole.cy > 0)
        thumbnail.StretchFrom({0, 0, size.cx, size.cy}, preview, {margin, 0, whole.cx - margin, whole.cy});
    return thumbnail;
}

std::wstring titleOf(const std::wstring& name) { return name.substr(0, name.rfind(L'.')); }
} // namespace

CSize blockThumbnailSize(const std::wstring& mask, int viewSize) {
    CSize size = kLeastPreview;
    for (const FolderFile& file : filesOf(mask)) {
        const CSize preview = previewOf(file.path).GetSize();
        size.cx = std::max(size.cx, preview.cx);
        size.cy = std::max(size.cy, preview.cy);
    }
    const double factor = 0.4 + std::clamp(viewSize, 0, 4) * 0.2;
    const int width = static_cast<int>(size.cx * (1.0 - 2.0 * kMargin));
    return {static_cast<int>(width * factor), static_cast<int>(size.cy * factor)};
}

std::vector<BlockThumbnail> blockThumbnails(const std::wstring& mask, CSize size) {
    std::vector<BlockThumbnail> thumbnails;
    for (const FolderFile& file : filesOf(mask))
        if (!file.name.starts_with(L'$'))
            thumbnails.push_back({titleOf(file.name), thumbnailOf(previewOf(file.path), size)});
    return thumbnails;
}
