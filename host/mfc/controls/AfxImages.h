// The pictures behind CBitmap and CImageList.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <memory>
#include <vector>

struct AfxPicture {
    QImage image; // 32 bit with alpha
};
struct AfxImages {
    QSize size;
    std::vector<QPixmap> pictures;
};
// Empty where there is no such picture.
inline QIcon afxIcon(const std::shared_ptr<AfxImages>& images, int index) {
    if (images == nullptr || index < 0 || static_cast<std::size_t>(index) >= images->pictures.size())
        return {};
    QIcon icon;
    const QPixmap& picture = images->pictures[static_cast<std::size_t>(index)];
    icon.addPixmap(picture, QIcon::Normal);
    icon.addPixmap(picture, QIcon::Selected); // a selected row does not tint its picture
    return icon;
}
