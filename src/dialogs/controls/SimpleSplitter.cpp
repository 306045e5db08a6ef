#include "dialogs/controls/SimpleSplitter.h"

#include "dialogs/controls/SplitRange.h"
#include "platform/system/window/WindowMessages.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CSimpleSplitter, CWnd)

namespace
{

constexpr UINT BAR_ID = 1;

void PlacePane(HWND window, const CRect& place)
{
    if (CWnd* pane = CWnd::FromHandle(window))
        pane->MoveWindow(place);
}

} // namespace

const CMessageMap* CSimpleSplitter::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {MessageRow<&CSimpleSplitter::OnSize>(WM_SIZE)};
    static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
    return &MAP;
}

bool CSimpleSplitter::Create(DWORD style, const CRect& place, CWnd* parent, UINT id,
                             bool isSideBySide)
{
    m_IsSideBySide = isSideBySide;
    if (!CreateEx(0, u"SimpleSplitter", u"", style | WS_CHILD, place, parent, id))
        return false;
    m_Length = GetLength();
    m_Position = m_Length / 2;
    // Higher than wide or wider than high, so that the bar knows its direction from the start.
    const CSize bar = isSideBySide ? CSize(BAR, 2 * BAR) : CSize(2 * BAR, BAR);
    if (!m_Bar.Create(u"Splitter", WS_VISIBLE | WS_TABSTOP, {CPoint(), bar}, this, BAR_ID))
        return false;
    Place();
    return true;
}

void CSimpleSplitter::SetPanes(CWnd& first, CWnd& second)
{
    m_First = first.GetSafeHwnd();
    m_Second = second.GetSafeHwnd();
    Place();
}

void CSimpleSplitter::SetMinimums(int first, int second)
{
    m_FirstMinimum = first;
    m_SecondMinimum = second;
    m_Bar.SetMinimums(first, second);
    SetPosition(m_Position);
}

int CSimpleSplitter::GetLength() const
{
    const CRect client = GetClientRect();
    return m_IsSideBySide ? client.Width() : client.Height();
}

void CSimpleSplitter::SetPosition(int position)
{
    m_Position = CSplitRange{m_Length, BAR, m_FirstMinimum, m_SecondMinimum}.Clamp(position);
    Place();
}

bool CSimpleSplitter::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const auto& note = *reinterpret_cast<const NMHDR*>(lParam);
    if (note.hwndFrom != m_Bar.GetSafeHwnd() || note.code != SPN_MOVED)
        return CWnd::OnNotify(wParam, lParam, result);
    m_Position = m_Bar.GetPosition();
    Place();
    return true;
}

LRESULT CSimpleSplitter::OnSize(WPARAM type, LPARAM size)
{
    const LRESULT result = DefWindowProc(WM_SIZE, type, size);
    const CSplitRange before{m_Length, BAR, m_FirstMinimum, m_SecondMinimum};
    const int length = GetLength();
    m_Position = before.Scale(m_Position, length);
    m_Length = length;
    Place();
    return result;
}

void CSimpleSplitter::Place()
{
    const CRect client = GetClientRect();
    CRect first = client;
    CRect bar = client;
    CRect second = client;
    if (m_IsSideBySide)
    {
        first.right = bar.left = m_Position;
        bar.right = second.left = m_Position + BAR;
    }
    else
    {
        first.bottom = bar.top = m_Position;
        bar.bottom = second.top = m_Position + BAR;
    }
    if (m_Bar.GetSafeHwnd())
        m_Bar.MoveWindow(bar);
    PlacePane(m_First, first);
    PlacePane(m_Second, second);
}

} // namespace utility
