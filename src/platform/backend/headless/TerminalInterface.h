#pragma once

#include "platform/backend/headless/UserInterface.h"

#include <mutex>

namespace utility
{

/// Asks in a terminal: boxes and a progress bar on one stream, answers from another.
///
/// A box with one button is shown and not waited for. An answer is a button's word or its first
/// letter, an empty line the policy's answer. Boxes of several threads come one after another.
class CTerminalInterface final : public CHeadlessUserInterface
{
public:
    CTerminalInterface(std::istream& input, std::ostream& output, EBoxPolicy policy,
                       std::function<bool()> isCancelled);

    int ShowBox(const CBoxRequest& request) override;

    void BeginProgress(const CString& title, std::int64_t total) override;
    void StepProgress(std::int64_t done) override;
    void EndProgress() override;
    bool IsProgressCancelled() override;

private:
    int Ask(const CBoxRequest& request);
    void WriteProgress(const std::string& line);

    std::istream& m_Input;
    std::ostream& m_Output;
    std::function<bool()> m_IsCancelled;

    std::mutex m_Lock; // held while a box or the bar is written, and until a box is answered
    std::string m_Title;
    std::int64_t m_Total = 0;
    std::string m_Shown; // the line that stands in the terminal
};

} // namespace utility
