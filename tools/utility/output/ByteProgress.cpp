#include "utility/output/ByteProgress.h"

#include "platform/system/window/UserInterface.h"

namespace utility
{

CByteProgress::CByteProgress(const CString& title, std::uint64_t total)
    : m_Title(title),
      m_Total(total)
{
}

void CByteProgress::Add(std::uint64_t bytes)
{
    m_Done += bytes;
    if (!m_IsShown)
        GetUserInterface().BeginProgress(m_Title, static_cast<std::int64_t>(m_Total));
    m_IsShown = true;
    GetUserInterface().StepProgress(static_cast<std::int64_t>(m_Done));
}

void CByteProgress::End()
{
    if (m_IsShown)
        GetUserInterface().EndProgress();
    m_IsShown = false;
}

} // namespace utility
