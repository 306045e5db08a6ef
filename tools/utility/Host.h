#pragma once

#include "platform/system/window/UserInterface.h"

#include <sstream>

namespace utility
{

class CCommandCall;

/// What the library asks of its host program, for the length of one command.
///
/// Questions and progress go to the error output. Without a terminal there nobody is asked: a
/// question is answered so that nothing changes, or by yes with --yes, and a line tells so.
class CHost
{
public:
    explicit CHost(const CCommandCall& call);
    ~CHost();
    CHost(const CHost&) = delete;
    CHost& operator=(const CHost&) = delete;

private:
    std::istringstream m_NoAnswers; // stands for an input that is data and no person
    std::unique_ptr<IUserInterface> m_UserInterface;
};

} // namespace utility
