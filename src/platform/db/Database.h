#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"
#include "platform/db/OdbcTypes.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace utility
{

class CRecordset;

/// One connection to an ODBC data source.
///
/// Must outlive the recordsets made on it. One thread at a time, `Cancel` excepted; a worker opens
/// its own connection with the string of `GetConnect`. Failures raise CDBException unless a line
/// says otherwise.
class UTILITY_CORE_API CDatabase : public CObject
{
    DECLARE_DYNAMIC(CDatabase)

public:
    CDatabase();
    ~CDatabase() override;
    CDatabase(const CDatabase&) = delete;
    CDatabase& operator=(const CDatabase&) = delete;

    /// Connects by source name, by connect string, or by both ("DSN=name;" then stands in front of
    /// the string). Gives a non-zero value; there is no plain failure.
    ///
    ///     open already                    08002, connection left alone
    ///     neither name nor string         IM002, nobody is asked
    ///     exclusive                       HYC00: no driver offers it
    ///     readOnly                        the access mode is set, recordsets refuse to edit
    ///     useCursorLib                    taken, without effect: recordsets keep their rows
    ///
    /// A leading "ODBC;" is dropped. Settings that a driver needs are added where the string does
    /// not name them.
    virtual BOOL Open(LPCWSTR dsn, BOOL exclusive = FALSE, BOOL readOnly = FALSE,
                      LPCWSTR connect = u"ODBC;", BOOL useCursorLib = TRUE);

    /// Ends the connection and every statement of it; an open transaction is rolled back. Nothing
    /// if closed.
    virtual void Close();

    BOOL IsOpen() const { return m_hdbc != nullptr; }

    /// A string that opens the same source again, with its password; "" before the first Open.
    ///
    /// An empty "DSN=" is left out and a missing "DRIVER={...}" appended. For anything shown use
    /// MaskPasswords (platform/db/ConnectString.h).
    const CString& GetConnect() const { return m_strConnect; }

    /// Runs a statement that gives no rows; names written [x] are put into the driver's quotes.
    void ExecuteSQL(LPCWSTR sql);

    /// Rows changed by the last ExecuteSQL, -1 where the driver does not tell.
    std::int64_t GetRowsAffected() const { return m_RowsAffected; }

    // Transactions; the three calls give 0 where the source has none, and raise nothing
    BOOL CanTransact() const { return m_bTransactions; }
    BOOL BeginTrans();
    BOOL CommitTrans();
    BOOL Rollback();
    bool IsInTransaction() const { return m_bInTransaction; }

    /// Seconds, 0 for no limit: for the next Open, and for statements made from now on.
    void SetLoginTimeout(DWORD seconds) { m_dwLoginTimeout = seconds; }
    void SetQueryTimeout(DWORD seconds) { m_dwQueryTimeout = seconds; }
    DWORD GetQueryTimeout() const { return m_dwQueryTimeout; }

    /// Stops what ExecuteSQL is doing; any thread.
    void Cancel();

    BOOL IsReadOnly() const { return m_bReadOnly; }

    /// Whether a return code is no failure: SQL_SUCCESS, SQL_SUCCESS_WITH_INFO, SQL_NO_DATA,
    /// SQL_STILL_EXECUTING.
    virtual BOOL Check(RETCODE code) const;
    virtual BOOL CheckHstmt(RETCODE code, HSTMT statement) const;

    /// Throws what the driver says of `m_hstmt` or, without one, of the connection.
    virtual void ThrowDBException(RETCODE code);

    /// The name of a source to open when none is given.
    virtual CString GetDSN() const;

    HDBC m_hdbc = nullptr;   // owned by m_Connection
    HSTMT m_hstmt = nullptr; // set while ExecuteSQL runs

protected:
    BOOL m_bTransactions = FALSE; // behind CanTransact; read from the driver at Open
    CString m_strConnect;

private:
    friend class CRecordset; // enters itself while it is open

    BOOL EndTrans(bool keep);
    void SetRunning(StatementRecord* statement);

    std::unique_ptr<ConnectionRecord> m_Connection; // platform/db/Driver.h
    std::vector<CRecordset*> m_OpenRecordsets;
    std::mutex m_RunningLock; // held while Cancel stops it, so that it does not go meanwhile
    StatementRecord* m_Running = nullptr;
    BOOL m_bReadOnly = FALSE;
    bool m_bInTransaction = false;
    DWORD m_dwLoginTimeout = 15;
    DWORD m_dwQueryTimeout = 15;
    std::int64_t m_RowsAffected = -1;
};

} // namespace utility
