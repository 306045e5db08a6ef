#include "support/ScriptedUser.h"

#include "platform/system/window/MessageBoxCodes.h"

#include <gtest/gtest.h>

namespace utility
{

CScriptedUser::CScriptedUser() : m_Previous(SetUserInterface(this)) {}

CScriptedUser::~CScriptedUser()
{
    SetUserInterface(m_Previous);
}

void CScriptedUser::WillAnswer(int answer)
{
    const std::lock_guard lock(m_Lock);
    m_Answers.push_back(answer);
}

std::vector<CBoxRequest> CScriptedUser::GetBoxes() const
{
    const std::lock_guard lock(m_Lock);
    return m_Boxes;
}

CString CScriptedUser::GetOnlyText() const
{
    const std::vector<CBoxRequest> boxes = GetBoxes();
    EXPECT_EQ(boxes.size(), 1U);
    return boxes.empty() ? CString() : boxes.front().m_Text;
}

int CScriptedUser::ShowBox(const CBoxRequest& request)
{
    const std::lock_guard lock(m_Lock);
    m_Boxes.push_back(request);
    return NextAnswer();
}

int CScriptedUser::ShowWarnings(const CWarningsRequest& request)
{
    const std::lock_guard lock(m_Lock);
    m_Warnings.push_back(request);
    return NextAnswer();
}

bool CScriptedUser::SetClipboardText(const CString& text)
{
    m_Clipboard.assign(1, text);
    return true;
}

bool CScriptedUser::GetClipboardText(CString& text)
{
    if (!m_Clipboard.empty())
        text = m_Clipboard.front();
    return !m_Clipboard.empty();
}

int CScriptedUser::NextAnswer()
{
    if (m_Answers.empty())
        return IDOK;
    const int answer = m_Answers.front();
    m_Answers.pop_front();
    return answer;
}

} // namespace utility
