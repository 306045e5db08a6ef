#pragma once

#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/ui/controls/ToolTipCtrl.h"

#include <vector>

namespace utility
{

/// Shows tips for parts of other windows; its own widget is never seen.
class CToolTipPeer final : public CQtWindowPeer, private QObject
{
public:
    CToolTipPeer(const CWindowRequest& request, QWidget* parent);
    ~CToolTipPeer() override;

    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void Show(bool) override {}

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    LRESULT OnActivate(WPARAM active, LPARAM);
    LRESULT OnAddTool(WPARAM, LPARAM tool);
    LRESULT OnDelTool(WPARAM, LPARAM tool);
    LRESULT OnUpdateTipText(WPARAM, LPARAM tool);
    LRESULT OnGetToolCount(WPARAM, LPARAM);
    LRESULT OnSetMaxTipWidth(WPARAM, LPARAM width);
    LRESULT OnGetMaxTipWidth(WPARAM, LPARAM);

    CToolTipTool* Find(const CToolTipTool& tool);
    const CToolTipTool* FindAt(HWND window, const QPoint& place) const;
    CString TextOf(const CToolTipTool& tool);
    void Describe(const CToolTipTool& tool, const CString& text) const;
    QString Lay(const CString& text) const;

    std::vector<CToolTipTool> m_Tools;
    int m_MaxWidth = -1; // -1: one line
    bool m_IsActive = true;
};

} // namespace utility
