#include "support/FixedZone.h"

#include <stdlib.h>
#include <time.h>

namespace utility
{

CFixedZone::CFixedZone(const char* zone)
{
    const char* previous = getenv("TZ");
    m_Previous = previous ? previous : "UTC";
    setenv("TZ", zone, 1);
    tzset();
}

CFixedZone::~CFixedZone()
{
    setenv("TZ", m_Previous.c_str(), 1);
    tzset();
}

} // namespace utility
