#pragma once

#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/ui/drawing/GdiObject.h"

namespace utility
{

constexpr LONG FW_NORMAL = 400;
constexpr LONG FW_BOLD = 700;

/// A typeface as it is asked for; the desktop takes the nearest one that it has.
struct LOGFONT
{
    /// In pixels: below 0 of the letters, above 0 of the whole line, 0 as the desktop's font.
    LONG lfHeight = 0;
    LONG lfWeight = FW_NORMAL;
    BYTE lfItalic = 0;
    BYTE lfUnderline = 0;
    BYTE lfStrikeOut = 0;
    BYTE lfCharSet = 1; // 1: the desktop's
    CString lfFaceName; // empty: the desktop's

    bool operator==(const LOGFONT& other) const = default;
};

/// A typeface, known to windows and contexts by its handle.
///
/// Windows that were given a font keep it when the object goes.
class UTILITY_UI_API CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)

public:
    CFont() = default;
    ~CFont() override;

    /// Both false, and nothing is changed, if the font is made already.
    bool CreateFontIndirect(const LOGFONT& font);
    /// The size is in tenths of a point, such as 90.
    bool CreatePointFont(int size, const CString& face);
    bool DeleteObject() override;

    /// `font` keeps its preset if the font is not made.
    bool GetLogFont(LOGFONT& font) const;
    HFONT GetSafeHandle() const { return m_Font; }
    operator HFONT() const { return m_Font; }

    /// What a handle stands for; null if its font is gone. The answer holds until then.
    static const LOGFONT* Find(HFONT font);

private:
    HFONT m_Font = nullptr;
};

} // namespace utility
