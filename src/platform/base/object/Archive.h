#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <cstddef>
#include <vector>

namespace utility
{

class CDocument;
class CFile;

/// Values to or from a file, one after the other, through a buffer; numbers stand with their low
/// byte first, whatever the machine.
///
/// An archive works in one direction. Taking from one that stores, and putting into one that loads,
/// raise `CArchiveException` (writeOnly, readOnly), as does a value that the file's end cuts off
/// (endOfFile); the file's own exceptions pass through. The file must outlive the archive and stays
/// open. The destructor flushes and tells no failure: who must know calls `Close`. One thread.
class UTILITY_CORE_API CArchive
{
public:
    static constexpr UINT store = 0;
    static constexpr UINT load = 1;

    CArchive(CFile* file, UINT mode, int bufferSize = 4096);
    ~CArchive();
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    bool IsLoading() const { return m_Loading; }
    bool IsStoring() const { return !m_Loading; }
    /// Null once closed.
    CFile* GetFile() const { return m_File; }

    CArchive& operator<<(std::int8_t value) { return Put(value); }
    CArchive& operator<<(BYTE value) { return Put(value); }
    CArchive& operator<<(std::int16_t value) { return Put(value); }
    CArchive& operator<<(WORD value) { return Put(value); }
    CArchive& operator<<(char16_t value) { return Put(value); }
    CArchive& operator<<(std::int32_t value) { return Put(value); }
    CArchive& operator<<(DWORD value) { return Put(value); }
    CArchive& operator<<(std::int64_t value) { return Put(value); }
    CArchive& operator<<(std::uint64_t value) { return Put(value); }
    CArchive& operator<<(double value);

    CArchive& operator>>(std::int8_t& value) { return Take(value); }
    CArchive& operator>>(BYTE& value) { return Take(value); }
    CArchive& operator>>(std::int16_t& value) { return Take(value); }
    CArchive& operator>>(WORD& value) { return Take(value); }
    CArchive& operator>>(char16_t& value) { return Take(value); }
    CArchive& operator>>(std::int32_t& value) { return Take(value); }
    CArchive& operator>>(DWORD& value) { return Take(value); }
    CArchive& operator>>(std::int64_t& value) { return Take(value); }
    CArchive& operator>>(std::uint64_t& value) { return Take(value); }
    CArchive& operator>>(double& value);

    /// The bytes read; fewer than asked for only at the end of the file.
    UINT Read(void* bytes, UINT count);
    void Write(const void* bytes, UINT count);

    /// One line of 16-bit units without its line end (LF, or CR LF); false at the end of the file.
    [[nodiscard]] bool ReadString(CString& text);
    /// The same into a buffer: at most `limit` units and a terminator; a line feed ends it and is
    /// kept. Null, and an empty text, at the end of the file.
    char16_t* ReadString(char16_t* buffer, UINT limit);
    /// The units, without a length or a terminator.
    void WriteString(const char16_t* text);

    /// Stored bytes go to the file; a loading archive puts the file back to where it has come.
    void Flush();
    /// Flushes and lets go of the file.
    void Close();

    CDocument* m_pDocument = nullptr; // whose contents these are; not owned

private:
    template <typename T>
    CArchive& Put(T value);
    template <typename T>
    CArchive& Take(T& value);
    void Demand(bool loading) const;
    bool Fill();
    bool TakeUnit(char16_t& unit);

    CFile* m_File;
    bool m_Loading;
    std::vector<BYTE> m_Buffer;
    std::size_t m_Next = 0; // first byte not yet taken, or first free one
    std::size_t m_End = 0;  // behind the last byte read ahead; 0 when storing
};

/// The length in front of a text, as short as it allows; `unicode` puts a mark for 16-bit units
/// before it.
///
///     length            bytes
///     0 to 254          n
///     to 65533          FF n n
///     to 4294967294     FF FF FF n n n n
///     above             FF FF FF FF FF FF FF and eight bytes
///     the mark          FF FE FF
UTILITY_CORE_API void AfxWriteStringLength(CArchive& archive, std::uint64_t length, bool unicode);

/// Reads it back; `unitSize` becomes 2 behind the mark, otherwise 1. The length is as the file
/// claims it: check it before use.
UTILITY_CORE_API std::uint64_t AfxReadStringLength(CArchive& archive, int& unitSize);

} // namespace utility
