#include "files/SafeFile.h"

#include "files/FileTools.h"
#include "platform/base/LastError.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"

namespace utility
{

namespace
{

constexpr std::size_t PIECE = std::size_t(1) << 30U; // one write takes less than 2 GiB

/// The exception of a failed write leaves the system's code behind.
bool WriteBytes(const CString& path, std::string_view bytes)
{
    try
    {
        CFile file(path, CFile::modeWrite | CFile::shareExclusive);
        for (; !bytes.empty(); bytes.remove_prefix(std::min(PIECE, bytes.size())))
            file.Write(bytes.data(), static_cast<UINT>(std::min(PIECE, bytes.size())));
        file.Close();
        return true;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
}

} // namespace

CSafeFile::~CSafeFile()
{
    GiveUp();
}

bool CSafeFile::Begin(const CString& target)
{
    GiveUp();
    return IsFileWriteable(target) && MakeReplacement(target, m_Written, m_Replaced);
}

bool CSafeFile::Commit()
{
    if (m_Written.IsEmpty() || !ReplaceWholeFile(m_Written, m_Replaced))
    {
        GiveUp();
        return false;
    }
    m_Written.Empty();
    return true;
}

void CSafeFile::GiveUp()
{
    if (m_Written.IsEmpty())
        return;
    const CLastErrorKeeper reason; // why it is given up matters more than how that goes
    ForceDeleteFile(m_Written);
    m_Written.Empty();
}

bool CSafeFile::Write(const CString& target, std::string_view bytes)
{
    CSafeFile file;
    return file.Begin(target) && WriteBytes(file.GetWrittenPath(), bytes) && file.Commit();
}

} // namespace utility
