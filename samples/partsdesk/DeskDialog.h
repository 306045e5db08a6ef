#pragma once

#include "platform/ui/Dialog.h"

namespace partsdesk
{

/// A dialog that opens where it was closed.
class CDeskDialog : public utility::CDialog
{
public:
    /// The place is kept in the settings, below `key` and "Window".
    CDeskDialog(utility::UINT templateId, const utility::CString& key, utility::CWnd* parent);

    bool DestroyWindow() override;

protected:
    bool OnInitDialog() override;

private:
    utility::CString GetPlaceKey() const { return m_Key + u"\\Window"; }

    utility::CString m_Key;
};

} // namespace partsdesk
