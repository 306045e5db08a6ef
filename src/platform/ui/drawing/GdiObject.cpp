#include "platform/ui/drawing/GdiObject.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CGdiObject, CObject)

} // namespace utility
