#pragma once

#include "dialogs/ResizeDialog.h"
#include "platform/ui/controls/ListBox.h"

#include "PartsRows.h"

namespace partsdesk
{

/// All values of one part.
class CPartDialog : public utility::CResizeDialog
{
public:
    /// `pitch` is that of pins on a board, in millimetres.
    CPartDialog(std::vector<CPartValue> part, double pitch, utility::CWnd* parent);

protected:
    bool OnInitDialog() override;
    void DoDataExchange(utility::CDataExchange* exchange) override;

private:
    const utility::CMessageMap* GetMessageMap() const override;
    void OnCopy();
    utility::CString FormatLines() const;

    std::vector<CPartValue> m_Part;
    double m_Pitch;
    utility::CListBox m_Values;
};

} // namespace partsdesk
