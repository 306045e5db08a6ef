#include "dialogs/DpiScale.h"

#include "platform/ui/BCGPVisualManager.h"
#include "platform/ui/SystemMetrics.h"

namespace utility
{

namespace
{

constexpr int USUAL_DOTS_PER_INCH = 96;
constexpr int TENTHS_OF_MM_PER_INCH = 254;

constinit bool isScaling = false;
constinit double unscaleFactor = 1.0;

} // namespace

void InitDpi()
{
    isScaling = CBCGPVisualManager::GetInstance()->GetScaleFactor() != 1.0;
    unscaleFactor = isScaling ? CalcUnscaleFactor(GetScreenDotsPerInch()) : 1.0;
}

bool IsDpiScaling()
{
    return isScaling;
}

int DpiUnScale(int value)
{
    return static_cast<int>(value * unscaleFactor + 0.5);
}

double CalcUnscaleFactor(int dotsPerInch)
{
    constexpr double NEARLY_ONE = 0.99;
    const double factor = static_cast<double>(USUAL_DOTS_PER_INCH) / dotsPerInch;
    return factor > NEARLY_ONE && factor < 1.0 ? 1.0 : factor;
}

int GetAssumedScreenWidthInMM()
{
    return MulDiv(GetSystemMetrics(SM_CXSCREEN), TENTHS_OF_MM_PER_INCH, USUAL_DOTS_PER_INCH * 10);
}

} // namespace utility
