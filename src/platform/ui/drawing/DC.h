#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/ui/drawing/DrawingCodes.h"
#include "platform/ui/drawing/GdiObject.h"

#include <memory>
#include <span>

namespace utility
{

class CBitmap;
class CBrush;
class CFont;
class CPen;
class CString;

/// The measures of a font, in pixels.
struct TEXTMETRIC
{
    LONG tmHeight = 0; // of a line: ascent and descent
    LONG tmAscent = 0;
    LONG tmDescent = 0;
    LONG tmExternalLeading = 0; // between lines
    LONG tmAveCharWidth = 0;
    LONG tmMaxCharWidth = 0;
};

/// Draws lines, areas, texts and pictures with the tools selected into it.
///
/// Coordinates are pixels at 96 dots per inch from the top left; right and bottom edges lie just
/// outside, and a line leaves its last dot out. At first the pen is black and one pixel wide, the
/// brush white, texts are black on a white ground, and the font is the window's. A tool must live
/// as long as it is selected. User-interface thread.
class UTILITY_UI_API CDC : public CObject
{
    DECLARE_DYNAMIC(CDC)

public:
    ~CDC() override;
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    /// The context of a handle that a message brings; null for null.
    static CDC* FromHandle(HDC context) { return reinterpret_cast<CDC*>(context); }
    HDC GetSafeHdc() { return reinterpret_cast<HDC>(this); }

    // Tools; each call gives the tool selected before
    CPen* SelectObject(CPen* pen);
    CBrush* SelectObject(CBrush* brush);
    CFont* SelectObject(CFont* font);
    /// Into a memory context alone; null, and nothing happens, for others.
    CBitmap* SelectObject(CBitmap* bitmap);
    /// A tool that is always there, such as HOLLOW_BRUSH; null if there is none of that number.
    CGdiObject* SelectStockObject(int tool);
    COLORREF SetTextColor(COLORREF colour);
    COLORREF SetBkColor(COLORREF colour);
    /// TRANSPARENT leaves the ground of texts as it is.
    int SetBkMode(int mode);

    // Areas
    void FillRect(const CRect& rect, const CBrush* brush);
    /// Sets the ground colour, too.
    void FillSolidRect(const CRect& rect, COLORREF colour);
    void FrameRect(const CRect& rect, const CBrush* brush);
    /// Frame by the pen, inside by the brush.
    void Rectangle(const CRect& rect);
    void Polygon(std::span<const CPoint> points);
    void InvertRect(const CRect& rect);
    /// As the desktop's style shows the focus.
    void DrawFocusRect(const CRect& rect);

    // Lines
    /// The place before.
    CPoint MoveTo(CPoint point);
    void LineTo(CPoint point);

    // Areas within lines: what MoveTo, LineTo and Polygon give between the first two is not drawn
    void BeginPath();
    void EndPath();
    void FillPath();
    void StrokeAndFillPath();

    // Texts
    void TextOut(int x, int y, const CString& text);
    /// Takes a sum of DT_...; the height of the text. With DT_CALCRECT nothing is drawn and
    /// `rect` is fitted to the text from its top left.
    int DrawText(const CString& text, CRect& rect, UINT format);
    /// Of one line, without regard to "&".
    CSize GetTextExtent(const CString& text) const;
    TEXTMETRIC GetTextMetrics() const;

    /// Copies from a memory context; false if the code is none of DrawingCodes.h or the source has
    /// no picture.
    bool BitBlt(const CRect& place, const CDC* source, CPoint from, DWORD code);

    /// LOGPIXELSX, LOGPIXELSY, HORZRES, VERTRES, BITSPIXEL; 0 for others.
    int GetDeviceCaps(int item) const;

protected:
    struct CBackend; // platform/backend/qt/DeviceContext.h
    explicit CDC(std::unique_ptr<CBackend> backend);

    std::unique_ptr<CBackend> m_Backend;
};

} // namespace utility
