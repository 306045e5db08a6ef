#include "platform/backend/headless/TerminalInterface.h"

#include "platform/backend/headless/BoxButtons.h"
#include "platform/base/CaseFold.h"
#include "platform/base/Encoding.h"

#include <istream>
#include <ostream>

namespace utility
{

namespace
{

constexpr int BAR_WIDTH = 30;

/// "[Yes/No/Cancel] ", with the answer of an empty line behind it.
std::string PromptFor(const CBoxRequest& request, const CBoxButton& preset)
{
    std::string prompt = "[";
    for (const CBoxButton& button : GetBoxButtons(request.m_Type))
        prompt += (prompt.size() > 1 ? "/" : "") + ToUtf8(button.m_Word);
    return prompt + "] (" + ToUtf8(preset.m_Word) + "): ";
}

/// The button that a typed line names, or null.
const CBoxButton* FindButton(UINT type, CString line)
{
    line.Trim();
    for (const CBoxButton& button : GetBoxButtons(type))
    {
        const bool isFirstLetter = line.GetLength() == 1;
        if (EqualNoCase(line.View(), isFirstLetter ? button.m_Word.substr(0, 1) : button.m_Word))
            return &button;
    }
    return nullptr;
}

} // namespace

std::unique_ptr<IUserInterface> MakeTerminalUserInterface(std::istream& input, std::ostream& output,
                                                          EBoxPolicy policy,
                                                          std::function<bool()> isCancelled)
{
    return std::make_unique<CTerminalInterface>(input, output, policy, std::move(isCancelled));
}

CTerminalInterface::CTerminalInterface(std::istream& input, std::ostream& output, EBoxPolicy policy,
                                       std::function<bool()> isCancelled)
    : CHeadlessUserInterface(policy),
      m_Input(input),
      m_Output(output),
      m_IsCancelled(std::move(isCancelled))
{
}

int CTerminalInterface::ShowBox(const CBoxRequest& request)
{
    const std::lock_guard lock(m_Lock);
    WriteProgress({}); // the bar makes room; its next step draws it again
    if (!request.m_Caption.IsEmpty())
        m_Output << ToUtf8(request.m_Caption.View()) << ": ";
    m_Output << ToUtf8(request.m_Text.View()) << std::endl;
    return Ask(request);
}

int CTerminalInterface::Ask(const CBoxRequest& request)
{
    const CBoxButton& preset = AnswerByPolicy(request.m_Type, GetPolicy());
    if (GetBoxButtons(request.m_Type).size() == 1)
        return preset.m_Answer;

    std::string line;
    while (GetPolicy() != EBoxPolicy::SayYes)
    {
        m_Output << PromptFor(request, preset) << std::flush;
        if (!std::getline(m_Input, line))
        {
            m_Output << std::endl; // nobody has ended the line of the question
            break;
        }
        if (line.empty())
            return preset.m_Answer;
        if (const CBoxButton* button = FindButton(request.m_Type, FromUtf8(line)))
            return button->m_Answer;
    }
    TraceAnswer(request, preset);
    return preset.m_Answer;
}

void CTerminalInterface::BeginProgress(const CString& title, std::int64_t total)
{
    const std::lock_guard lock(m_Lock);
    m_Title = ToUtf8(title.View());
    m_Total = total;
}

void CTerminalInterface::StepProgress(std::int64_t done)
{
    const std::lock_guard lock(m_Lock);
    if (m_Total <= 0)
    {
        WriteProgress(m_Title + " " + std::to_string(done));
        return;
    }
    const std::int64_t inside = std::clamp<std::int64_t>(done, 0, m_Total);
    const double share = static_cast<double>(inside) / static_cast<double>(m_Total);
    std::string bar(static_cast<std::size_t>(share * BAR_WIDTH), '#');
    bar.resize(BAR_WIDTH, '.');
    WriteProgress(m_Title + " [" + bar + "] " + std::to_string(static_cast<int>(share * 100)) +
                  " %");
}

void CTerminalInterface::EndProgress()
{
    const std::lock_guard lock(m_Lock);
    if (!m_Shown.empty())
        m_Output << std::endl;
    m_Shown.clear();
}

bool CTerminalInterface::IsProgressCancelled()
{
    return m_IsCancelled && m_IsCancelled();
}

/// Replaces the line that stands in the terminal; a line that stands already costs nothing.
void CTerminalInterface::WriteProgress(const std::string& line)
{
    if (line == m_Shown)
        return;
    m_Output << '\r' << line;
    if (m_Shown.size() > line.size())
    {
        const std::string rest(m_Shown.size() - line.size(), ' ');
        m_Output << rest << '\r' << line;
    }
    m_Output << std::flush;
    m_Shown = line;
}

} // namespace utility
