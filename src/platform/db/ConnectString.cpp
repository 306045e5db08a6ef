#include "platform/db/ConnectString.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"

namespace utility
{

namespace
{

constexpr std::u16string_view PREFIX = u"ODBC"; // a key alone, which says nothing
constexpr std::u16string_view MASK = u"***";

std::u16string_view TrimBlanks(std::u16string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Where a braced value that starts at `start` ends: behind its closing brace, or at the text's
/// end.
std::size_t SkipBraced(std::u16string_view text, std::size_t start)
{
    std::size_t place = start + 1;
    while (place < text.size())
    {
        if (text[place++] != u'}')
            continue;
        if (place == text.size() || text[place] != u'}')
            return place;
        ++place;
    }
    return place;
}

/// A key and value as they lie in the text; the value still has its braces.
struct CPiece
{
    std::u16string_view Key;
    std::u16string_view Value;
    bool HasValue = false;
    std::size_t ValueStart = 0;
    std::size_t End = 0; // at the separator or the text's end
};

CPiece ReadPiece(std::u16string_view text, std::size_t start)
{
    CPiece piece;
    std::size_t place = start;
    while (place < text.size() && text[place] != u';' && text[place] != u'=')
        ++place;
    piece.Key = TrimBlanks(text.substr(start, place - start));
    piece.HasValue = place < text.size() && text[place] == u'=';
    if (piece.HasValue)
    {
        ++place;
        while (place < text.size() && IsSpace(text[place]))
            ++place;
        piece.ValueStart = place;
        if (place < text.size() && text[place] == u'{')
            place = SkipBraced(text, place);
        while (place < text.size() && text[place] != u';')
            ++place;
        piece.Value = TrimBlanks(text.substr(piece.ValueStart, place - piece.ValueStart));
    }
    piece.End = place;
    return piece;
}

bool IsBracedValue(std::u16string_view value)
{
    return value.size() >= 2 && value.front() == u'{' && value.back() == u'}';
}

CString RemoveBraces(std::u16string_view value)
{
    CString inner(value.substr(1, value.size() - 2));
    inner.Replace(u"}}", u"}");
    return inner;
}

bool NeedsBraces(std::u16string_view value)
{
    return value.find_first_of(u";{}=") != std::u16string_view::npos || TrimBlanks(value) != value;
}

bool IsPasswordKey(std::u16string_view key)
{
    return EqualNoCase(key, u"PWD") || EqualNoCase(key, u"PASSWORD");
}

} // namespace

CConnectString::CConnectString(std::u16string_view text)
{
    for (std::size_t place = 0; place < text.size();)
    {
        const CPiece piece = ReadPiece(text, place);
        place = piece.End + 1;
        if (piece.Key.empty() || (!piece.HasValue && EqualNoCase(piece.Key, PREFIX)))
            continue;
        CPair pair;
        pair.Key = CString(piece.Key);
        pair.HasValue = piece.HasValue;
        pair.IsBraced = IsBracedValue(piece.Value);
        pair.Value = pair.IsBraced ? RemoveBraces(piece.Value) : CString(piece.Value);
        m_Pairs.push_back(pair);
    }
}

const CConnectString::CPair* CConnectString::Find(std::u16string_view key) const
{
    for (const CPair& pair : m_Pairs)
        if (EqualNoCase(pair.Key.View(), key))
            return &pair;
    return nullptr;
}

bool CConnectString::Has(std::u16string_view key) const
{
    return Find(key) != nullptr;
}

CString CConnectString::Get(std::u16string_view key) const
{
    const CPair* const pair = Find(key);
    return pair ? pair->Value : CString();
}

void CConnectString::Append(std::u16string_view key, std::u16string_view value)
{
    CPair pair;
    pair.Key = CString(key);
    pair.Value = CString(value);
    pair.IsBraced = EqualNoCase(key, u"DRIVER"); // as every driver's own page writes it
    m_Pairs.push_back(pair);
}

void CConnectString::Remove(std::u16string_view key)
{
    std::erase_if(m_Pairs, [&](const CPair& pair) { return EqualNoCase(pair.Key.View(), key); });
}

CString CConnectString::Format() const
{
    CString text;
    for (const CPair& pair : m_Pairs)
    {
        if (!text.IsEmpty())
            text += u';';
        text += pair.Key;
        if (!pair.HasValue)
            continue;
        text += u'=';
        if (!pair.IsBraced && !NeedsBraces(pair.Value.View()))
        {
            text += pair.Value;
            continue;
        }
        CString inner = pair.Value;
        inner.Replace(u"}", u"}}");
        text += u'{';
        text += inner;
        text += u'}';
    }
    return text;
}

CString MaskPasswords(std::u16string_view text)
{
    CString masked;
    std::size_t copied = 0;
    for (std::size_t place = 0; place < text.size();)
    {
        const CPiece piece = ReadPiece(text, place);
        place = piece.End + 1;
        if (!piece.HasValue || piece.Value.empty() || !IsPasswordKey(piece.Key))
            continue;
        masked += text.substr(copied, piece.ValueStart - copied);
        masked += MASK;
        copied = piece.End;
    }
    masked += text.substr(copied);
    return masked;
}

} // namespace utility
