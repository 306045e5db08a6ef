#include "platform/system/window/CmdTarget.h"

#include "platform/system/window/WindowMessages.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

namespace
{

bool IsAnsweredBy(const CMessageRow& row, UINT message, UINT code, UINT id)
{
    if (row.m_Message != message)
        return false;
    if (message != WM_COMMAND && message != WM_NOTIFY)
        return true;
    return row.m_Code == code && row.m_FirstId <= id && id <= row.m_LastId;
}

} // namespace

bool CCmdTarget::OnCmdMsg(UINT id, UINT code, void* extra, const CMessageRow** handler)
{
    const CMessageRow* row = FindRow(WM_COMMAND, code, id);
    if (!row)
        return false;

    if (handler)
        *handler = row;
    else
        row->m_Handler(*this, id, reinterpret_cast<LPARAM>(extra));
    return true;
}

const CMessageMap* CCmdTarget::GetMessageMap() const
{
    static constexpr CMessageMap EMPTY_MAP;
    return &EMPTY_MAP;
}

const CMessageRow* CCmdTarget::FindRow(UINT message, UINT code, UINT id) const
{
    for (const CMessageMap* map = GetMessageMap(); map; map = map->m_Base)
    {
        for (const CMessageRow& row : map->m_Rows)
        {
            if (IsAnsweredBy(row, message, code, id))
                return &row;
        }
    }
    return nullptr;
}

} // namespace utility
