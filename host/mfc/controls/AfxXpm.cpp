#include "controls/AfxXpm.h"

#include <QColor>
#include <cstdio>
#include <map>

namespace {
constexpr int kGreatestSide = 256, kGreatestColors = 256;

QRgb colorOf(const std::string& definition) {
    const std::size_t at = definition.find("c ");
    const QString name = at == std::string::npos ? QString() : QString::fromStdString(definition.substr(at + 2)).trimmed();
    if (name.compare(QStringLiteral("None"), Qt::CaseInsensitive) == 0)
        return qRgba(255, 255, 255, 0);
    const QColor color = QColor::isValidColor(name) ? QColor(name) : QColor(Qt::black);
    return color.rgb();
}
} // namespace

QImage afxReadXpm(const std::vector<std::string>& rows) {
    int width = 0, height = 0, colors = 0, characters = 0;
    if (rows.empty() || std::sscanf(rows[0].c_str(), "%d %d %d %d", &width, &height, &colors, &characters) != 4)
        return {};
    const bool isSane = width > 0 && height > 0 && width <= kGreatestSide && height <= kGreatestSide && colors > 0 &&
                        colors <= kGreatestColors && characters == 1;
    if (!isSane || rows.size() < static_cast<std::size_t>(1 + colors + height))
        return {};
    std::map<char, QRgb> palette;
    for (int i = 1; i <= colors; ++i)
        if (const std::string& row = rows[static_cast<std::size_t>(i)]; row.size() > 1)
            palette[row[0]] = colorOf(row.substr(1));
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        const std::string& row = rows[static_cast<std::size_t>(1 + colors + y)];
        if (row.size() < static_cast<std::size_t>(width))
            return {};
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, palette[row[static_cast<std::size_t>(x)]]);
    }
    return image;
}
