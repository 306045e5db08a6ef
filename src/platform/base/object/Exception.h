#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"

namespace utility
{

/// Root of what the vocabulary throws, always as a pointer to a new object: `catch (CFileException*
/// exception)`.
///
/// Who catches one and does not throw it on calls `Delete`, best through a `CExceptionGuard`.
class UTILITY_CORE_API CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    CException() = default;

    /// Ends the object.
    void Delete();

    /// The words for the user; empty if there are none.
    virtual CString GetErrorText() const;

    /// The words cut to `capacity` less one; FALSE, and an empty text, if there are none.
    BOOL GetErrorMessage(char16_t* buffer, UINT capacity) const;

    /// Shows the words in a box of that type, or without words the text of `fallbackId`; the answer
    /// as `ID...`.
    int ReportError(UINT type = 0, UINT fallbackId = 0) const;
};

/// Deletes a caught exception at the end of its scope.
///
///     catch (CException* exception)
///     {
///         const CExceptionGuard guard(exception);
class UTILITY_CORE_API CExceptionGuard
{
public:
    explicit CExceptionGuard(CException* exception) : m_Exception(exception) {}
    ~CExceptionGuard()
    {
        if (m_Exception)
            m_Exception->Delete();
    }
    CExceptionGuard(const CExceptionGuard&) = delete;
    CExceptionGuard& operator=(const CExceptionGuard&) = delete;

private:
    CException* m_Exception;
};

} // namespace utility
