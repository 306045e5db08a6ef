#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Size.h"
#include "platform/ui/drawing/Bitmap.h"

#include <vector>

namespace utility
{

/// Small pictures of one size, numbered from 0.
class UTILITY_UI_API CImageList : public CObject
{
    DECLARE_DYNAMIC(CImageList)

public:
    CImageList() = default;

    /// From a strip: pieces of that width beside each other, dots of the colour `clear` being
    /// see-through. False, with the list as it was, if there is no such picture or the width is
    /// not from 1 to the strip's.
    bool Create(HBITMAP strip, int width, COLORREF clear);
    /// The same with the strip of that id.
    bool Create(UINT id, int width, COLORREF clear);

    int GetImageCount() const { return static_cast<int>(m_Pictures.size()); }
    /// Of each picture; empty if there is none.
    CSize GetSize() const;
    /// Null if there is none of that number.
    const CPicture* GetPicture(int image) const;

private:
    std::vector<CPicture> m_Pictures;
};

} // namespace utility
