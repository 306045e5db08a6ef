#include "Host.h"

#include "platform/system/Terminal.h"

#include "Command.h"
#include "Interrupt.h"
#include "ToolOutput.h"

#include <iostream>

namespace utility
{

namespace
{

void TellBox(const CString& line)
{
    CString text = line;
    PrintError(text.TrimRight());
}

} // namespace

CHost::CHost(const CCommandCall& call)
{
    const EBoxPolicy policy = call.SaysYes() ? EBoxPolicy::SayYes : EBoxPolicy::ChangeNothing;
    if (IsTerminal(EStandardStream::Error))
    {
        std::istream* answers = &m_NoAnswers;
        if (IsTerminal(EStandardStream::Input))
            answers = &std::cin;
        m_UserInterface = MakeTerminalUserInterface(*answers, std::cerr, policy, IsInterrupted);
    }
    else
    {
        m_UserInterface = MakeHeadlessUserInterface(policy);
    }
    SetUserInterface(m_UserInterface.get());
    SetBoxTrace(TellBox);
}

CHost::~CHost()
{
    SetBoxTrace(nullptr);
    SetUserInterface(nullptr);
}

} // namespace utility
