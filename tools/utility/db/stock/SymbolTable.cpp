#include "utility/db/stock/SymbolTable.h"

#include "database/DBADatabase.h"
#include "database/ODBCRecordset.h"
#include "frame/AppError.h"
#include "resources/StringIds.h"

#include "utility/db/DbTransaction.h"
#include "utility/host/Interrupt.h"

#include <unordered_map>

namespace utility
{

namespace
{

struct CTextColumn
{
    const char16_t* Name;
    int Limit; // characters; a key of two must stay below the 3072 bytes that MariaDB allows
    CString CSymbol::*Text;
};

constexpr CTextColumn TEXTS[] = {
    {u"Library", 255, &CSymbol::m_Library},          {u"Name", 255, &CSymbol::m_Name},
    {u"Reference", 64, &CSymbol::m_Reference},       {u"Value", 255, &CSymbol::m_Value},
    {u"Footprint", 255, &CSymbol::m_Footprint},      {u"Datasheet", 1000, &CSymbol::m_Datasheet},
    {u"Description", 2000, &CSymbol::m_Description}, {u"Keywords", 2000, &CSymbol::m_Keywords},
    {u"Filters", 1000, &CSymbol::m_Filters},         {u"Extends", 255, &CSymbol::m_Extends},
};

constexpr struct
{
    const char16_t* Name;
    int CSymbol::*Number;
} NUMBERS[] = {{u"Pins", &CSymbol::m_Pins}, {u"Units", &CSymbol::m_Units}};

CString ComposeCreate()
{
    CString columns;
    for (const CTextColumn& column : TEXTS)
        columns.AppendFormat(u"[%s] VARCHAR(%d) NOT NULL, ", column.Name, column.Limit);
    for (const auto& column : NUMBERS)
        columns.AppendFormat(u"[%s] INTEGER NOT NULL, ", column.Name);
    return u"CREATE TABLE [Symbols] (" + columns + u"PRIMARY KEY ([Library], [Name]))";
}

bool DoTextsFit(const CSymbol& symbol)
{
    for (const CTextColumn& column : TEXTS)
    {
        const int length = (symbol.*column.Text).GetLength();
        if (length <= column.Limit)
            continue;
        CString reason;
        reason.Format(u"the %s of symbol '%s' has %d characters, of which the table takes %d",
                      column.Name, symbol.m_Name, length, column.Limit);
        CAppError::SetLastError(IDS_PLAIN_TEXT, reason);
        return false;
    }
    return true;
}

bool DoesDiffer(CODBCRecordset& rows, const CSymbol& symbol)
{
    for (const CTextColumn& column : TEXTS)
        if (rows.GetString(column.Name) != symbol.*column.Text)
            return true;
    for (const auto& column : NUMBERS)
        if (rows.IsNull(column.Name) || rows.GetInt(column.Name) != symbol.*column.Number)
            return true;
    return false;
}

void SetFields(CODBCRecordset& rows, const CSymbol& symbol)
{
    for (const CTextColumn& column : TEXTS)
    {
        rows.SetString(column.Name, symbol.*column.Text);
        rows.SetFieldNull(static_cast<DWORD>(rows.GetFieldID(column.Name)), false);
    }
    for (const auto& column : NUMBERS)
    {
        rows.SetInt(column.Name, symbol.*column.Number);
        rows.SetFieldNull(static_cast<DWORD>(rows.GetFieldID(column.Name)), false);
    }
}

} // namespace

void CRowChanges::operator+=(const CRowChanges& other)
{
    m_Added += other.m_Added;
    m_Changed += other.m_Changed;
    m_Deleted += other.m_Deleted;
}

void CSymbolTable::Create()
{
    if (!m_Database.TableExists(u"Symbols"))
        m_Database.ExecuteSQL(ComposeCreate());
}

bool CSymbolTable::Store(const CString& library, const std::vector<CSymbol>& symbols,
                         CRowChanges& changes)
{
    if (!std::all_of(symbols.begin(), symbols.end(), DoTextsFit))
        return false;

    CDbTransaction transaction(m_Database);
    CODBCRecordset rows(&m_Database);
    rows.SetThrowOnError(true);
    rows.SetStringParam(u"Library", library);
    rows.Open(u"SELECT * FROM [Symbols] WHERE [Library] = ?");
    CRowChanges written;
    if (!WriteChanges(rows, symbols, written))
        return false;
    rows.Close();
    if (written.GetTotal() > 0)
        transaction.Commit();
    changes += written;
    return true;
}

// Rows that stand already are compared on one walk; what is left of the symbols behind it is new.
bool CSymbolTable::WriteChanges(CODBCRecordset& rows, const std::vector<CSymbol>& symbols,
                                CRowChanges& changes)
{
    std::unordered_map<CString, const CSymbol*> missing;
    for (const CSymbol& symbol : symbols)
        missing.emplace(symbol.m_Name, &symbol);

    for (; !rows.IsEOF() && !IsInterrupted(); rows.MoveNext())
    {
        const auto found = missing.find(rows.GetString(u"Name"));
        if (found == missing.end())
        {
            rows.Delete();
            changes.m_Deleted++;
            continue;
        }
        if (DoesDiffer(rows, *found->second))
        {
            rows.Edit();
            SetFields(rows, *found->second);
            changes.m_Changed += rows.Update() ? 1 : 0;
        }
        missing.erase(found);
    }
    for (const CSymbol& symbol : symbols)
    {
        if (IsInterrupted())
            return false;
        if (!missing.contains(symbol.m_Name))
            continue;
        rows.AddNew();
        SetFields(rows, symbol);
        changes.m_Added += rows.Update() ? 1 : 0;
    }
    return !IsInterrupted();
}

} // namespace utility
