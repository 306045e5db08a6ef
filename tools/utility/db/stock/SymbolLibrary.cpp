#include "utility/db/stock/SymbolLibrary.h"

#include "files/FilePath.h"
#include "frame/AppError.h"
#include "platform/base/NumberText.h"
#include "resources/StringIds.h"
#include "settings/form/FormItem.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <unordered_set>

namespace utility
{

namespace
{

constexpr UINT READ_AS_UTF8 = 0x4000000; // whatever the locale's page is

struct CEndItem
{
    void operator()(CFormItem* item) const { item->End(); }
};
using CChildForm = std::unique_ptr<CFormItem, CEndItem>;

CChildForm NextChild(CFormItem& item)
{
    return CChildForm(item.OpenNext());
}

// Where a property of the file goes; others are not kept.
constexpr struct
{
    const char16_t* Key;
    CString CSymbol::*Text;
} PROPERTIES[] = {
    {u"Reference", &CSymbol::m_Reference},        {u"Value", &CSymbol::m_Value},
    {u"Footprint", &CSymbol::m_Footprint},        {u"Datasheet", &CSymbol::m_Datasheet},
    {u"ki_description", &CSymbol::m_Description}, {u"ki_keywords", &CSymbol::m_Keywords},
    {u"ki_fp_filters", &CSymbol::m_Filters},
};

/// The library's symbols as they are read, before extended ones have their pins.
class CLibraryReader
{
public:
    explicit CLibraryReader(const CString& library) : m_Library(library) {}

    bool Read(CFormImportReader& reader);
    /// Gives extended symbols the pins and units they take from others.
    bool ResolveExtended();
    std::vector<CSymbol>& GetSymbols() { return m_Symbols; }

private:
    void ReadSymbol(CFormItem& form);
    void ReadProperty(CFormItem& form);
    void ReadUnit(CFormItem& form);
    void ReadPin(CFormItem& form);

    CString m_Library;
    std::vector<CSymbol> m_Symbols;
    CSymbol m_Symbol; // under way
    std::unordered_set<CString> m_PinNumbers;
};

bool CLibraryReader::Read(CFormImportReader& reader)
{
    CFormItem root(&reader);
    const CChildForm library = NextChild(root);
    if (!library || library->Name() != u"kicad_symbol_lib")
    {
        CAppError::SetLastError(IDS_PLAIN_TEXT, u"this is no symbol library");
        return false;
    }
    while (const CChildForm form = NextChild(*library))
        if (form->Name() == u"symbol")
            ReadSymbol(*form);
    return true;
}

// Values stand before the children: the name, then forms only.
void CLibraryReader::ReadSymbol(CFormItem& form)
{
    m_Symbol = CSymbol();
    m_Symbol.m_Library = m_Library;
    m_PinNumbers.clear();
    form.Read(m_Symbol.m_Name);
    while (const CChildForm child = NextChild(form))
    {
        if (child->Name() == u"property")
            ReadProperty(*child);
        else if (child->Name() == u"symbol")
            ReadUnit(*child);
        else if (child->Name() == u"extends")
            child->Read(m_Symbol.m_Extends);
    }
    m_Symbol.m_Pins = static_cast<int>(m_PinNumbers.size());
    m_Symbols.push_back(m_Symbol);
}

void CLibraryReader::ReadProperty(CFormItem& form)
{
    CString key;
    CString text;
    if (!form.Read(key) || !form.Read(text))
        return;
    for (const auto& property : PROPERTIES)
        if (key == property.Key)
            m_Symbol.*property.Text = text;
}

// A body is called NAME_UNIT_STYLE; unit 0 is what all units share, style 2 another drawing of the
// same pins.
void CLibraryReader::ReadUnit(CFormItem& form)
{
    CString name;
    form.Read(name);
    const int style = name.ReverseFind(u'_');
    const int unit = name.Left(std::max(style, 0)).ReverseFind(u'_');
    m_Symbol.m_Units = std::max({m_Symbol.m_Units, 1, _wtoi(name.Mid(unit + 1))});
    while (const CChildForm child = NextChild(form))
        if (child->Name() == u"pin")
            ReadPin(*child);
}

void CLibraryReader::ReadPin(CFormItem& form)
{
    while (const CChildForm child = NextChild(form))
    {
        CString number;
        if (child->Name() == u"number" && child->Read(number))
            m_PinNumbers.insert(number);
    }
}

bool Fail(const CSymbol& symbol, const CString& reason)
{
    CAppError::SetLastError(IDS_PLAIN_TEXT, u"symbol '" + symbol.m_Name + u"' " + reason);
    return false;
}

// A symbol that extends may be extended itself: each chain is followed once, up to a symbol that is
// known, and taken back.
bool CLibraryReader::ResolveExtended()
{
    std::unordered_map<CString, std::size_t> byName;
    for (std::size_t index = 0; index < m_Symbols.size(); index++)
        if (!byName.emplace(m_Symbols[index].m_Name, index).second)
            return Fail(m_Symbols[index], u"stands twice in the file");

    enum class EState : char
    {
        Unknown,
        OnChain,
        Known
    };
    std::vector<EState> states(m_Symbols.size(), EState::Unknown);
    std::vector<std::size_t> chain;
    for (std::size_t start = 0; start < m_Symbols.size(); start++)
    {
        std::size_t index = start;
        while (states[index] == EState::Unknown && !m_Symbols[index].m_Extends.IsEmpty())
        {
            const auto found = byName.find(m_Symbols[index].m_Extends);
            if (found == byName.end())
                return Fail(m_Symbols[index], u"extends '" + m_Symbols[index].m_Extends +
                                                  u"', which is not in the file");
            states[index] = EState::OnChain;
            chain.push_back(index);
            index = found->second;
        }
        if (states[index] == EState::OnChain)
            return Fail(m_Symbols[index], u"extends itself");
        states[index] = EState::Known;
        for (; !chain.empty(); chain.pop_back())
        {
            m_Symbols[chain.back()].m_Pins = m_Symbols[index].m_Pins;
            m_Symbols[chain.back()].m_Units = m_Symbols[index].m_Units;
            states[chain.back()] = EState::Known;
        }
    }
    return true;
}

} // namespace

bool ReadSymbolLibrary(const CString& path, std::vector<CSymbol>& symbols)
{
    CFormImportReader reader;
    reader.AddFlags(READ_AS_UTF8);
    CLibraryReader library(CFilePath(path).GetFileName());
    if (!reader.Open(path) || !library.Read(reader) || !library.ResolveExtended())
        return false;
    symbols = std::move(library.GetSymbols());
    return true;
}

} // namespace utility
