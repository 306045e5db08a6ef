#pragma once

#include <QFont>

namespace utility
{

struct LOGFONT;

/// The window system's font for what is asked; what is left open comes from `desktop`.
QFont ToQFont(const LOGFONT& font, const QFont& desktop);

/// The description of a font; heights are those of the letters (below 0).
LOGFONT ToLogFont(const QFont& font);

} // namespace utility
