#include "utility/db/DbTrace.h"

#include "frame/AppLog.h"

namespace utility
{

const CAppLogContext& DbContext()
{
    static const CAppLogContext context(u"Db", 0);
    return context;
}

} // namespace utility
