#include "CImageList.h"

#include "AfxDialogDriver.h"
#include "controls/AfxImages.h"
#include "core/QtText.h"

#include <QPainter>

namespace {
QImage masked(QImage image, COLORREF mask) {
    const QRgb gone = toQt(mask).rgb();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) | 0xFF000000u) == gone)
                image.setPixel(x, y, 0);
    return image;
}

// A picture of the list's size: centred, shrunk where it is larger.
QPixmap fitted(const QImage& image, QSize size) {
    QImage piece = image;
    if (piece.width() > size.width() || piece.height() > size.height())
        piece = piece.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage whole(size, QImage::Format_ARGB32);
    whole.fill(Qt::transparent);
    QPainter(&whole).drawImage((size.width() - piece.width()) / 2, (size.height() - piece.height()) / 2, piece);
    return QPixmap::fromImage(whole);
}
} // namespace

CImageList::CImageList() = default;
CImageList::~CImageList() = default;

BOOL CImageList::Create(int cx, int cy, UINT, int, int) {
    if (cx <= 0 || cy <= 0)
        return FALSE;
    AfxInitToolkit(); // pictures of the screen need it
    mImages = std::make_shared<AfxImages>();
    mImages->size = QSize(cx, cy);
    return TRUE;
}

void CImageList::DeleteImageList() {
    mImages = nullptr;
}

int CImageList::Add(const CBitmap* bitmap, COLORREF mask) {
    if (mImages == nullptr || bitmap == nullptr || bitmap->picture() == nullptr)
        return -1;
    CBitmap clear(*bitmap);
    clear.editPicture() = std::make_shared<AfxPicture>(AfxPicture{masked(bitmap->picture()->image, mask)});
    return Add(&clear);
}

int CImageList::Add(const CBitmap* bitmap) {
    if (mImages == nullptr || bitmap == nullptr || bitmap->picture() == nullptr)
        return -1;
    const QImage& image = bitmap->picture()->image;
    const int first = GetImageCount();
    const int width = mImages->size.width();
    const bool isStrip = image.height() == mImages->size.height() && image.width() > width && image.width() % width == 0;
    for (int x = 0; x < (isStrip ? image.width() : 1); x += width)
        mImages->pictures.push_back(fitted(isStrip ? image.copy(x, 0, width, image.height()) : image, mImages->size));
    return first;
}

BOOL CImageList::Replace(int index, const CBitmap* bitmap, COLORREF mask) {
    if (index < 0 || index >= GetImageCount() || bitmap == nullptr || bitmap->picture() == nullptr)
        return FALSE;
    mImages->pictures[static_cast<std::size_t>(index)] = fitted(masked(bitmap->picture()->image, mask), mImages->size);
    return TRUE;
}

int CImageList::GetImageCount() const {
    return mImages == nullptr ? 0 : static_cast<int>(mImages->pictures.size());
}

CSize CImageList::GetIconSize() const {
    return mImages == nullptr ? CSize() : CSize(mImages->size.width(), mImages->size.height());
}
