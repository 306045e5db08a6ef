#include "PartDialog.h"

#include "frame/AppMessageBox.h"
#include "platform/base/NumberText.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/ui/DataExchange.h"
#include "platform/ui/DialogItems.h"
#include "text/Clipboard.h"

#include "DeskSettings.h"
#include "Ids.h"

using namespace utility;

namespace partsdesk
{

namespace
{

constexpr int NAME_WIDTH = 80; // of the first column, in quarters of a letter

} // namespace

CPartDialog::CPartDialog(std::vector<CPartValue> part, double pitch, CWnd* parent)
    : CResizeDialog(DIALOG_PART, parent),
      m_Part(std::move(part)),
      m_Pitch(pitch)
{
    SetSizeRegistryKey(u"Part");
}

const CMessageMap* CPartDialog::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {CommandRow<&CPartDialog::OnCopy>(ID_COPY_PART)};
    static const CMessageMap MAP{CResizeDialog::GetMessageMap(), ROWS};
    return &MAP;
}

void CPartDialog::DoDataExchange(CDataExchange* exchange)
{
    CResizeDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_VALUES, m_Values);
}

bool CPartDialog::OnInitDialog()
{
    CResizeDialog::OnInitDialog();
    m_Values.SetTabStops(NAME_WIDTH);
    for (const CPartValue& value : m_Part)
    {
        m_Values.AddString(value.m_Name + u"\t" + value.m_Text);
        if (value.m_Name.CompareNoCase(u"Pins") == 0)
            SetDlgItemText(*this, IDC_BODY,
                           u"As a body with two rows: " + BodyLength(_wtoi(value.m_Text), m_Pitch));
    }
    m_Values.SetCurSel(0);
    return true;
}

CString CPartDialog::FormatLines() const
{
    CString lines;
    for (const CPartValue& value : m_Part)
        lines += value.m_Name + u"\t" + value.m_Text + u"\r\n";
    return lines;
}

void CPartDialog::OnCopy()
{
    if (!StringToClipboard(FormatLines()))
        CAppMessageBox::Show(this, u"The clipboard cannot be had now.", MB_OK);
}

} // namespace partsdesk
