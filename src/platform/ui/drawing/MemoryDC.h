#pragma once

#include "platform/ui/drawing/DC.h"

namespace utility
{

/// Draws into the bitmap that is selected into it; before that it only measures.
class UTILITY_UI_API CMemoryDC : public CDC
{
    DECLARE_DYNAMIC(CMemoryDC)

public:
    CMemoryDC();
};

} // namespace utility
