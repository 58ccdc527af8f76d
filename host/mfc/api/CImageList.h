// Pictures of one size, for lists and trees. A copy shares the pictures.
#pragma once

#include "CBitmap.h"

constexpr UINT ILC_MASK = 1, ILC_COLOR16 = 0x10, ILC_COLOR24 = 0x18, ILC_COLOR32 = 0x20;
struct AfxImages; // host side

class CImageList {
public:
    CImageList();
    ~CImageList();
    BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
    void DeleteImageList();
    BOOL IsCreated() const { return mImages != nullptr; }
    // Pixels of the mask colour become transparent. A wide bitmap is cut into pictures of the
    // list's width; a smaller one is centred. The index of the first new picture, -1 on failure.
    int Add(const CBitmap* bitmap, COLORREF mask);
    int Add(const CBitmap* bitmap);
    BOOL Replace(int index, const CBitmap* bitmap, COLORREF mask);
    int GetImageCount() const;
    CSize GetIconSize() const;

    const std::shared_ptr<AfxImages>& images() const { return mImages; } // host use

private:
    std::shared_ptr<AfxImages> mImages;
};
