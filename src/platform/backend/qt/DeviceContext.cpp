#include "platform/backend/qt/DeviceContext.h"

#include "platform/backend/qt/Fonts.h"
#include "platform/backend/qt/Pictures.h"
#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/ui/drawing/Bitmap.h"
#include "platform/ui/drawing/Brush.h"
#include "platform/ui/drawing/ClientDC.h"
#include "platform/ui/drawing/Font.h"
#include "platform/ui/drawing/MemoryDC.h"
#include "platform/ui/drawing/PaintDC.h"
#include "platform/ui/drawing/Pen.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <utility>

namespace utility
{

namespace
{

Qt::PenStyle ToPenStyle(int style)
{
    switch (style)
    {
    case PS_DASH:
        return Qt::DashLine;
    case PS_DOT:
        return Qt::DotLine;
    case PS_DASHDOT:
        return Qt::DashDotLine;
    case PS_NULL:
        return Qt::NoPen;
    default:
        return Qt::SolidLine;
    }
}

/// The tools that are always there.
CGdiObject* FindStockObject(int tool)
{
    static CBrush white(RGB(255, 255, 255));
    static CBrush black(RGB(0, 0, 0));
    static CBrush hollow;
    static CPen blackPen(PS_SOLID, 1, RGB(0, 0, 0));
    static CPen noPen(PS_NULL, 1, RGB(0, 0, 0));
    switch (tool)
    {
    case WHITE_BRUSH:
        return &white;
    case BLACK_BRUSH:
        return &black;
    case HOLLOW_BRUSH:
        return &hollow;
    case BLACK_PEN:
        return &blackPen;
    case NULL_PEN:
        return &noPen;
    default:
        return nullptr;
    }
}

QWidget* FindWidget(const CWnd* window)
{
    return window ? WidgetOf(*window) : nullptr;
}

} // namespace

CDC::CBackend::CBackend(QPainter* painter, const QFont& font) : m_Painter(painter), m_BaseFont(font)
{
}

CDC::CBackend::CBackend(QWidget* widget)
    : m_BaseFont(widget ? widget->font() : QApplication::font())
{
    if (widget && widget->testAttribute(Qt::WA_WState_InPaintEvent))
        m_Painter = &m_Own.emplace(widget);
}

QPen CDC::CBackend::GetPen() const
{
    const CPen& pen = m_Pen ? *m_Pen : static_cast<CPen&>(*FindStockObject(BLACK_PEN));
    // A flat end leaves the last dot of a thin line out.
    return QPen(ToQColor(pen.GetColour()), std::max(1, pen.GetWidth()), ToPenStyle(pen.GetStyle()),
                Qt::FlatCap, Qt::MiterJoin);
}

QBrush CDC::CBackend::GetBrush() const
{
    const CBrush& brush = m_Brush ? *m_Brush : static_cast<CBrush&>(*FindStockObject(WHITE_BRUSH));
    return brush.IsHollow() ? QBrush() : QBrush(ToQColor(brush.GetColour()));
}

QFont CDC::CBackend::GetFont() const
{
    const LOGFONT* font = m_Font ? CFont::Find(*m_Font) : nullptr;
    return font ? ToQFont(*font, QApplication::font()) : m_BaseFont;
}

void CDC::CBackend::DrawInto(CBitmap* bitmap)
{
    m_Painter = nullptr;
    m_Own.reset();
    m_Image = QImage();
    m_Bitmap = bitmap;
    CPicture* picture = bitmap ? CBitmap::Find(*bitmap) : nullptr;
    if (!picture)
        return;
    m_Image = WrapPicture(*picture);
    m_Painter = &m_Own.emplace(&m_Image);
}

IMPLEMENT_DYNAMIC(CDC, CObject)
IMPLEMENT_DYNAMIC(CMemoryDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)
IMPLEMENT_DYNAMIC(CClientDC, CDC)

CDC::CDC(std::unique_ptr<CBackend> backend) : m_Backend(std::move(backend)) {}

CDC::~CDC() = default;

CMemoryDC::CMemoryDC() : CDC(std::make_unique<CBackend>(nullptr, QApplication::font()))
{
    m_Backend->m_IsMemory = true;
}

CPaintDC::CPaintDC(CWnd* window) : CDC(std::make_unique<CBackend>(FindWidget(window))) {}

CClientDC::CClientDC(CWnd* window) : CDC(std::make_unique<CBackend>(FindWidget(window))) {}

CPen* CDC::SelectObject(CPen* pen)
{
    CPen* before = std::exchange(m_Backend->m_Pen, pen);
    return before ? before : static_cast<CPen*>(FindStockObject(BLACK_PEN));
}

CBrush* CDC::SelectObject(CBrush* brush)
{
    CBrush* before = std::exchange(m_Backend->m_Brush, brush);
    return before ? before : static_cast<CBrush*>(FindStockObject(WHITE_BRUSH));
}

CFont* CDC::SelectObject(CFont* font)
{
    return std::exchange(m_Backend->m_Font, font);
}

CBitmap* CDC::SelectObject(CBitmap* bitmap)
{
    if (!m_Backend->m_IsMemory)
        return nullptr;
    CBitmap* before = m_Backend->m_Bitmap;
    m_Backend->DrawInto(bitmap);
    return before;
}

CGdiObject* CDC::SelectStockObject(int tool)
{
    CGdiObject* object = FindStockObject(tool);
    if (!object)
        return nullptr;
    if (object->IsKindOf(RUNTIME_CLASS(CPen)))
        return SelectObject(static_cast<CPen*>(object));
    return SelectObject(static_cast<CBrush*>(object));
}

COLORREF CDC::SetTextColor(COLORREF colour)
{
    return std::exchange(m_Backend->m_TextColour, colour);
}

COLORREF CDC::SetBkColor(COLORREF colour)
{
    return std::exchange(m_Backend->m_BackColour, colour);
}

int CDC::SetBkMode(int mode)
{
    return std::exchange(m_Backend->m_BackMode, mode);
}

int CDC::GetDeviceCaps(int item) const
{
    constexpr int BASE_DOTS_PER_INCH = 96; // the window system scales
    constexpr int COLOUR_BITS = 32;
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QSize size = screen ? screen->size() : QSize();
    switch (item)
    {
    case LOGPIXELSX:
    case LOGPIXELSY:
        return BASE_DOTS_PER_INCH;
    case HORZRES:
        return size.width();
    case VERTRES:
        return size.height();
    case BITSPIXEL:
        return COLOUR_BITS;
    default:
        return 0;
    }
}

} // namespace utility
