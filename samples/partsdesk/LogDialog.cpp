#include "LogDialog.h"

#include "files/encoded/StdioFileEx.h"
#include "frame/AppLog.h"
#include "platform/system/file/NativePath.h"
#include "platform/ui/DataExchange.h"

#include "Ids.h"

#include <deque>

using namespace utility;

namespace partsdesk
{

namespace
{

constexpr std::size_t MOST_LINES = 2000; // what a field shows without delay

} // namespace

CString ReadLogLines()
{
    const CString path = CAppLog::GetLogPath();
    CStdioFileEx file;
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone | CStdioFileEx::modeReadUTF8))
        return u"No log is kept. The settings switch it on, from the next start.\r\n(" +
               NativePath(path) + u")";

    std::deque<CString> lines;
    for (CString line; file.ReadString(line);)
    {
        lines.push_back(line);
        if (lines.size() > MOST_LINES)
            lines.pop_front();
    }
    CString text;
    for (const CString& line : lines)
        text += line + u"\r\n";
    return text;
}

CLogDialog::CLogDialog(CWnd* parent) : CResizeDialog(DIALOG_LOG, parent)
{
    SetSizeRegistryKey(u"Log");
}

const CMessageMap* CLogDialog::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {CommandRow<&CLogDialog::OnReadAgain>(ID_READ_AGAIN)};
    static const CMessageMap MAP{CResizeDialog::GetMessageMap(), ROWS};
    return &MAP;
}

void CLogDialog::DoDataExchange(CDataExchange* exchange)
{
    CResizeDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LOG_TEXT, m_Lines);
}

bool CLogDialog::OnInitDialog()
{
    CResizeDialog::OnInitDialog();
    OnReadAgain();
    return true;
}

/// Also goes to the newest line.
void CLogDialog::OnReadAgain()
{
    m_Lines.SetWindowText(ReadLogLines());
    const int end = m_Lines.GetWindowTextLength();
    m_Lines.SetSel(end, end);
}

} // namespace partsdesk
