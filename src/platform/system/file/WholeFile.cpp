#include "platform/system/file/WholeFile.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"

namespace utility
{

bool ReadWholeFile(const CString& path, std::string& bytes, UINT share, std::uint64_t limit)
{
    try
    {
        CFile file;
        if (!file.Open(path, CFile::modeRead | share))
            return false;
        const std::uint64_t size = file.GetLength();
        if (size > limit)
        {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return false;
        }
        bytes.resize(static_cast<std::size_t>(size));
        bytes.resize(file.Read(bytes.data(), static_cast<UINT>(size)));
        return true;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
}

} // namespace utility
