#pragma once

#include "database/transfer/CellFault.h"
#include "database/transfer/SourceKind.h"
#include "database/transfer/TransferColumn.h"
#include "platform/base/Export.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace utility
{

class CDBADatabase;
class CTableReader;
class CTableSummary;
class CTableWriter;

/// How the copy of a table ended.
enum class ECopyEnd : BYTE
{
    Copied,
    StandsAlready, // with the same rows
    Stopped,       // by the caller
    OtherRows,     // the target's table has rows, and not the source's
    NoColumn,      // the target's table lacks one of the source's: m_Column
    Misfit,        // a value that the target cannot hold: m_Row, m_Column, m_Fault
    Refused, // the target took a row for none: m_Row, m_Words and, where it was found, m_Column
    Differs  // what was read back is not what was sent
};

struct CCopyResult
{
    ECopyEnd m_End = ECopyEnd::Copied;
    std::int64_t m_Rows = 0; // of the source, as far as it was read
    std::uint64_t m_Checksum = 0;
    std::int64_t m_Row = 0; // counted from 1, in the order in which the source gives them
    CString m_Column;
    ECellFault m_Fault = ECellFault::None;
    std::string m_Storage; // of WrongStorage: what SQLite holds there
    CString m_Words;       // of the target
};

/// Copies tables from one source to another, whole values from driver to driver.
///
/// A table is copied whole or not at all: its rows come in one transaction, are read back and
/// compared before it ends, and anything else than Copied leaves the target without them; a table
/// that was made for them goes as well. So a copy that was stopped is taken up by copying again.
///
///     the target's table    what happens
///     not there             it is made, with the types of TypeMap.h
///     empty                 it is filled, by column names; what it has more gets its preset
///     has rows              they are compared with the source's
///
/// Refusals of the source, and of the target's tables, raise CDBException.
class UTILITY_CORE_API CTableCopy
{
public:
    /// Called now and then with the rows read so far, of the source and to read back; false stops.
    using CProgress = std::function<bool(std::int64_t rows)>;

    CTableCopy(CDBADatabase& from, CDBADatabase& to, const CProgress& progress);

    CCopyResult Copy(const CString& table);

private:
    bool Summarise(CTableReader& reader, CTableSummary& summary);
    bool HasColumns(const CString& table, CCopyResult& result);
    CCopyResult Compare(const CString& table);
    CCopyResult Fill(const CString& table);
    bool WriteRows(const CString& table, CTableSummary& summary, CCopyResult& result);
    bool IsRowFit(const CTableReader& reader, CCopyResult& result);
    bool WriteRow(const CString& table, CTableWriter& writer, CCopyResult& result);
    void FindRefusedColumn(const CString& table, CCopyResult& result);
    bool CanWrite(const CString& table);
    void Drop(const CString& table);
    bool Step();

    CDBADatabase& m_From;
    CDBADatabase& m_To;
    CProgress m_Progress;
    ESourceKind m_Target;
    std::vector<CTransferColumn> m_Columns;   // of the source's table
    std::vector<CTransferColumn> m_ToColumns; // the same in the target's
    std::vector<CDbValue> m_Values;           // of the current row
    std::int64_t m_Steps = 0;
};

} // namespace utility
