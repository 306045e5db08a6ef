#pragma once

#include "dialogs/ResizeDialog.h"
#include "platform/ui/controls/Edit.h"

namespace partsdesk
{

/// Shows the trace log of this program.
class CLogDialog : public utility::CResizeDialog
{
public:
    explicit CLogDialog(utility::CWnd* parent);

protected:
    bool OnInitDialog() override;
    void DoDataExchange(utility::CDataExchange* exchange) override;

private:
    const utility::CMessageMap* GetMessageMap() const override;
    void OnReadAgain();

    utility::CEdit m_Lines;
};

/// The last lines of the log, or a sentence that says why there are none.
utility::CString ReadLogLines();

} // namespace partsdesk
