#pragma once

#include "platform/ui/drawing/DC.h"

namespace utility
{

class CWnd;

/// Measures with a window's font at any time; it draws only while the window is being painted,
/// since the desktop keeps nothing of what is drawn in between.
///
/// Without a window, with the desktop's font.
class UTILITY_UI_API CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)

public:
    explicit CClientDC(CWnd* window);
};

} // namespace utility
