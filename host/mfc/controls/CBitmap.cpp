#include "CBitmap.h"

#include "AcPath.h"
#include "WinBinaryFile.h"
#include "controls/AfxDib.h"
#include "controls/AfxImages.h"
#include "controls/AfxXpm.h"
#include "core/QtText.h"
#include "resource/AfxResources.h"

#include <QPainter>

namespace {
constexpr int kGreatestSide = 16384;

std::shared_ptr<AfxPicture> pictureOf(const QImage& image) {
    if (image.isNull())
        return nullptr;
    return std::make_shared<AfxPicture>(AfxPicture{image.convertToFormat(QImage::Format_ARGB32)});
}
} // namespace

CBitmap::CBitmap() = default;
CBitmap::~CBitmap() = default;
CBitmap::CBitmap(const CBitmap&) = default;
CBitmap& CBitmap::operator=(const CBitmap&) = default;

BOOL CBitmap::LoadBitmap(UINT id) {
    return LoadBitmap(rcKey(static_cast<int>(id)).c_str());
}

BOOL CBitmap::LoadBitmap(LPCTSTR name) {
    const RcPicture* resource = afxPictureResource(afxResourceKey(name));
    if (resource == nullptr)
        return FALSE;
    if (!resource->file.empty())
        return LoadFile(resource->file.c_str());
    mPicture = pictureOf(afxReadXpm(resource->rows));
    return mPicture == nullptr ? FALSE : TRUE;
}

BOOL CBitmap::LoadFile(LPCTSTR path) {
    std::string bytes;
    mPicture = nullptr;
    if (winReadFile(path, bytes))
        mPicture = pictureOf(QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size())));
    return mPicture == nullptr ? FALSE : TRUE;
}

BOOL CBitmap::CreateFromDib(const void* bytes, std::size_t size) {
    mPicture = pictureOf(afxReadDib(std::string_view(static_cast<const char*>(bytes), size)));
    return mPicture == nullptr ? FALSE : TRUE;
}

BOOL CBitmap::CreateBlank(int width, int height, COLORREF color) {
    if (width <= 0 || height <= 0 || width > kGreatestSide || height > kGreatestSide)
        return FALSE;
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(toQt(color));
    mPicture = pictureOf(image);
    return TRUE;
}

BOOL CBitmap::StretchFrom(const CRect& target, const CBitmap& source, const CRect& part) {
    if (mPicture == nullptr || source.mPicture == nullptr || target.IsRectEmpty() || part.IsRectEmpty())
        return FALSE;
    mPicture = std::make_shared<AfxPicture>(*mPicture); // copies of this bitmap keep what they show
    // Scaled by area, so that the thin lines of a symbol do not drop out.
    const QImage scaled = source.mPicture->image.copy(toQt(part)).scaled(target.Width(), target.Height(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter(&mPicture->image).drawImage(target.left, target.top, scaled);
    return TRUE;
}

CSize CBitmap::GetSize() const {
    return mPicture == nullptr ? CSize() : CSize(mPicture->image.width(), mPicture->image.height());
}

COLORREF CBitmap::GetPixel(int x, int y) const {
    if (mPicture == nullptr || !mPicture->image.valid(x, y))
        return 0;
    const QColor color = mPicture->image.pixelColor(x, y);
    return RGB(color.red(), color.green(), color.blue());
}

BOOL CBitmap::SaveFile(LPCTSTR path) const {
    return mPicture != nullptr && mPicture->image.save(QString::fromStdString(acFileSystemPath(path))) ? TRUE : FALSE;
}

void CBitmap::DeleteObject() {
    mPicture = nullptr;
}
