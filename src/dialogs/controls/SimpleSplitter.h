#pragma once

#include "dialogs/controls/SplitterControl.h"

namespace utility
{

/// A window of two panes with a movable bar between them; the panes fill it.
///
/// When the window changes its size both panes keep their part of it. User-interface thread.
class UTILITY_UI_API CSimpleSplitter : public CWnd
{
    DECLARE_DYNAMIC(CSimpleSplitter)

public:
    static constexpr int BAR = 6; // pixels

    /// The panes stand side by side or one above the other; the bar is in the middle.
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id, bool isSideBySide);
    /// Both are children of the splitter, and not owned.
    void SetPanes(CWnd& first, CWnd& second);
    void SetMinimums(int first, int second);

    int GetPosition() const { return m_Position; }
    /// As near as it may.
    void SetPosition(int position);
    CSplitterControl& GetBar() { return m_Bar; }

protected:
    const CMessageMap* GetMessageMap() const override;
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    LRESULT OnSize(WPARAM type, LPARAM size);
    int GetLength() const;
    void Place();

    CSplitterControl m_Bar;
    HWND m_First = nullptr;
    HWND m_Second = nullptr;
    int m_FirstMinimum = 0;
    int m_SecondMinimum = 0;
    bool m_IsSideBySide = true;
    int m_Length = 0; // when the panes were placed last
    int m_Position = 0;
};

} // namespace utility
