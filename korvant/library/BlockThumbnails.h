// The thumbnails of a library folder: the previews stored in its drawings, cut and brought to one size.
#pragma once

#include "CBitmap.h"

#include <string>
#include <vector>

struct BlockThumbnail {
    std::wstring title; // the file's name without its extension
    CBitmap picture;    // of the folder's thumbnail size; blank for a drawing without a preview
};

// The size that all thumbnails of the folder get. mask: folder, "\\*.dwg".
// viewSize: 0 to 4, the user's choice of thumbnail size.
CSize blockThumbnailSize(const std::wstring& mask, int viewSize);
// In the order of the file system; files whose name begins with "$" are companions of others and
// are left out.
std::vector<BlockThumbnail> blockThumbnails(const std::wstring& mask, CSize size);
