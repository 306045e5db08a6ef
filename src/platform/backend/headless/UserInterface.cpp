#include "platform/backend/headless/UserInterface.h"

#include "platform/backend/headless/BoxButtons.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/Rect.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

namespace
{

constexpr int UNIT_WIDTH = 7; // pixels of one unit of text, where no font can be measured
constexpr int LAYOUT_DOTS_PER_INCH = 96;

constinit std::atomic<BoxTraceFunc> boxTrace = nullptr;

} // namespace

void SetBoxTrace(BoxTraceFunc trace)
{
    boxTrace.store(trace);
}

std::unique_ptr<IUserInterface> MakeHeadlessUserInterface(EBoxPolicy policy)
{
    return std::make_unique<CHeadlessUserInterface>(policy);
}

void CHeadlessUserInterface::TraceAnswer(const CBoxRequest& request, const CBoxButton& button)
{
    if (const BoxTraceFunc trace = boxTrace.load())
    {
        CString line;
        line.FormatMessage(u"Box \"%1\" is answered %2 without a user\n", request.m_Text,
                           button.m_Word);
        trace(line);
    }
}

int CHeadlessUserInterface::ShowBox(const CBoxRequest& request)
{
    const CBoxButton& button = AnswerByPolicy(request.m_Type, m_Policy);
    TraceAnswer(request, button);
    return button.m_Answer;
}

int CHeadlessUserInterface::ShowWarnings(const CWarningsRequest& request)
{
    const UINT type = request.m_AsQuestion ? MB_YESNO : MB_OK;
    const int answer =
        ShowBox({request.m_Parent, request.m_Text, CString(), type, request.m_HelpId});
    return answer == IDYES ? IDOK : answer;
}

int CHeadlessUserInterface::GetTextWidth(const CString& text, const CWnd*)
{
    return text.GetLength() * UNIT_WIDTH;
}

bool CHeadlessUserInterface::DoesTextFit(const CString& text, const CWnd& control)
{
    return GetTextWidth(text, &control) <= control.GetWindowRect().Width();
}

int CHeadlessUserInterface::GetDotsPerInch()
{
    return LAYOUT_DOTS_PER_INCH;
}

bool CHeadlessUserInterface::SetClipboardText(const CString& text)
{
    m_Clipboard = text;
    m_HasClipboard = true;
    return true;
}

bool CHeadlessUserInterface::GetClipboardText(CString& text)
{
    if (m_HasClipboard)
        text = m_Clipboard;
    return m_HasClipboard;
}

bool CHeadlessUserInterface::EditFile(const CString&)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return false;
}

bool CHeadlessUserInterface::OpenAddress(const CString&)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return false;
}

bool CHeadlessUserInterface::ShowHelpPage(const CString& address)
{
    return OpenAddress(address);
}

} // namespace utility
