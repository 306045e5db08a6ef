#include "platform/base/object/MemoryException.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CMemoryException, CException)

CString CMemoryException::GetErrorText() const
{
    return u"Out of memory.";
}

void AfxThrowMemoryException()
{
    throw new CMemoryException;
}

} // namespace utility
