#include "platform/base/object/OleException.h"

namespace utility
{

IMPLEMENT_DYNAMIC(COleException, CException)

CString COleException::GetErrorText() const
{
    CString text;
    text.Format(u"0x%08X", static_cast<unsigned>(m_sc));
    return text;
}

void AfxThrowOleException(HRESULT code)
{
    throw new COleException(code);
}

} // namespace utility
