#include "files/encoded/TextEscapes.h"

#include "platform/base/Encoding.h"
#include "platform/base/NumberText.h"

#include <atomic>

namespace utility
{

namespace
{

constexpr char16_t RTF_FORMAT[] = u"%d";
constexpr char16_t RTF_TRAILER = u'?';
constexpr char16_t PLAIN_FORMAT[] = u"%04X";

constinit std::atomic<bool> rtfEscapes{false};

/// The character that a number behind a lead stands for, 0 if there is none; `end` is behind the
/// number.
char16_t ReadEscape(const char16_t* number, const char16_t*& end)
{
    return static_cast<char16_t>(wcstol(number, &end, 16));
}

} // namespace

void SetRtfEscapes(bool on)
{
    rtfEscapes = on;
}

void AppendEscape(std::string& bytes, char16_t unit, const CString& lead)
{
    const bool isRtf = rtfEscapes;
    CString escape = lead;
    escape.AppendFormat(isRtf ? RTF_FORMAT : PLAIN_FORMAT, static_cast<int>(unit));
    if (isRtf)
        escape += RTF_TRAILER;
    bytes += ToUtf8(escape.View());
}

void UndoEscapes(CString& text, const CString& lead)
{
    int found = lead.IsEmpty() ? -1 : text.Find(lead);
    if (found < 0)
        return;

    const bool isRtf = rtfEscapes;
    CString plain;
    plain.Preallocate(text.GetLength());
    int done = 0;
    while (found >= 0)
    {
        const char16_t* number = text.GetString() + found + lead.GetLength();
        const char16_t* end = number;
        const char16_t character = ReadEscape(number, end);
        plain += text.View().substr(static_cast<std::size_t>(done),
                                    static_cast<std::size_t>(found - done));
        if (character == 0)
        {
            plain += lead;
            done = found + lead.GetLength();
        }
        else
        {
            plain += character;
            done =
                static_cast<int>(end - text.GetString()) + (isRtf && *end == RTF_TRAILER ? 1 : 0);
        }
        found = text.Find(lead, done);
    }
    plain += text.View().substr(static_cast<std::size_t>(done));
    text = plain;
}

} // namespace utility
