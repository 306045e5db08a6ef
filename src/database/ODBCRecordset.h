#pragma once

#include "database/DBField.h"
#include "database/ODBCRecordsetValues.h"
#include "platform/db/Recordset.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace utility
{

/// How column names are folded when they are looked up.
enum EColSyntax : int
{
    COL_SYNTAX_EXACT = 0,
    COL_SYNTAX_LOWER = 1,
    COL_SYNTAX_UPPER = 2
};

/// A recordset that needs no declared columns: those of any query are found out when it opens, and
/// each becomes a field.
///
///     CODBCRecordset parts(&database);
///     parts.SetStringParam(u"name", u"R*");
///     parts.Open(u"SELECT * FROM [Parts] WHERE Name LIKE ?");
///     for (; !parts.IsEOF(); parts.MoveNext())
///         Show(parts.GetString(u"Name"), parts.GetDouble(u"Value"));
///
/// Columns are reached by index or name, brackets address parameters. Of two columns with one name
/// the second is called `Name2`. A parameter comes to be when it is first named; parameters are
/// bound in that order. A text column holds as many units as the driver tells, at least 512 and at
/// most 8196; what is longer is cut, traced, and its row refuses an edit.
///
/// Driver failures raise `CDBException`. A wrong index or name, and an open that is refused without
/// the driver, raise `CODBCRecordsetException` where the set was told to throw; otherwise the open
/// gives 0, a wrong parameter raises `CInvalidArgException`, and a wrong column asserts in debug
/// builds and is an empty field elsewhere. One thread.
class UTILITY_CORE_API CODBCRecordset : public CRecordset,
                                        public CODBCRecordsetValues<CODBCRecordset>
{
    DECLARE_DYNAMIC(CODBCRecordset)

public:
    explicit CODBCRecordset(CDatabase* database = nullptr);
    ~CODBCRecordset() override;

    /// Without declared fields as the other form.
    BOOL Open(UINT openType = AFX_DB_USE_DEFAULT_TYPE, LPCWSTR sql = nullptr,
              DWORD options = none) override;
    /// Finds out the columns.
    virtual BOOL Open(LPCWSTR sql, UINT openType = AFX_DB_USE_DEFAULT_TYPE, DWORD options = none);
    /// Drops fields and parameters, unless they are kept for the next open.
    void Close() override;
    BOOL Requery() override;
    void Move(std::int32_t rows, WORD fetchType = SQL_FETCH_RELATIVE) override;
    void DoFieldExchange(CFieldExchange* exchange) override;
    void PreBindFields() override;

    // Columns and parameters
    CDBField& Field(int index);
    CDBField& Field(LPCWSTR name) { return Field(GetFieldID(name)); }
    CDBField& operator()(int index) { return Field(index); }
    CDBField& operator()(LPCWSTR name) { return Field(name); }
    CDBField& Param(int index);
    /// Made when the name is new; names are compared exactly.
    CDBField& Param(LPCWSTR name);
    CDBField& operator[](int index) { return Param(index); }
    CDBField& operator[](LPCWSTR name) { return Param(name); }
    int GetParamCount() const { return static_cast<int>(m_Params.size()); }

    /// Indexes, or -1.
    int GetFieldID(const CString& name) const;
    virtual int GetFieldIndex(LPCWSTR name) { return GetFieldID(name); }
    int GetParamID(const CString& name) const;
    /// The key under which the column is found; with lower-case syntax its own name.
    CString GetFieldName(int index) const;
    CString GetLiteralFieldName(int index) const;

    /// Gives a block of the GlobalAlloc family to the field, which is then not NULL and sent by
    /// `Update`. Nothing, and the block stays the caller's, unless the column holds binaries.
    void SetBinary(LPCWSTR name, HGLOBAL data, DWORD size);
    /// A FILETIME count, sent as a date.
    template <typename TKey>
    void SetInt64ParamAsTimeStamp(TKey key, std::int64_t value)
    {
        MakeDateParam(Param(key)) = value;
    }

    // Settings
    /// Tells that a query has binary columns; they are read either way.
    void HasBinaryField() { m_bLongBinaryColumns = true; }
    int GetColSyntax() const { return m_ColSyntax; }
    /// On an open set: look-ups fold anew at once, the columns' keys at the next open.
    void SetColSyntax(int syntax) { m_ColSyntax = syntax; }
    bool IsResetOnClose() const { return m_bResetOnClose; }
    void SetResetOnClose(bool reset) { m_bResetOnClose = reset; }
    bool IsThrowOnError() const { return m_bThrowOnError; }
    void SetThrowOnError(bool throwOnError) { m_bThrowOnError = throwOnError; }

protected:
    /// How dates read as text, see EDateOutput: from the next open on.
    void SetDateOutputFormat(int format) { m_DateOutputFormat = format; }
    /// Takes over the columns of the open query.
    void LoadFieldNamesMap();

private:
    // ODBCRecordsetColumns.cpp
    void LoadColumn(int index);
    CString FoldName(const CString& name) const;
    void ResetFields();
    static CDBField& MakeDateParam(CDBField& field);
    // ODBCRecordsetExchange.cpp
    void InitRecord();
    void ExchangeParams(CFieldExchange& exchange);
    void ExchangeColumns(CFieldExchange& exchange);
    void ExchangeNamedColumn(CFieldExchange& exchange, int index, bool traced);
    void ExchangeColumn(CFieldExchange& exchange, LPCWSTR name, int index, bool traced);
    void TraceCutColumn(int index);

    std::unique_ptr<CDBField[]> m_Fields; // kept for the next query while large enough
    int m_AllocatedFields = 0;
    std::vector<std::unique_ptr<CDBField>> m_Params;
    std::unordered_map<CString, int> m_NameMap;
    bool m_bNeedLoad = false; // from Open until the columns are known
    bool m_bResetOnClose = true;
    bool m_bThrowOnError = false;
    int m_DateOutputFormat = DATE_OUTPUT_LOCALE;
    int m_ColSyntax = COL_SYNTAX_UPPER;
    std::vector<CString> m_Keys;   // the name map's keys, by column
    std::vector<short> m_SqlTypes; // by column
    std::vector<int> m_Precisions; // by column, as the driver tells
};

} // namespace utility
