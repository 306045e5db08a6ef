#include "platform/ui/drawing/Font.h"

#include "platform/ui/HandleTable.h"

#include <cmath>
#include <utility>

namespace utility
{

namespace
{

using CFontTable = THandleTable<HFONT, LOGFONT>;

// Never ended: fonts that live as long as the program come back to it at the very end.
CFontTable& GetFontTable()
{
    static CFontTable* const table = new CFontTable;
    return *table;
}

} // namespace

IMPLEMENT_DYNAMIC(CFont, CGdiObject)

CFont::~CFont()
{
    CFont::DeleteObject();
}

bool CFont::CreateFontIndirect(const LOGFONT& font)
{
    if (m_Font)
        return false;
    m_Font = GetFontTable().Add(font);
    return true;
}

bool CFont::CreatePointFont(int size, const CString& face)
{
    constexpr double PIXELS_PER_TENTH = 96.0 / 720.0;
    LOGFONT font;
    font.lfHeight = static_cast<LONG>(-std::lround(size * PIXELS_PER_TENTH));
    font.lfFaceName = face;
    return CreateFontIndirect(font);
}

bool CFont::DeleteObject()
{
    if (!m_Font)
        return false;
    GetFontTable().Remove(std::exchange(m_Font, nullptr));
    return true;
}

bool CFont::GetLogFont(LOGFONT& font) const
{
    const LOGFONT* found = Find(m_Font);
    if (!found)
        return false;
    font = *found;
    return true;
}

const LOGFONT* CFont::Find(HFONT font)
{
    return GetFontTable().Find(font);
}

} // namespace utility
