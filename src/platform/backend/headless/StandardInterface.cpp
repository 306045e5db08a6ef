#include "platform/backend/headless/TerminalInterface.h"
#include "platform/system/Terminal.h"

#include <cstdio>
#include <ext/stdio_sync_filebuf.h>
#include <istream>
#include <ostream>

namespace utility
{

namespace
{

/// Unbuffered over a stream of the C library, so it shares what is typed with the host's own
/// reading.
using CSharedBuffer = __gnu_cxx::stdio_sync_filebuf<char>;

// Kept for good, as the interface in force may be. The streams of <iostream> would need their maker
// at load.

std::istream& Answers()
{
    static std::istream& answers = *new std::istream(new CSharedBuffer(stdin));
    return answers;
}

/// Stands for an input that is data and no person.
std::istream& NoAnswers()
{
    static std::istream& none = *new std::istream(nullptr);
    return none;
}

std::ostream& Questions()
{
    static std::ostream& questions = *new std::ostream(new CSharedBuffer(stderr));
    return questions;
}

} // namespace

std::unique_ptr<IUserInterface> MakeStandardUserInterface(EBoxPolicy policy,
                                                          std::function<bool()> isCancelled)
{
    if (!IsTerminal(EStandardStream::Error))
        return MakeHeadlessUserInterface(policy);
    std::istream& answers = IsTerminal(EStandardStream::Input) ? Answers() : NoAnswers();
    return MakeTerminalUserInterface(answers, Questions(), policy, std::move(isCancelled));
}

} // namespace utility
