#pragma once

#include "platform/base/Types.h"

#include <QImage>
#include <QPixmap>

namespace utility
{

struct CPicture;

/// Draws into the picture's own dots, which must stay.
QImage WrapPicture(CPicture& picture);

/// A copy for a control.
QPixmap ToPixmap(const CPicture& picture);

/// The same of a handle's picture; null if the handle's picture is gone.
QPixmap CopyPicture(HBITMAP bitmap);

CPicture ToPicture(const QImage& image);

} // namespace utility
