#pragma once

#include "platform/base/Size.h"
#include "platform/base/Types.h"
#include "platform/ui/drawing/GdiObject.h"

#include <cstdint>
#include <vector>

namespace utility
{

/// The dots of a picture, row by row from the top left: opacity in the high byte, then red, green
/// and blue, the colours already multiplied by the opacity.
struct CPicture
{
    CSize m_Size;
    std::vector<std::uint32_t> m_Dots;
};

/// A picture, known to controls and contexts by its handle.
///
/// Controls that were given a picture show a copy and keep it when the object goes.
class UTILITY_UI_API CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)

public:
    CBitmap() = default;
    ~CBitmap() override;

    /// An opaque black picture. All of these are false, and nothing is changed, if there is a
    /// picture already, a side is not from 1 to 32,767 or it has more than 100 million dots.
    bool CreateBitmap(int width, int height);
    bool CreateFromPicture(CPicture picture);
    /// The picture of that id, in the desktop's colours where it asks for these.
    bool LoadBitmap(UINT id);
    bool DeleteObject() override;

    /// Empty if there is none.
    CSize GetSize() const;
    HBITMAP GetSafeHandle() const { return m_Bitmap; }
    operator HBITMAP() const { return m_Bitmap; }

    /// What a handle stands for; null if its picture is gone. The answer holds until then.
    static CPicture* Find(HBITMAP bitmap);

private:
    HBITMAP m_Bitmap = nullptr;
};

} // namespace utility
