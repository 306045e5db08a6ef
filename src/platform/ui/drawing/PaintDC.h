#pragma once

#include "platform/ui/drawing/DC.h"

namespace utility
{

class CWnd;

/// Draws a window in answer to WM_PAINT; outside of that it only measures.
class UTILITY_UI_API CPaintDC : public CDC
{
    DECLARE_DYNAMIC(CPaintDC)

public:
    explicit CPaintDC(CWnd* window);
};

} // namespace utility
