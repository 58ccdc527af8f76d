// The two standard icons of the library tree: a closed and an open folder on white, 18 by 22.
#pragma once

#include "CBitmap.h"

inline constexpr int kFolderIconWidth = 18;
inline constexpr int kFolderIconHeight = 22;

CBitmap closedFolderIcon();
CBitmap openFolderIcon();
