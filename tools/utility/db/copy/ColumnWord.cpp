#include "utility/db/copy/ColumnWord.h"

#include "platform/base/NumberText.h"

#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::uint32_t PRESET_LENGTH = 255; // of a text field as the program's users add it

constexpr struct
{
    const char16_t* Name;
    ETransferType Type;
} TYPES[] = {
    {u"text", ETransferType::Text},      {u"boolean", ETransferType::Bit},
    {u"smallint", ETransferType::Small}, {u"integer", ETransferType::Integer},
    {u"bigint", ETransferType::Big},     {u"decimal", ETransferType::Decimal},
    {u"real", ETransferType::Real},      {u"date", ETransferType::Date},
    {u"time", ETransferType::Time},      {u"timestamp", ETransferType::Timestamp},
    {u"binary", ETransferType::Binary},
};

bool Refuse(const CString& word)
{
    CString names;
    for (const auto& row : TYPES)
        names += (names.IsEmpty() ? u"" : u", ") + CString(row.Name);
    PrintError(u"'" + word + u"' is no column: it takes NAME or NAME:TYPE, the type one of " +
               names + u"; text and decimal take a length, as in text(40) and decimal(12,3)");
    return false;
}

/// "(40)", "(12,3)" or nothing.
bool ReadSize(const CString& text, CTransferColumn& column)
{
    if (text.IsEmpty())
        return true;
    const int comma = text.Find(u',');
    column.Length = static_cast<std::uint32_t>(std::max(_wtoi(text.Mid(1)), 0));
    column.Scale = comma < 0 ? short{0} : static_cast<short>(_wtoi(text.Mid(comma + 1)));
    CString written;
    written.Format(comma < 0 ? u"(%u)" : u"(%u,%d)", column.Length, column.Scale);
    const bool takesScale = column.Type == ETransferType::Decimal;
    return written == text && column.Length > 0 && (comma < 0 || takesScale) &&
           (takesScale || column.Type == ETransferType::Text) && column.Scale >= 0 &&
           static_cast<std::uint32_t>(column.Scale) <= column.Length;
}

} // namespace

bool ReadColumnWord(const CString& word, CTransferColumn& column)
{
    const int colon = word.ReverseFind(u':');
    column.Name = colon < 0 ? word : word.Left(colon);
    column.Length = colon < 0 ? PRESET_LENGTH : 0;
    if (column.Name.IsEmpty())
        return Refuse(word);
    if (colon < 0)
        return true;
    const CString type = word.Mid(colon + 1);
    const int open = type.Find(u'(');
    const CString name = open < 0 ? type : type.Left(open);
    for (const auto& row : TYPES)
    {
        if (name.CompareNoCase(row.Name) != 0)
            continue;
        column.Type = row.Type;
        return ReadSize(open < 0 ? CString() : type.Mid(open), column) || Refuse(word);
    }
    return Refuse(word);
}

} // namespace utility
