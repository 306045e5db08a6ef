#include "platform/ui/BCGPDialog.h"

#include "resources/MessageNames.h"

#include <algorithm>

namespace utility
{

IMPLEMENT_DYNAMIC(CBCGPDialog, CDialog)

void CBCGPDialog::EnableVisualManagerStyle(bool enable, bool, std::span<const UINT> leftOut)
{
    m_IsStyled = enable;
    m_LeftOut.assign(leftOut.begin(), leftOut.end());
    Invalidate();
}

bool CBCGPDialog::IsLeftOut(UINT id) const
{
    return std::find(m_LeftOut.begin(), m_LeftOut.end(), id) != m_LeftOut.end();
}

const CMessageMap* CBCGPDialog::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        MessageRow<&CBCGPDialog::OnChangeVisualManager>(MSG_CHANGE_VISUAL_MANAGER)};
    static const CMessageMap MAP{CDialog::GetMessageMap(), ROWS};
    return &MAP;
}

LRESULT CBCGPDialog::OnChangeVisualManager(WPARAM, LPARAM)
{
    Invalidate();
    return 0;
}

} // namespace utility
