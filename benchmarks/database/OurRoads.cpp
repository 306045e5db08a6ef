#include "OurRoads.h"

#include "database/ODBCRecordset.h"
#include "database/OGDynRecordset.h"
#include "platform/base/Encoding.h"
#include "platform/db/FieldExchange.h"

#include <array>
#include <chrono>
#include <stdexcept>

using namespace utility;

namespace
{

CString Widen(const char* text)
{
    return FromUtf8(text);
}

class CStock : public CRecordset
{
public:
    explicit CStock(CDatabase& database) : CRecordset(&database)
    {
        m_nFields = CStockTable::COLUMNS;
    }

    CString GetDefaultSQL() override { return Widen(CStockTable::SELECT); }
    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[Id]", m_Numbers[0]);
        for (std::size_t text = 0; text < 5; ++text)
            RFX_Text(exchange, u"[Text]", m_Texts[text], 512);
        RFX_Double(exchange, u"[Price]", m_Reals[0]);
        RFX_Double(exchange, u"[Weight]", m_Reals[1]);
        RFX_Long(exchange, u"[Count]", m_Numbers[1]);
        RFX_Date(exchange, u"[Made]", m_Made);
        RFX_Text(exchange, u"[Words]", m_Texts[5], 512);
        RFX_Long(exchange, u"[Bin]", m_Numbers[2]);
    }

    void AddTo(CTotal& total) const
    {
        ++total.Rows;
        for (const LONG number : m_Numbers)
            total.Numbers += number;
        for (const CString& text : m_Texts)
            total.TextUnits += text.GetLength();
        total.Reals += m_Reals[0] + m_Reals[1];
        total.Years += m_Made.year;
    }

private:
    std::array<LONG, 3> m_Numbers{};
    std::array<CString, 6> m_Texts;
    std::array<double, 2> m_Reals{};
    TIMESTAMP_STRUCT m_Made = {};
};

class CAdded : public CRecordset
{
public:
    explicit CAdded(CDatabase& database) : CRecordset(&database) { m_nFields = 4; }

    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[Id]", m_Id);
        RFX_Text(exchange, u"[Name]", m_Name, 512);
        RFX_Double(exchange, u"[Price]", m_Price);
        RFX_Text(exchange, u"[Words]", m_Words, 512);
    }

    LONG m_Id = 0;
    CString m_Name;
    double m_Price = 0;
    CString m_Words;
};

} // namespace

CTotal ReadDeclared(CStockTable& table)
{
    CStock stock(table.GetDatabase());
    CTotal total;
    for (stock.Open(); !stock.IsEOF(); stock.MoveNext())
        stock.AddTo(total);
    return total;
}

CTotal ReadDiscovered(CStockTable& table)
{
    CODBCRecordset stock(&table.GetDatabase());
    CTotal total;
    for (stock.Open(Widen(CStockTable::SELECT)); !stock.IsEOF(); stock.MoveNext())
    {
        ++total.Rows;
        for (const int column : {0, 8, 11})
            total.Numbers += stock.GetInt(column);
        for (const int column : {1, 2, 3, 4, 5, 10})
            total.TextUnits += stock.GetString(column).GetLength();
        total.Reals += stock.GetDouble(6) + stock.GetDouble(7);
        total.Years += stock.GetTimeStamp(9).year;
    }
    return total;
}

CTotal ShowFirstScreen(CStockTable& table)
{
    COGDynRecordset grid(&table.GetDatabase());
    grid.Open(AFX_DB_USE_DEFAULT_TYPE, Widen(CStockTable::SELECT));
    CTotal total;
    for (; total.Rows < SCREEN_ROWS && !grid.IsEOF(); grid.MoveNext())
    {
        ++total.Rows;
        for (int column = 0; column < grid.GetFieldCount(); ++column)
            if (grid.GetFieldData(column).IsEmpty())
                throw std::runtime_error("an empty cell");
    }
    return total;
}

CTotal AddRows(CStockTable& table, int count)
{
    CDatabase& database = table.GetDatabase();
    CAdded added(database);
    added.Open(AFX_DB_USE_DEFAULT_TYPE, Widen(CStockTable::SELECT_NONE));
    database.BeginTrans();
    CTotal total;
    const CString words = FromUtf8(CStockTable::ADDED_WORDS);
    for (; total.Rows < count; ++total.Rows)
    {
        added.AddNew();
        added.m_Id = static_cast<LONG>(total.Rows);
        added.m_Name.Format(u"RES-%d", added.m_Id);
        added.m_Price = added.m_Id * 0.5;
        added.m_Words = words;
        added.Update();
    }
    added.Close();
    database.Rollback();
    return total;
}

double MeasureAnyRow(CStockTable& table)
{
    constexpr int MOVES = 100'000;
    CStock stock(table.GetDatabase());
    stock.Open();
    stock.MoveLast();
    CTotal total;
    std::uint32_t place = 1;
    const auto start = std::chrono::steady_clock::now();
    for (int move = 0; move < MOVES; ++move)
    {
        place = place * 1664525U + 1013904223U;
        stock.SetAbsolutePosition(
            static_cast<std::int32_t>(place % static_cast<std::uint32_t>(table.GetRowCount())) + 1);
        stock.AddTo(total);
    }
    if (total.Years < MOVES)
        throw std::runtime_error("a row without its date");
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / MOVES;
}
