#include "platform/base/object/Archive.h"
#include "platform/base/object/ArchiveException.h"
#include "settings/form/FormExportWriter.h"
#include "settings/form/FormItem.h"
#include "text/numbers/LengthUnit.h"

#include <algorithm>

namespace utility
{

namespace
{

// The keys of the form text
constexpr const char16_t* BASE = u"Base";
constexpr const char16_t* UNITS_PER_BASE = u"UnitsPerBase";
constexpr const char16_t* NAME = u"Name";
constexpr const char16_t* SHORT_NAME = u"ShName";
constexpr const char16_t* PRECISION = u"Precision";
constexpr const char16_t* NO_TRAILING = u"NoTrailing";
constexpr const char16_t* WANT_ROUNDING = u"WantRounding";
constexpr const char16_t* DECIMAL_CHAR = u"DecChar";

void StoreText(CArchive& archive, const CString& text)
{
    AfxWriteStringLength(archive, static_cast<std::uint64_t>(text.GetLength()), true);
    for (const char16_t unit : text.View())
        archive << unit;
}

/// Unit by unit: a claimed length costs nothing before its units are there.
CString LoadText(CArchive& archive)
{
    int unitSize = 0;
    CString text;
    for (std::uint64_t left = AfxReadStringLength(archive, unitSize); left > 0; --left)
    {
        char16_t unit = 0;
        BYTE narrow = 0;
        if (unitSize == 2)
        {
            archive >> unit;
        }
        else
        {
            archive >> narrow;
            unit = narrow;
        }
        text += unit;
    }
    return text;
}

bool LoadFlag(CArchive& archive)
{
    BYTE flag = 0;
    archive >> flag;
    return flag != 0;
}

} // namespace

bool CLengthUnit::ExportContents(CFormExportWriter& writer, bool newLine) const
{
    writer.Form(BASE, static_cast<int>(m_BaseUnit), newLine);
    writer.Form(UNITS_PER_BASE, m_UnitsPerBase, newLine);
    writer.FormQuoted(NAME, m_Name, newLine);
    writer.FormQuoted(SHORT_NAME, m_ShortName, newLine);
    writer.Form(PRECISION, m_Precision, newLine);
    if (!m_WantTrailingZeros)
        writer.Form(NO_TRAILING, newLine);
    if (m_WantRoundingIndicator)
        writer.Form(WANT_ROUNDING, newLine);
    writer.FormQuoted(DECIMAL_CHAR, CString(m_DecimalChar, m_DecimalChar != 0 ? 1 : 0), newLine);
    return true;
}

bool CLengthUnit::Import(CFormItem* item)
{
    m_WantTrailingZeros = true;
    m_WantRoundingIndicator = false;
    bool done = true;
    while (CFormItem* child = item->OpenNext())
    {
        const CString& key = child->Name();
        if (key.CompareNoCase(BASE) == 0)
        {
            int base = 0;
            done = child->Read(base);
            if (done && base >= 0 && base <= static_cast<int>(EBaseLengthUnit::NoUnit))
                m_BaseUnit = static_cast<EBaseLengthUnit>(base);
        }
        else if (key.CompareNoCase(UNITS_PER_BASE) == 0)
            done = child->Read(m_UnitsPerBase);
        else if (key.CompareNoCase(NAME) == 0)
            done = child->Read(m_Name);
        else if (key.CompareNoCase(SHORT_NAME) == 0)
            done = child->Read(m_ShortName);
        else if (key.CompareNoCase(PRECISION) == 0)
            done = child->Read(m_Precision);
        else if (key.CompareNoCase(NO_TRAILING) == 0)
            m_WantTrailingZeros = false;
        else if (key.CompareNoCase(WANT_ROUNDING) == 0)
            m_WantRoundingIndicator = true;
        else if (key.CompareNoCase(DECIMAL_CHAR) == 0)
        {
            CString text;
            done = child->Read(text);
            if (done)
                m_DecimalChar = text.IsEmpty() ? u'\0' : text[0];
        }
        child->End();
    }
    return done;
}

void CLengthUnit::Serialize(CArchive& archive, int version)
{
    if (archive.IsStoring())
    {
        archive << static_cast<std::int32_t>(m_BaseUnit) << m_UnitsPerBase;
        StoreText(archive, m_Name);
        StoreText(archive, m_ShortName);
        archive << static_cast<std::int32_t>(m_Precision) << static_cast<BYTE>(m_WantTrailingZeros)
                << static_cast<BYTE>(m_WantRoundingIndicator);
        if (version > 1)
            archive << m_DecimalChar;
        return;
    }
    CLengthUnit unit(*this); // kept until all has been read
    std::int32_t base = 0;
    std::int32_t precision = 0;
    archive >> base >> unit.m_UnitsPerBase;
    unit.m_Name = LoadText(archive);
    unit.m_ShortName = LoadText(archive);
    archive >> precision;
    unit.m_WantTrailingZeros = LoadFlag(archive);
    unit.m_WantRoundingIndicator = LoadFlag(archive);
    if (version > 1)
        archive >> unit.m_DecimalChar;
    if (base < 0 || base > static_cast<std::int32_t>(EBaseLengthUnit::NoUnit))
        AfxThrowArchiveException(CArchiveException::badIndex);
    unit.m_BaseUnit = static_cast<EBaseLengthUnit>(base);
    unit.m_Precision = precision;
    *this = unit;
}

} // namespace utility
