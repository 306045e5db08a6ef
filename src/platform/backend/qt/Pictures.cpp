#include "platform/backend/qt/Pictures.h"

#include "platform/ui/drawing/Bitmap.h"

#include <cstring>

namespace utility
{

QImage WrapPicture(CPicture& picture)
{
    const int stride = picture.m_Size.cx * static_cast<int>(sizeof(std::uint32_t));
    return QImage(reinterpret_cast<uchar*>(picture.m_Dots.data()), picture.m_Size.cx,
                  picture.m_Size.cy, stride, QImage::Format_ARGB32_Premultiplied);
}

QPixmap ToPixmap(const CPicture& picture)
{
    CPicture copy = picture;
    return QPixmap::fromImage(WrapPicture(copy).copy());
}

QPixmap CopyPicture(HBITMAP bitmap)
{
    const CPicture* picture = CBitmap::Find(bitmap);
    return picture ? ToPixmap(*picture) : QPixmap();
}

CPicture ToPicture(const QImage& image)
{
    const QImage dots = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    CPicture picture{CSize(dots.width(), dots.height()), {}};
    picture.m_Dots.reserve(static_cast<std::size_t>(dots.width()) *
                           static_cast<std::size_t>(dots.height()));
    for (int y = 0; y < dots.height(); ++y)
    {
        const auto* line = reinterpret_cast<const std::uint32_t*>(dots.constScanLine(y));
        picture.m_Dots.insert(picture.m_Dots.end(), line, line + dots.width());
    }
    return picture;
}

} // namespace utility
