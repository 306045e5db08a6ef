#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/system/file/StdioFile.h"

#include <memory>
#include <string_view>

namespace utility
{

/// The text file: reads and writes ASCII, code-page text, UTF-8 and UTF-16, and finds out what it
/// reads.
///
///     reading   FF FE makes any file UTF-16; a first EF makes one that was not asked for as UTF-16
///               UTF-8; else the code page. Only LF ends a line; one CR before it, or before the
///               end of the file, is cut.
///     writing   every line end becomes CR LF; a new file gets its mark with the first text. What
///               is held back goes out with Seek, Flush and Close; a failed write is a
///               `CFileException` of whichever call met it.
///
/// One thread, but for the escapes of RTF mode: files in that mode share their form, and the first
/// one closed takes it from the others.
class UTILITY_CORE_API CStdioFileEx : public CStdioFile
{
public:
    // Added to the open modes of `CFile`
    static constexpr UINT modeWriteUnicode = 0x00200000; // UTF-16 little endian, with a mark
    static constexpr UINT modeWriteUtf8 = 0x00400000;    // UTF-8, with a mark
    static constexpr UINT modeAscii = 0x00800000;        // ASCII, with escapes for the rest
    // Written as UTF-8, read in the code page; no mark
    static constexpr UINT modeMultiByteUtf8 = 0x01000000;
    static constexpr UINT modeWriteBuffer = 0x02000000; // accepted; writing is buffered either way
    static constexpr UINT modeReadUTF8 = 0x04000000;    // UTF-8 both ways, no mark
    static constexpr UINT modeRtf = 0x08000000; // ASCII with RTF escapes, undone while reading

    CStdioFileEx() = default;
    CStdioFileEx(const char16_t* path, UINT flags);
    ~CStdioFileEx() override;

    // Mode
    /// For every later Open, and the open file.
    void AddFlags(UINT flags);
    bool IsFileUnicodeText() const { return m_IsUnicode; }
    /// Writes the mark of a new file at once; nothing elsewhere.
    void WriteBOM();
    /// What stands in front of the number of an escape; "U+" at first.
    CString GetAsciiCodePointLeadString() const { return m_LeadString; }
    void SetAsciiCodePointLeadString(const CString& lead) { m_LeadString = lead; }

    // File
    [[nodiscard]] bool Open(const char16_t* path, UINT flags,
                            CFileException* error = nullptr) override;
    std::uint64_t Seek(std::int64_t offset, UINT from) override;
    void Flush() override;
    void Close() override;
    void Abort() override;
    bool ReadString(CString& line) override;
    char16_t* ReadString(char16_t* line, UINT capacity) override;
    void WriteString(const char16_t* text) override;
    /// Bytes as they stand, behind what was written before.
    void Write(const void* bytes, UINT count) override;
    std::uint64_t GetPosition() const override;
    std::uint64_t GetLength() const override;
    /// The position in characters of the file's unit, a mark counted.
    std::uint64_t GetCharCount() const;
    /// Writes the lines of another file, each with a line end; false if it cannot be opened.
    bool AddFile(const CString& path);

    static bool IsFileUnicode(const CString& path);
    static UINT GetCurrentLocaleCodePage();
    /// The name's id of one of the first four modes; IDS_ENCODING_ASCII for anything else.
    static UINT GetModeStringId(UINT mode);

    // Conversions: TextConversions.cpp. Sizes count the terminator. `Get...` cuts at whole
    // characters, always terminates and returns the length without the terminator; `GetNew...`
    // converts into the given buffer, or into a block of its own, owned by `holder`, if that is too
    // small.
    static int GetAsciiStringFromUnicodeString(const char16_t* text, char* buffer, int size,
                                               const CString& lead);
    static int GetMultiByteStringFromUnicodeString(const char16_t* text, char* buffer, int size,
                                                   UINT codePage);
    static int GetUnicodeStringFromMultiByteString(const char* text, char16_t* buffer, int size,
                                                   UINT codePage);
    static int GetRequiredAsciiLengthForUnicodeString(const char16_t* text, const CString& lead);
    static int GetRequiredMultiByteLengthForUnicodeString(const char16_t* text, UINT codePage);
    static int GetRequiredUnicodeLengthFromMultiByteString(const char* text, UINT codePage);
    static char* GetNewAsciiStringFromUnicodeString(const char16_t* text, char* buffer, int size,
                                                    std::unique_ptr<char[]>& holder,
                                                    const CString& lead);
    static char* GetNewMultiByteStringFromUnicodeString(const char16_t* text, char* buffer,
                                                        int size, std::unique_ptr<char[]>& holder,
                                                        UINT codePage);
    static char16_t* GetNewUnicodeStringFromMultiByteString(const char* text, char16_t* buffer,
                                                            int size,
                                                            std::unique_ptr<char16_t[]>& holder,
                                                            UINT codePage);

protected:
    /// Bytes of the mark that reading stepped over at the file's start.
    std::uint64_t GetMarkLength() const { return m_MarkLength; }
    /// Bytes that the text takes in the file being read, as far as it came whole from there.
    std::uint64_t GetEncodedLength(std::u16string_view text) const;

private:
    UINT ProcessFlags(UINT flags);
    UINT GetCodePage() const;
    bool DecodesUtf8() const;
    void EndRtf();

    // StdioFileExRead.cpp
    void ReadInit();
    void StepOverMark();
    void DecodeUnicode(std::string_view bytes, CString& line) const;
    void DecodeMultiByte(std::string_view bytes, CString& line) const;

    // StdioFileExWrite.cpp
    void WriteInit();
    void WriteMark();
    std::u16string_view ExpandLineEnds(std::u16string_view text);
    void WriteUnicodeLine(std::u16string_view line);
    void WriteAsciiLine(std::u16string_view line);
    void WriteMultiByteLine(std::u16string_view line);
    void WriteToFile(const void* bytes, std::size_t count);
    bool GrowWriteBuffer(std::size_t count);
    void WriteHeldBytes();
    void FreeBuffers();

    UINT m_Flags = 0;
    bool m_IsUnicode = false;
    int m_CodePage = -1;            // -1: the default one
    bool m_WriteUnicodeBOM = false; // a mark is due; later, that other than ASCII was written
    bool m_AtStart = false;
    std::size_t m_WriteCapacity = 0; // bytes
    std::unique_ptr<BYTE[]> m_WriteBuffer;
    std::size_t m_WriteUsed = 0;
    std::unique_ptr<char16_t[]> m_LineBuffer;
    std::size_t m_LineCapacity = 0; // code units
    CString m_LeadString = u"U+";
    UINT m_AddedFlags = 0; // by AddFlags
    std::uint64_t m_MarkLength = 0;
};

} // namespace utility
