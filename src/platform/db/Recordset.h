#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"
#include "platform/db/OdbcTypes.h"
#include "platform/db/RecordsetStatus.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace utility
{

class CDatabase;
class CFieldExchange;
class CRecordsetRows;
class CSnapshotStore;
struct CODBCFieldInfo;

constexpr UINT AFX_DB_USE_DEFAULT_TYPE = 0xFFFFFFFF;

/// The rows of a query, walked in any direction, with a current row that can be changed.
///
/// Rows come from the driver forward only, as far as a move needs, into a snapshot of the
/// recordset's own: any row once fetched is reached at once, only Last and negative positions read
/// to the end. Row numbers are 32-bit, from 0. A row added or changed by others, or added here,
/// shows at the next Requery.
///
/// Failures raise CDBException unless a line says otherwise. One thread at a time, `Cancel`
/// excepted.
class UTILITY_CORE_API CRecordset : public CObject
{
    DECLARE_DYNAMIC(CRecordset)

public:
    enum OpenType : UINT
    {
        snapshot = 1
    };

    enum EOption : DWORD
    {
        none = 0,
        readOnly = 0x0001,
        skipDeletedRecords = 0x0002, // moves pass over rows deleted here
        noDirtyFieldCheck = 0x0004,  // Update takes only fields marked by SetFieldDirty
        useMultiRowFetch = 0x0008    // refused by Open: HYC00, rows are never exchanged in bulk
    };

    /// Without a database one is made at Open, from GetDefaultConnect.
    explicit CRecordset(CDatabase* database = nullptr);
    ~CRecordset() override;
    CRecordset(const CRecordset&) = delete;
    CRecordset& operator=(const CRecordset&) = delete;

    // Opening

    /// Runs a query, or GetDefaultSQL's where `sql` is null or empty; a text that is only a table's
    /// name becomes "SELECT * FROM [name]". Then calls PreBindFields and fetches the first row by
    /// the virtual Move(1, SQL_FETCH_NEXT).
    ///
    /// 0 without an exception: the connection is closed. A statement without result columns is not
    /// fetched: both ends are set and no field is exchanged.
    virtual BOOL Open(UINT openType = AFX_DB_USE_DEFAULT_TYPE, LPCWSTR sql = nullptr,
                      DWORD options = none);
    virtual void Close();

    /// Runs the query again, with the parameters' present values, and stands on the first row; 0 if
    /// the set is closed.
    virtual BOOL Requery();
    BOOL IsOpen() const { return m_hstmt != nullptr; }

    /// Stops a running query or fetch, which then raises HY008; any thread, as long as the object
    /// lives. Waits for nobody; nothing if the set is closed.
    void Cancel();

    /// The statement as composed.
    const CString& GetSQL() const { return m_strSQL; }
    virtual CString GetDefaultSQL();
    virtual CString GetDefaultConnect();

    // Moving

    /// `fetchType` SQL_FETCH_NEXT and _PRIOR go one row, whatever `rows` is; _RELATIVE goes `rows`
    /// rows; _ABSOLUTE goes to row `rows` counted from 1, or from the end if negative, 0 is before
    /// the first. Beyond an end that end is set. Next or a forward step at the end, Prior or a
    /// backward step at the start raise 02000.
    virtual void Move(std::int32_t rows, WORD fetchType = SQL_FETCH_RELATIVE);
    void MoveFirst() { Move(1, SQL_FETCH_FIRST); }
    void MoveLast() { Move(1, SQL_FETCH_LAST); }
    void MoveNext() { Move(1, SQL_FETCH_NEXT); }
    void MovePrev() { Move(-1, SQL_FETCH_PRIOR); }
    void SetAbsolutePosition(std::int32_t row) { Move(row, SQL_FETCH_ABSOLUTE); }
    BOOL IsBOF() const { return m_bBOF; }
    BOOL IsEOF() const { return m_bEOF; }

    /// The current row was deleted here since the last query.
    BOOL IsDeleted() const { return m_bDeleted; }

    /// The rows seen so far, all of them once the end was seen; rows deleted here still count.
    std::int32_t GetRecordCount() const { return m_lRecordCount; }
    void GetStatus(CRecordsetStatus& status) const;

    /// Fetches ahead of the moves, for idle time: until the time is up, so many more rows are there
    /// or all are; true while more may wait. The least step is what the driver gives at once, one
    /// row or some. Those rows count as seen, the current row stays.
    virtual bool FetchAhead(DWORD milliseconds, std::int32_t rows = INT32_MAX);

    // Result columns and field status

    short GetODBCFieldCount() const { return m_nResultCols; }
    void GetODBCFieldInfo(LPCWSTR name, CODBCFieldInfo& info) const;
    void GetODBCFieldInfo(short index, CODBCFieldInfo& info) const;
    bool IsFieldStatusNull(DWORD field) const { return (FieldStatus(field) & FIELD_NULL) != 0; }
    bool IsFieldStatusDirty(DWORD field) const { return (FieldStatus(field) & FIELD_DIRTY) != 0; }

    /// The field's text was longer than its limit and is cut, or it is NULL in place of a date that
    /// the driver cannot give; its row refuses an edit.
    bool IsFieldCut(DWORD field) const { return (FieldStatus(field) & FIELD_CUT) != 0; }
    void SetFieldNull(DWORD field, bool isNull = true);
    void SetFieldDirty(DWORD field, bool isDirty = true);

    // Editing: AddNew or Edit, then assign, then Update

    BOOL CanUpdate() const;
    virtual void AddNew();
    virtual void Edit();

    /// Sends the change: non-zero if something was sent, 0 if nothing differs.
    ///
    /// A changed or deleted row is found by its old values and must be exactly one; otherwise the
    /// statement is rolled back and 44000 raised. After a failure the edit is still under way: mend
    /// and call again, or CancelUpdate.
    virtual BOOL Update();
    virtual void Delete();
    void CancelUpdate();

    // Hooks

    /// One RFX call a field, in the order of the result columns; see FieldExchange.h.
    virtual void DoFieldExchange(CFieldExchange* exchange);
    virtual void DoBulkFieldExchange(CFieldExchange* exchange);

    /// The columns are known and nothing is bound yet: the last moment to set m_nFields.
    virtual void PreBindFields();
    virtual void ThrowDBException(RETCODE code, HSTMT statement = nullptr);

    CDatabase* m_pDatabase;
    HSTMT m_hstmt = nullptr; // owned by m_Rows
    int m_nFields = 0;       // 9999 while they are unknown
    int m_nParams = 0;
    UINT m_nDefaultType = snapshot;

protected:
    // The steps of Move, for a class that replaces it; in this order

    /// Sets the position to before the first row, with nothing seen.
    void ResetCursor();

    /// Forgets null, dirty and cut marks, one a field, and any edit under way.
    void ClearFieldStatus();

    /// Raises 02000 where the step cannot be made.
    void CheckRowsetCurrencyStatus(WORD fetchType, std::int32_t rows);

    /// Each fetches what the step needs and gives SQL_SUCCESS, or SQL_NO_DATA where it ends before
    /// or behind the rows.
    RETCODE FetchData(WORD fetchType, std::int32_t rows);
    RETCODE SkipDeletedRecords(WORD fetchType, std::int32_t rows);

    /// Takes over where the fetch ended: the ends, the count, the current row.
    void SetRowsetCurrencyStatus(RETCODE code, WORD fetchType, std::int32_t rows);

    /// Brings the current row into the fields.
    void Fixups();

    /// Tells the statement each field's kind and limit; the number of fields.
    int BindFieldsToColumns();

    /// From now on Update finds changed fields by comparison with the snapshot's row.
    void AllocDataCache();

    /// The rows fetched so far, by column; null before the first fetch. Of the inner side:
    /// platform/db/SnapshotStore.h.
    const CSnapshotStore* GetSnapshot() const;

    /// Fetches as far as a row, counted from 0; false if there are fewer. No move: nothing counts
    /// as seen.
    bool FetchTo(std::int64_t row);

    /// The current row's value as text, by result column, without a field: see CGXDynamicRecordset.
    CString GetColumnText(short column) const;

    short m_nResultCols = -1; // -1 before the first Open
    int m_nFieldsBound = 0;   // 0 not yet, -1 there are none
    bool m_bLongBinaryColumns = false;
    bool m_bCheckCacheForDirtyFields = true;
    DWORD m_dwOptions = none;
    CString m_strSQL;

private:
    friend class CDatabase;            // ends the rows with the connection
    friend class CFieldExchangeAccess; // platform/db/FieldExchange.cpp

    static constexpr BYTE FIELD_NULL = 1;
    static constexpr BYTE FIELD_DIRTY = 2;
    static constexpr BYTE FIELD_CUT = 4;

    BYTE FieldStatus(DWORD field) const
    {
        return field < m_FieldStatus.size() ? m_FieldStatus[field] : BYTE{0};
    }

    bool HasOpenDatabase();
    void MakeRows();
    void RunQuery();
    void SendParameters();
    void ReleaseRows();
    void ReplaceRows(std::unique_ptr<CRecordsetRows> rows);
    void InitRecord();
    void CountRows(std::int64_t seen);
    void Require(RETCODE code);
    std::int64_t FindTarget(WORD fetchType, std::int32_t rows);
    void StartEdit(bool isNewRow);
    void EndEdit();
    bool CollectChanges();
    void RequireEditable(bool needsRow);

    std::vector<BYTE> m_FieldStatus; // one a field
    std::unique_ptr<CRecordsetRows> m_Rows;
    std::mutex m_RowsLock; // held while Cancel stops m_Rows, and while they are exchanged
    std::unique_ptr<CDatabase> m_OwnDatabase;
    bool m_bBOF = true;
    bool m_bEOF = true;
    bool m_bDeleted = false;
    bool m_bEndSeen = false;
    std::int32_t m_lCurrentRecord = 0;
    std::int32_t m_lRecordCount = 0;
};

} // namespace utility
