#pragma once

#include "dialogs/BaseDialog.h"

namespace partsdesk
{

/// Says what the program is.
class CAboutDialog : public utility::CBaseDialog
{
public:
    explicit CAboutDialog(utility::CWnd* parent);

protected:
    bool OnInitDialog() override;
};

} // namespace partsdesk
