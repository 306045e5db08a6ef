#include "utility/output/RowProgress.h"

#include "platform/system/Clock.h"
#include "platform/system/window/UserInterface.h"

#include <algorithm>

namespace utility
{

CRowProgress::CRowProgress(const CString& title, std::int64_t total)
    : m_Title(title),
      m_Total(total),
      m_Start(GetTickCount())
{
    GetUserInterface().BeginProgress(title, total);
}

void CRowProgress::End()
{
    GetUserInterface().EndProgress();
}

// A bar has no room for a second number but its title.
void CRowProgress::Step(std::int64_t done, std::int64_t rows)
{
    CString title;
    title.Format(u"%s, %I64d rows/s", m_Title, RowsPerSecond(rows, GetTickCount() - m_Start));
    GetUserInterface().BeginProgress(rows > 0 ? title : m_Title, m_Total);
    GetUserInterface().StepProgress(done);
}

std::int64_t RowsPerSecond(std::int64_t rows, std::uint64_t milliseconds)
{
    return rows * 1000 / static_cast<std::int64_t>(std::max<std::uint64_t>(milliseconds, 1));
}

} // namespace utility
