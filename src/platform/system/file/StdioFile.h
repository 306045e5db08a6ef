#pragma once

#include "platform/system/file/File.h"
#include "platform/system/file/ReadBuffer.h"

#include <string>

namespace utility
{

/// A file of lines in the default code page, buffered both ways.
///
/// Opened with `typeText`, a line feed in `WriteString` becomes CR LF on every system, and a CR
/// before a line feed is dropped by `ReadString`. `Read` and `Write` move bytes as they stand.
/// Failures come as in `CFile`; those of a held write are met by whichever call writes the buffer
/// out. Not closed by the caller: what is held is written, silently.
class UTILITY_CORE_API CStdioFile : public CFile
{
public:
    CStdioFile();
    CStdioFile(const char16_t* path, UINT flags);
    ~CStdioFile() override;

    [[nodiscard]] bool Open(const char16_t* path, UINT flags,
                            CFileException* error = nullptr) override;
    void Close() override;
    void Abort() override;

    UINT Read(void* bytes, UINT count) override;
    void Write(const void* bytes, UINT count) override;
    /// Hands what is held to the system; does not wait for the disk.
    void Flush() override;

    std::uint64_t Seek(std::int64_t offset, UINT from) override;
    std::uint64_t GetPosition() const override;
    std::uint64_t GetLength() const override;
    void SetLength(std::uint64_t length) override;

    /// The next line without its line end; false, and an empty text, at the end of the file.
    virtual bool ReadString(CString& line);
    /// At most `capacity` - 1 units of the line and a terminator; the rest of the line is left for
    /// the next call of either form, though the place in the file is behind it already. Null at the
    /// end of the file.
    virtual char16_t* ReadString(char16_t* line, UINT capacity);
    virtual void WriteString(const char16_t* text);

protected:
    /// The bytes up to the next line feed, without it, in units of 1 or 2 bytes; false at the end
    /// of the file. Valid until the next call. `ended` tells whether there was a line feed.
    bool ReadRawLine(std::size_t unitSize, std::string_view& line, bool& ended);
    /// Takes what a read into a buffer left of its line; false if nothing is left.
    bool TakeRestOfLine(CString& line);
    /// Gives up what was read ahead, so that a write lands where reading stood.
    void StandForWriting();

private:
    void WriteHeld();
    void DropAhead();

    CReadBuffer m_Ahead;
    CString m_Rest; // of a line, from m_RestStart on
    int m_RestStart = 0;
    std::string m_Held; // written, but not handed to the system yet
    bool m_IsText = false;
};

} // namespace utility
