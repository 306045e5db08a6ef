#include "platform/db/LongBinary.h"

#include "platform/base/GlobalMemory.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CLongBinary, CObject)

CLongBinary::~CLongBinary()
{
    GlobalFree(m_hData);
}

} // namespace utility
