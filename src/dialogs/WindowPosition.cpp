#include "dialogs/WindowPosition.h"

#include "dialogs/WindowGeometry.h"
#include "dialogs/WindowPlacement.h"
#include "frame/AppInstance.h"
#include "platform/base/String.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/InputState.h"
#include "settings/AppRegistry.h"

namespace utility
{

namespace
{

constexpr char16_t TOP[] = u"Top";
constexpr char16_t BOTTOM[] = u"Bottom";
constexpr char16_t LEFT[] = u"Left";
constexpr char16_t RIGHT[] = u"Right";
constexpr char16_t MAXIMISED[] = u"Maximised";

CAppRegistry OpenForReading(const CString& key)
{
    return CAppRegistry(CAppInstance::GetKey(key, true));
}

CAppRegistry OpenForWriting(const CString& key)
{
    return CAppRegistry(CAppInstance::GetKey(key, false));
}

void SavePlace(const CRect& place, const CString& key)
{
    CAppRegistry settings = OpenForWriting(key);
    settings.SetValue(TOP, place.top);
    settings.SetValue(BOTTOM, place.bottom);
    settings.SetValue(LEFT, place.left);
    settings.SetValue(RIGHT, place.right);
}

} // namespace

bool GetWindowPosition(const CString& key, CRect& place)
{
    CAppRegistry settings = OpenForReading(key);
    CRect kept;
    const bool isWhole = settings.GetValue(TOP, kept.top) &&
                         settings.GetValue(BOTTOM, kept.bottom) &&
                         settings.GetValue(LEFT, kept.left) && settings.GetValue(RIGHT, kept.right);
    if (!isWhole || !IsPlaceOnScreen(kept, GetVirtualScreen()))
        return false;
    place = kept;
    return true;
}

void SaveWindowPosition(const CWnd& window, const CString& key)
{
    if (!IsWindowMaximised(window))
        SavePlace(window.GetWindowRect(), key);
}

bool GetWindowMaximised(const CString& key)
{
    bool isMaximised = false;
    OpenForReading(key).GetValue(MAXIMISED, isMaximised);
    return isMaximised;
}

void SaveWindowMaximised(const CWnd& window, const CString& key)
{
    SaveWindowMaximised(IsWindowMaximised(window), key);
}

void SaveWindowMaximised(bool isMaximised, const CString& key)
{
    OpenForWriting(key).SetValue(MAXIMISED, isMaximised);
}

void SnapSavedWindowPositionToCursor(const CString& key)
{
    CRect place;
    if (!GetWindowPosition(key, place))
        return;
    const CPoint pointer = GetCursorPos();
    SavePlace({CPoint(pointer.x, pointer.y - place.Height()), place.Size()}, key);
}

} // namespace utility
