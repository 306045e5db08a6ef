#pragma once

#include "files/encoded/StdioFileEx.h"
#include "platform/base/collections/StringList.h"
#include "settings/form/FormChecksum.h"
#include "settings/form/FormToken.h"

namespace utility
{

/// Reads form text as a stream of tokens with an idea of the nesting level.
///
/// Line by line: memory follows the longest line and the longest token, not the file; levels and
/// lines are walked without recursion. Callers mostly use `CFormItem`, a cursor on one open form.
/// Malformed text gives no message: `Read` is false, `NextForm` an empty name, no number is 0. The
/// end of the file is sticky until `ReturnToMark`. Outputs keep their presets when a read is false.
///
///     text              tokens
///     (a(b)c)           ( a ( b ) c )
///     "a b" "c"d a"b"   a b, c, d, a"b"      a quote opens a token only at its start
///     "x\"y" "\\n"      x"y, \n              other escapes stay for ReadMultiLine
///     "two              twolines             joined without a line feed, unless asked for
///     lines"
///
/// One thread.
class UTILITY_CORE_API CFormImportReader : public CStdioFileEx
{
public:
    using CStdioFileEx::Open;
    using CStdioFileEx::Read;
    using CStdioFileEx::ReadString;

    /// Opens for reading, at level 0.
    [[nodiscard]] bool Open(const CString& path);

    // Structure
    /// Reads the first line and the first form's name; empty if the first token is no form start.
    CString FirstForm();
    /// Seeks a form of that name, in any case, among the forms from here to the end of the
    /// enclosing one, inner levels too; looks at `limit` forms, or all for -1. When the enclosing
    /// form ends first, its bracket is taken and only closing may follow.
    bool FindForm(const CString& name, int limit);
    /// Skips to the end of the current form, one level.
    void CloseForm();
    bool IsNextAForm();

    // The next value token; false at a bracket, which stays unread, and at the end of the file
    bool Read(CString& text);
    bool Read(int& value);
    bool Read(float& value);
    bool Read(double& value);
    bool Read(std::int64_t& value);
    /// Signs and overflow wrap: "-1" is 4294967295 and, as a byte, 255.
    bool Read(unsigned int& value);
    bool Read(unsigned char& value);
    /// The forms "size" and "data" of a binary block; the caller frees the bytes with `free`. True
    /// also when they were not found, with both outputs left alone, and when the count is damage
    /// (above the file's length): null and 0 then. Missing bytes are 0.
    bool Read(unsigned char*& data, unsigned int& size);

    // The next token of any kind, brackets too; false at the end of the file
    bool ReadIgnoreForm(CString& text);
    bool ReadRawString(CString& text) { return ReadIgnoreForm(text); }
    /// All tokens up to the form end, which is left unread.
    bool ReadStringList(CStringList& list);

    // Looking ahead; a peeked token keeps no memory of its quotes
    CString Peek();
    /// False if it is the single form end.
    bool Peek(CString& text);
    /// Whether the cursor is before the last unit of the line.
    bool AnyMoreOnLine() const { return m_Cursor < m_Line.GetLength() - 1; }
    /// The line from the cursor on, without blanks behind; the cursor stays.
    void RestOfLine(CString& text) const;
    int GetLineNumber() const { return m_LineNumber; }

    /// Keeps the place of the last form start; returning goes on with that bracket. The level is
    /// the caller's: return at the level at which the mark was made. Lines are counted one high
    /// from there.
    void MarkPosition();
    void ReturnToMark();

    void SetEscapeChar(char16_t escape);
    void SetNoEscape();
    void SetQuoteChar(char16_t quote);
    /// Before `Open`: text in UTF-8 whatever the default page, each line passed through
    /// `UTF8ToAnsi`.
    void SetIsUTF8(bool isUtf8) { m_IsUTF8 = isUtf8; }
    bool IsUTF8() const { return m_IsUTF8; }
    /// Line ends within quotes stay as line feeds.
    void SetIncludeReturnInQuotedStrings() { m_IncludeReturns = true; }

    // The running sum over lines as they are fetched: up to the line under the cursor
    void StartChecksum() { m_Checksum.Start(); }
    void StopChecksum() { m_Checksum.Stop(); }
    std::int32_t GetChecksum() const { return m_Checksum.GetSum(); }

    bool ReadString(CString& line) override;

protected:
    friend class CFormItem;

    // A blank is none of the two; below 128 each unit is asked for once, at the first token.
    virtual bool IsFormStart(char16_t unit) { return unit == m_FormStart; }
    virtual bool IsFormEnd(char16_t unit) { return unit == m_FormEnd; }
    int GetLevel() const { return m_Level; }
    /// Closes forms while the level is at least that.
    void CloseToLevel(int level);
    /// Whether the line's first token begins with the comment character.
    bool IsComment() const;
    /// The next form's name, entered; empty when the form at `stopLevel` has ended, or the file.
    CString NextForm(int stopLevel);
    CString NextForm() { return NextForm(m_Level); }
    bool Read(CString& text, bool stopAtStructure);
    /// The text as it stands; a derived reader may hide it by its own.
    const char16_t* UnprotectReservedChars(const char16_t* text) const { return text; }
    /// Forms have no names: `NextForm` gives the bracket.
    void SetUnnamedForms() { m_UnnamedForms = true; }
    /// Lines whose first token begins so are skipped; 0 for none.
    void SetCommentChar(char16_t comment) { m_Comment = comment; }

private:
    // What a unit ends or begins outside quotes; none of them for a unit inside a token.
    static constexpr BYTE CLASS_SPACE = 1;
    static constexpr BYTE CLASS_START = 2;
    static constexpr BYTE CLASS_END = 4;

    // FormImportReader.cpp
    CString EnterForm();
    bool ReadPeeked(CString& text);
    void ReadBinaryData(unsigned char* data, unsigned int size);

    // FormImportReaderTokens.cpp
    void NextLine();
    void FetchLine();
    bool SkipToToken();
    std::uint64_t PositionOf(int index);
    bool NextToken(CFormToken& token);
    bool SkipToNextToken();
    void ScanToken(CFormToken& token);
    bool StopsAtBracket();
    void TakePeeked(CFormToken& token);
    void ScanPlain(CFormToken& token);
    void ScanQuoted(CFormToken& token);
    void JoinLines();
    void JoinPiece(std::u16string_view piece, bool escaped);
    int FindQuoteEnd(int index, bool& escaped) const;
    void LearnClasses();
    BYTE ClassOf(char16_t unit) { return unit < 128 ? m_Classes[unit] : AskClassOf(unit); }
    BYTE AskClassOf(char16_t unit);
    bool IsStart(const CFormToken& token)
    {
        return token.IsSingle() && (ClassOf(token.text[0]) & CLASS_START) != 0;
    }
    bool IsEnd(const CFormToken& token)
    {
        return token.IsSingle() && (ClassOf(token.text[0]) & CLASS_END) != 0;
    }
    void UngetFormStart();
    void UngetFormEnd();

    char16_t m_FormStart = u'(';
    char16_t m_FormEnd = u')';
    char16_t m_Comment = 0;
    CString m_Line;
    int m_Cursor = 0;
    CString m_PeekedToken;
    bool m_Peeked = false;
    int m_Level = 0;
    int m_LineNumber = 0;
    bool m_EndOfFile = false;
    std::uint64_t m_LinePosition = 0; // bytes, where the line's text begins
    std::uint64_t m_FormPosition = 0; // bytes, the last form start
    std::uint64_t m_MarkedPosition = 0;
    int m_MarkedLine = 0;
    char16_t m_Quote = u'"';
    char16_t m_EscapeUnit = u'\\';
    bool m_EscapeEnabled = true;
    bool m_UnnamedForms = false;
    bool m_InQuote = false;
    CFormChecksum m_Checksum;
    bool m_LastWasQuoted = false;
    bool m_IsUTF8 = false;
    bool m_IncludeReturns = false;

    CString m_Joined;   // a token that is not simply a piece of the line
    CString m_Value;    // a number's text, kept for its memory
    int m_Measured = 0; // units of the line whose bytes are counted already
    std::uint64_t m_MeasuredBytes = 0;
    bool m_ClassesKnown = false;
    BYTE m_Classes[128] = {}; // what ClassOf gives for the units that make up nearly all text
};

} // namespace utility
