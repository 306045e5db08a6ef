#pragma once

#include "platform/ui/controls/Static.h"
#include "platform/ui/drawing/Bitmap.h"

namespace utility
{

/// A picture by its number in the tables (ResourceTables.h).
class UTILITY_UI_API CPictureControl : public CStatic
{
    DECLARE_DYNAMIC(CPictureControl)

public:
    /// False if no table has the picture.
    bool Create(UINT bitmapId, DWORD style, const CRect& place, CWnd* parent, UINT id);
    /// Colours of the desktop in it are those of now. False, and the picture before stays, if no
    /// table has it.
    bool SetPicture(UINT bitmapId);
    CSize GetPictureSize() const { return m_Picture.GetSize(); }

private:
    CBitmap m_Picture;
};

} // namespace utility
