#pragma once

#include "files/encoded/StdioFileEx.h"
#include "platform/base/Point.h"
#include "platform/base/Size.h"
#include "settings/form/FormChecksum.h"

#include <string>
#include <string_view>

namespace utility
{

/// Writes form text: a tree of bracketed forms, each with a name, values and child forms.
///
///     (Component
///       (Name Res1)
///       (Value "10k")
///     )
///
/// The caller opens and closes forms and writes typed values; blanks, indentation (2 a level), line
/// ends and quoting follow by themselves. The trailing `newLine` says whether a line end follows
/// the form; without it one blank does. Numbers go out in the "C" locale: %d, %u, %I64d, %.12g.
/// Opening empties the file at once; whoever replaces a file as a whole opens another one beside
/// it. Failed writes raise `CFileException`. The destructor closes what is open, silently. One
/// thread.
class UTILITY_CORE_API CFormExportWriter : public CStdioFileEx
{
public:
    CFormExportWriter() = default;
    ~CFormExportWriter() override;

    using CStdioFileEx::Open;
    /// Makes or empties the file; text in the default code page.
    [[nodiscard]] bool Open(const CString& path);
    /// Closes all open forms, then the file.
    void Close() override;
    const CString& GetFormFileName() const { return m_FileName; }

    // Forms with children or several values
    void OpenForm();
    void OpenForm(const CString& name, bool newLine);
    void OpenForm(const CString& name, const CString& value, bool newLine, bool quoted);
    void OpenForm(const CString& name, const CString& value1, const CString& value2, bool newLine,
                  bool quoted);
    /// The name in quotes, as it stands, if it holds a blank or a bracket: it cannot hold a quote.
    void OpenFormQuotedKeyWord(const CString& name, const CString& value, bool newLine,
                               bool quoted);
    /// With `newLine` the bracket stands on its own line at the indent of its opening; without, it
    /// closes a form that was opened without, and the indent stays.
    void CloseForm(bool newLine);
    void CloseForms();

    // Whole forms
    void Form(const CString& name, bool newLine);
    void Form(const CString& name, const CString& value, bool newLine);
    void Form(const CString& name, const char16_t* value) = delete; // the text would become newLine
    void FormQuoted(const CString& name, const CString& value, bool newLine);
    void FormBool(const CString& name, bool value, bool newLine);
    void Form(const CString& name, int value, bool newLine);
    void Form(const CString& name, unsigned int value, bool newLine);
    void Form(const CString& name, float value, bool newLine);
    void Form(const CString& name, double value, bool newLine);
    void Form(const CString& name, std::int64_t value, bool newLine);
    /// One unit as it stands: a bracket, blank or quote is the caller's business.
    void Form(const CString& name, char16_t value, bool newLine);
    void Form(const CString& name, const CPoint& point, bool newLine);
    void Form(const CString& name, const CSize& size, bool newLine);
    /// (pt X Y)
    void Form(const CPoint& point, bool newLine);
    /// A form "binary" with "size" and "data", 40 bytes a line in upper-case hexadecimal. Ends its
    /// own lines; `newLine` adds an empty one.
    void Form(const BYTE* data, unsigned int size, bool newLine);
    void FormQuotedKeyWord(const CString& name, int value, bool newLine);
    void FormQuotedQuotedKeyWord(const CString& name, const CString& value, bool newLine);

    // Single values of an open form
    using CStdioFileEx::Write;
    void Write(const CString& text, bool quoted);
    void Write(int value);
    void Write(unsigned int value);
    void Write(float value);
    void Write(double value);
    void Write(std::int64_t value);
    void Write(char16_t value);

    // Layout
    void WriteLine();
    /// The indent at the start of a line, one blank elsewhere. The argument has no meaning.
    void WriteSpace(int = 1);
    void Indent() { m_Indent += INDENT_STEP; }

    /// Backslashes are no longer doubled; the reader must be told `SetNoEscape`.
    void SetNoEscapeChar() { m_Escape = false; }
    CString ProtectQuotes(const CString& text) const;

    // The running sum over all that passes WriteString; Stop leaves it for GetChecksum.
    void StartChecksum() { m_Checksum.Start(); }
    void StopChecksum() { m_Checksum.Stop(); }
    std::int32_t GetChecksum() const { return m_Checksum.GetSum(); }

    void WriteString(const char16_t* text) override;

protected:
    /// An unquoted value on its way out; a derived writer may protect its own.
    virtual CString ProtectReservedChars(const CString& text) { return text; }

private:
    static constexpr int INDENT_STEP = 2;

    struct CTextValue
    {
        const CString& m_Text;
        bool m_Quoted;
    };

    template <typename... TValues>
    void PutForm(const CString& name, bool newLine, TValues... values);
    template <typename... TValues>
    void PutOpening(const CString& name, bool newLine, TValues... values);
    template <typename TValue>
    void PutValue(TValue value);
    void PutText();

    void AppendSpace();
    void AppendOpening(const CString& name);
    void AppendText(std::u16string_view text);
    void EndAtZero(std::size_t start);
    void AppendLineEnd();
    void AppendValue(CTextValue value);
    void AppendValue(char16_t value);
    template <typename TNumber>
    void AppendValue(TNumber value);
    void AppendProtected(std::u16string& result, const CString& text) const;

    CString m_FormStart = u"(";
    CString m_FormEnd = u")";
    CFormChecksum m_Checksum;
    CString m_FileName;
    int m_Indent = 0; // in blanks; below 0 after unbalanced closing
    bool m_LineStart = true;
    bool m_Escape = true;
    std::u16string m_Text; // what a call gathers, kept for its memory
};

} // namespace utility
