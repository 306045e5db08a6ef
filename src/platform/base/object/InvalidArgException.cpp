#include "platform/base/object/InvalidArgException.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CInvalidArgException, CException)

CString CInvalidArgException::GetErrorText() const
{
    return u"An invalid argument was encountered.";
}

void AfxThrowInvalidArgException()
{
    throw new CInvalidArgException;
}

} // namespace utility
