#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Exception.h"

namespace utility
{

/// Why a file call failed: thrown and caught by pointer, or filled by `CFile::Open`.
class UTILITY_CORE_API CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)

public:
    static constexpr int none = 0;
    static constexpr int genericException = 1;
    static constexpr int fileNotFound = 2;
    static constexpr int badPath = 3;
    static constexpr int tooManyOpenFiles = 4;
    static constexpr int accessDenied = 5;
    static constexpr int invalidFile = 6;
    static constexpr int removeCurrentDir = 7;
    static constexpr int directoryFull = 8;
    static constexpr int badSeek = 9;
    static constexpr int hardIO = 10;
    static constexpr int sharingViolation = 11;
    static constexpr int lockViolation = 12;
    static constexpr int diskFull = 13;
    static constexpr int endOfFile = 14;

    explicit CFileException(int cause = none, LONG osError = -1,
                            const char16_t* fileName = nullptr);

    /// The system's words of the code; empty where there is no code.
    CString GetErrorText() const override;

    /// The cause that a classic code belongs to.
    static int OsErrorToException(LONG osError);

    /// Throws an exception for a classic code, and makes it the thread's last error.
    [[noreturn]] static void ThrowOsError(LONG osError, const char16_t* fileName = nullptr);

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

} // namespace utility
