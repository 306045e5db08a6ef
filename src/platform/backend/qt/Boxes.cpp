#include "platform/backend/qt/Boxes.h"

#include "platform/backend/headless/BoxButtons.h"
#include "platform/backend/qt/Guard.h"
#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WinApp.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "resources/StringIds.h"

#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>

#include <map>

namespace utility
{

namespace
{

QMessageBox::Icon IconOf(UINT type)
{
    switch (type & MB_ICONMASK)
    {
    case MB_ICONHAND:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONEXCLAMATION:
        return QMessageBox::Warning;
    case MB_ICONASTERISK:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// 0, 1, 2: the button that Enter presses.
std::size_t DefaultButtonOf(UINT type)
{
    return (type / MB_DEFBUTTON2) & 3;
}

/// A box whose buttons answer by their numbers; further ones act and leave it open.
class CBox
{
public:
    CBox(const CWnd* owner, const CString& text, const CString& caption, UINT type);

    void AddAction(const CString& label, std::function<void()> act);
    int Ask();

private:
    void AddAnswers(UINT type);

    QMessageBox m_Box;
    std::map<const QAbstractButton*, int> m_Answers;
    int m_Answer = 0;
    bool m_IsOver = false;
};

QWidget* FindOwner(const CWnd* owner)
{
    QWidget* widget = owner ? WidgetOf(*owner) : nullptr;
    return widget ? widget->window() : nullptr;
}

CBox::CBox(const CWnd* owner, const CString& text, const CString& caption, UINT type)
    : m_Box(IconOf(type), ToQString(caption), ToQString(text), QMessageBox::NoButton,
            FindOwner(owner))
{
    m_Box.setTextFormat(Qt::PlainText); // "<None>" shows as typed
    m_Box.setModal(true);
    AddAnswers(type);
    QObject::connect(&m_Box, &QDialog::finished, &m_Box,
                     [this]
                     {
                         const auto answer = m_Answers.find(m_Box.clickedButton());
                         m_Answer = answer == m_Answers.end() ? 0 : answer->second;
                         m_IsOver = true;
                         GetMessageLoop().WakeUp();
                     });
}

/// Escape and the frame's close button cancel, or close a box with a single button; elsewhere they
/// do nothing, since no answer is as good as none.
void CBox::AddAnswers(UINT type)
{
    const std::span<const CBoxButton> buttons = GetBoxButtons(type);
    for (const CBoxButton& button : buttons)
    {
        const bool isCancel = button.m_Answer == IDCANCEL;
        QPushButton* added =
            m_Box.addButton(ToQString(CString(button.m_Word.data())),
                            isCancel ? QMessageBox::RejectRole : QMessageBox::AcceptRole);
        m_Answers[added] = button.m_Answer;
        if (isCancel || buttons.size() == 1)
            m_Box.setEscapeButton(added);
        if (m_Answers.size() == DefaultButtonOf(type) + 1)
            m_Box.setDefaultButton(added);
    }
}

void CBox::AddAction(const CString& label, std::function<void()> act)
{
    QPushButton* button = m_Box.addButton(ToQString(label), QMessageBox::HelpRole);
    button->disconnect(m_Box.findChild<QDialogButtonBox*>()); // the box stays
    QObject::connect(button, &QPushButton::clicked, button,
                     [act = std::move(act)] { CallGuarded(act); });
}

int CBox::Ask()
{
    constexpr DWORD FOR_EVER = 0xFFFFFFFF;
    m_Box.show();
    GetMessageLoop().RunUntil([this] { return m_IsOver; }, FOR_EVER);
    return m_Answer;
}

CString LoadText(UINT id)
{
    CString text;
    text.LoadString(id);
    return text;
}

} // namespace

int ShowBoxOnScreen(const CBoxRequest& request)
{
    CBox box(request.m_Owner, request.m_Text, request.m_Caption, request.m_Type);
    if (request.m_HelpId != 0)
    {
        const HWND owner = request.m_Owner ? request.m_Owner->GetSafeHwnd() : nullptr;
        box.AddAction(LoadText(IDS_HELP_BUTTON),
                      [owner, id = request.m_HelpId]
                      {
                          if (const CWnd* target = CWnd::FromHandle(owner))
                              target->SendMessage(WM_HELP, id);
                      });
    }
    return box.Ask();
}

int ShowWarningsOnScreen(const CWarningsRequest& request)
{
    UINT type = request.m_ShowCancel ? MB_OKCANCEL : MB_OK;
    if (request.m_AsQuestion)
        type = request.m_ShowCancel ? MB_YESNOCANCEL : MB_YESNO;
    CBox box(request.m_Parent, request.m_Text, AfxGetAppName(), type | MB_ICONEXCLAMATION);
    if (request.m_ReportFn)
        box.AddAction(LoadText(IDS_REPORT_BUTTON),
                      [&request] { request.m_ReportFn(request.m_ReportArg); });
    const int answer = box.Ask();
    return answer == IDYES ? IDOK : answer;
}

} // namespace utility
