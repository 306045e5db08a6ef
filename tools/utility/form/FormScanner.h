#pragma once

#include "platform/base/String.h"

#include <optional>
#include <vector>

namespace utility
{

/// Where a file of form text stops making sense, and why; line and column from 1, columns in
/// characters.
struct CFormFault
{
    std::uint64_t line = 1;
    std::uint64_t column = 1;
    CString reason;
};

/// Looks a file of form text through before anything is taken from it, in constant memory.
///
/// The library's reader stays silent about damage; this names the first fault: an open bracket or
/// quote at the end, a stray bracket, a NUL, ill-formed UTF-8, a line above 16 MB, nesting deeper
/// than 10,000. Bytes are fed in pieces of any size; text is UTF-8, with or without a mark.
class CFormScanner
{
public:
    static constexpr std::uint64_t LINE_LIMIT = 16u << 20; // bytes
    static constexpr std::size_t DEPTH_LIMIT = 10000;

    /// False once a fault is met; what is fed behind it is ignored.
    bool Feed(const char* bytes, std::size_t count);
    /// To be called at the end of the file.
    bool Finish();
    const std::optional<CFormFault>& GetFault() const { return m_Fault; }
    /// Brackets opened so far.
    std::uint64_t GetFormCount() const { return m_Forms; }

private:
    struct CPlace
    {
        std::uint64_t line = 1;
        std::uint64_t column = 1;
    };

    bool FeedByte(unsigned char byte);
    bool StartCharacter(unsigned char byte);
    bool ContinueCharacter(unsigned char byte);
    bool TakeCharacter(char32_t character);
    bool TakeOutside(char32_t character);
    bool OpenBracket();
    bool Fail(const CPlace& place, const char16_t* reason);
    void Advance(char32_t character);

    CPlace m_Place;
    std::uint64_t m_Forms = 0;
    std::uint64_t m_LineBytes = 0;
    std::vector<CPlace> m_Open; // the brackets that wait for their end, at most DEPTH_LIMIT
    CPlace m_QuotePlace;
    bool m_InQuote = false;
    bool m_Escaped = false;
    bool m_InToken = false; // an unquoted token is under way, in which a quote is plain text
    bool m_AtStart = true;
    int m_Pending = 0;             // bytes of the character that are still to come
    unsigned char m_Lowest = 0x80; // bounds of the next of them
    unsigned char m_Highest = 0xBF;
    char32_t m_Character = 0;
    std::optional<CFormFault> m_Fault;
};

/// Scans a whole file. False with the fault, or with the last error set if the file cannot be read.
bool ScanFormFile(const CString& path, CFormScanner& scanner);

/// "FILE:LINE:COLUMN: reason", the file in native form.
CString DescribeFault(const CString& path, const CFormFault& fault);

} // namespace utility
