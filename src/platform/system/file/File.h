#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <cstdint>
#include <memory>

namespace utility
{

class CFileException;
class CFileStatus;

/// A file of bytes, unbuffered: each call is one call of the system.
///
/// Paths are in classic form (see NativePath.h). Failures of an open file come as a
/// `CFileException` by pointer, those of `Open` by result; both write the thread's last error.
/// Closed, and silently so, at the object's end. One thread.
class UTILITY_CORE_API CFile
{
public:
    // Open modes; the bits from 0x200000 to 0x8000000 are free for the encoded text file.
    static constexpr UINT modeRead = 0x0;
    static constexpr UINT modeWrite = 0x1;
    static constexpr UINT modeReadWrite = 0x2;
    static constexpr UINT shareCompat = 0x0; // reading denies writers, writing denies everybody
    static constexpr UINT shareExclusive = 0x10;
    static constexpr UINT shareDenyWrite = 0x20;
    static constexpr UINT shareDenyRead = 0x30;
    static constexpr UINT shareDenyNone = 0x40;
    static constexpr UINT modeNoInherit = 0x80; // always so here
    static constexpr UINT modeCreate = 0x1000;  // and emptied, but with modeNoTruncate
    static constexpr UINT modeNoTruncate = 0x2000;
    static constexpr UINT typeText = 0x4000;
    static constexpr UINT typeBinary = 0x8000;

    // Places that Seek counts from
    static constexpr UINT begin = 0;
    static constexpr UINT current = 1;
    static constexpr UINT end = 2;

    CFile();
    /// Opens; a failure raises the exception.
    CFile(const char16_t* path, UINT flags);
    virtual ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// False, with the reason in `error` if given, when the file cannot be opened so.
    ///
    /// Share bits hold between all programs that open files by this class; others do not notice
    /// them. A conflict fails with ERROR_SHARING_VIOLATION, before anything is emptied.
    [[nodiscard]] virtual bool Open(const char16_t* path, UINT flags,
                                    CFileException* error = nullptr);
    virtual void Close();
    /// As Close, but nothing that fails is told.
    virtual void Abort();
    bool IsOpen() const;

    /// The bytes read; fewer than asked for only at the end of the file.
    virtual UINT Read(void* bytes, UINT count);
    /// All of them, or the exception.
    virtual void Write(const void* bytes, UINT count);
    /// Returns once all that was written stands on the disk.
    virtual void Flush();

    /// The new place from the file's start; one before the start raises the exception, one behind
    /// the end is allowed.
    virtual std::uint64_t Seek(std::int64_t offset, UINT from);
    std::uint64_t SeekToEnd() { return Seek(0, end); }
    void SeekToBegin() { Seek(0, begin); }
    virtual std::uint64_t GetPosition() const;
    virtual std::uint64_t GetLength() const;
    /// Cuts or lengthens with zeros, and stands at the new end.
    virtual void SetLength(std::uint64_t length);

    /// The whole path in classic form, and its last component.
    virtual CString GetFilePath() const;
    virtual CString GetFileName() const;
    bool GetStatus(CFileStatus& status) const;

    // Files by path, each false or the exception on failure, with the last error
    static bool GetStatus(const char16_t* path, CFileStatus& status);
    /// Times and attributes; a time of 0 is left alone. Raises the exception: of the attributes
    /// read-only alone can be changed, any other change fails with ERROR_NOT_SUPPORTED.
    static void SetStatus(const char16_t* path, const CFileStatus& status);
    /// Never replaces: ERROR_ALREADY_EXISTS. From one disk to another it copies, syncs, then
    /// deletes.
    static void Rename(const char16_t* oldPath, const char16_t* newPath);
    static void Remove(const char16_t* path);

private:
    struct CBackend; // platform/backend/posix/file/File.cpp
    CBackend& GetBackend() const;
    [[noreturn]] void ThrowSystemError() const;

    std::unique_ptr<CBackend> m_Backend;
};

} // namespace utility
