#pragma once

#include "platform/ui/Dialog.h"

namespace partsdesk
{

/// Says what the program is.
class CAboutDialog : public utility::CDialog
{
public:
    explicit CAboutDialog(utility::CWnd* parent);

protected:
    bool OnInitDialog() override;
};

} // namespace partsdesk
