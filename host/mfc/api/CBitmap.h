// A picture in memory, 32 bit colour.
#pragma once

#include "CRect.h"
#include "CString.h"

#include <memory>

struct AfxPicture; // host side

class CBitmap {
public:
    CBitmap();
    ~CBitmap();
    CBitmap(const CBitmap&);
    CBitmap& operator=(const CBitmap&);

    BOOL LoadBitmap(UINT id); // a BITMAP of the module's resources
    BOOL LoadBitmap(LPCTSTR name);
    BOOL LoadFile(LPCTSTR path); // a .bmp or .png file by host path
    // A device-independent bitmap: the header, the palette, the rows. FALSE for junk.
    BOOL CreateFromDib(const void* bytes, std::size_t size);
    BOOL CreateBlank(int width, int height, COLORREF color);
    // Copies a part of another picture into a part of this one, stretched smoothly.
    BOOL StretchFrom(const CRect& target, const CBitmap& source, const CRect& part);
    CSize GetSize() const; // 0, 0 where empty
    COLORREF GetPixel(int x, int y) const;
    BOOL SaveFile(LPCTSTR path) const; // .png or .bmp
    void DeleteObject();

    const AfxPicture* picture() const { return mPicture.get(); } // host use; may be null
    std::shared_ptr<AfxPicture>& editPicture() { return mPicture; }

private:
    std::shared_ptr<AfxPicture> mPicture;
};
