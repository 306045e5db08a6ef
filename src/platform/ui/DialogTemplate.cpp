#include "platform/ui/DialogTemplate.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/DialogTemplateMaker.h"
#include "platform/ui/ResourceTables.h"

#include <algorithm>

namespace utility
{

bool CDialogTemplate::Load(UINT id)
{
    const std::u16string_view text = CResourceTables::FindDialog(id);
    if (text.empty())
        return false;

    *this = CDialogTemplateMaker::Make(text);
    return true;
}

bool CDialogTemplate::Load(const char16_t* name)
{
    const std::u16string_view text = CResourceTables::FindDialog(name);
    if (text.empty())
        return false;

    *this = CDialogTemplateMaker::Make(text);
    return true;
}

bool CDialogTemplate::GetFont(CString& face, WORD& height) const
{
    if (!HasFont())
        return false;

    face = m_FontFace;
    height = m_FontHeight;
    return true;
}

void CDialogTemplate::SetFont(const CString& face, WORD height)
{
    m_FontFace = height == 0 ? CString() : face;
    m_FontHeight = height;
    m_Style = height == 0 ? m_Style & ~DS_SETFONT : m_Style | DS_SETFONT;
}

const CDialogTemplateItem* CDialogTemplate::FindItem(UINT id) const
{
    const auto found = std::ranges::find(m_Items, id, &CDialogTemplateItem::m_Id);
    return found == m_Items.end() ? nullptr : &*found;
}

} // namespace utility
