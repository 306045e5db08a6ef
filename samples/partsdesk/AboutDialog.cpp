#include "AboutDialog.h"

#include "frame/Application.h"
#include "platform/ui/DialogItems.h"

#include "Ids.h"

using namespace utility;

namespace partsdesk
{

CAboutDialog::CAboutDialog(CWnd* parent) : CBaseDialog(DIALOG_ABOUT, parent) {}

bool CAboutDialog::OnInitDialog()
{
    CBaseDialog::OnInitDialog();
    SetDlgItemText(*this, IDC_VERSION,
                   CApplication::GetName() + u" " + CApplication::GetVersion() +
                       u"\nA browser for databases of parts.\n\n" + CApplication::GetCopyright());
    return true;
}

} // namespace partsdesk
