#include "files/backup/BackupContent.h"

#include "platform/base/LastError.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"

#include <vector>

namespace utility
{

namespace
{

constexpr std::size_t PIECE = std::size_t(1) << 20U; // bytes at a time

void CopyBytes(CFile& source, CFile& target)
{
    std::vector<char> bytes(PIECE);
    for (;;)
    {
        const UINT count = source.Read(bytes.data(), static_cast<UINT>(bytes.size()));
        target.Write(bytes.data(), count);
        if (count < bytes.size())
            return;
    }
}

} // namespace

std::unique_ptr<CFile> CopyContent(const CString& from, const CString& to, ECopyRights rights)
{
    CFile source;
    auto target = std::make_unique<CFile>();
    if (!source.Open(from, CFile::modeRead | CFile::shareDenyWrite) ||
        !target->Open(to, CFile::modeCreate | CFile::modeReadWrite | CFile::shareExclusive))
        return nullptr;
    try
    {
        // Before the first byte, so that no stranger reads what he may not. A disk without rights
        // is still a place for copies.
        if (rights == ECopyRights::OfSource)
            static_cast<void>(CopyFileRights(from, to));
        CopyBytes(source, *target);
        target->Flush();
        return target;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        const CLastErrorKeeper reason;
        DeleteFileW(to);
        return nullptr;
    }
}

} // namespace utility
