#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

class CBitmap;

/// A picture in the middle of the screen while the program starts, with a line that tells what it
/// does.
///
/// It goes after a while, at a click or a key, or when the object goes. User-interface thread; a
/// start-up that does not handle messages calls `SetStatus`, which paints at once.
class UTILITY_UI_API CSplash : public CWnd
{
    DECLARE_DYNAMIC(CSplash)

public:
    /// `picture` stays the caller's, who keeps it as long as the splash is shown. It stays for so
    /// many milliseconds, for ever with 0. False if there is no picture.
    bool Show(CBitmap& picture, UINT milliseconds, CWnd* parent = nullptr);
    void SetStatus(const CString& text);
    const CString& GetStatus() const { return m_Status; }

protected:
    const CMessageMap* GetMessageMap() const override;

private:
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnTimer(WPARAM id, LPARAM);
    LRESULT OnDismiss(WPARAM, LPARAM);

    CBitmap* m_Picture = nullptr;
    CString m_Status;
};

} // namespace utility
