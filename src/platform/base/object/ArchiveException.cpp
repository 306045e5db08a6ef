#include "platform/base/object/ArchiveException.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CArchiveException, CException)

CString CArchiveException::GetErrorText() const
{
    switch (m_cause)
    {
    case none:
        return CString();
    case readOnly:
        return u"The archive is open for reading only.";
    case endOfFile:
        return u"The archive ends too early.";
    case writeOnly:
        return u"The archive is open for writing only.";
    default:
        return u"The archive has a form that is not known.";
    }
}

void AfxThrowArchiveException(int cause)
{
    throw new CArchiveException(cause);
}

} // namespace utility
