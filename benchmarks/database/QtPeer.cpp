#include "BoundLoop.h"

#include <QtCore/QDateTime>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <stdexcept>

namespace
{

constexpr char CONNECTION[] = "stock";

class CQtPeer : public IPeer
{
public:
    explicit CQtPeer(const CStockTable& table)
        : m_Database(QSqlDatabase::addDatabase("QODBC", CONNECTION))
    {
        m_Database.setDatabaseName(QString::fromStdString(CompleteConnect(table)));
        if (!m_Database.open())
            throw std::runtime_error(m_Database.lastError().text().toStdString());
    }
    ~CQtPeer() override
    {
        m_Database.close();
        m_Database = {};
        QSqlDatabase::removeDatabase(CONNECTION);
    }
    CQtPeer(const CQtPeer&) = delete;
    CQtPeer& operator=(const CQtPeer&) = delete;

    const char* GetName() const override { return "Qt QODBC"; }

    CTotal ReadRows(int most) override
    {
        QSqlQuery query(m_Database);
        query.setForwardOnly(true);
        if (!query.exec(CStockTable::SELECT))
            throw std::runtime_error(query.lastError().text().toStdString());
        CTotal total;
        while (total.Rows < most && query.next())
            AddRow(query, total);
        return total;
    }

private:
    static void AddRow(const QSqlQuery& row, CTotal& total)
    {
        ++total.Rows;
        for (const int column : {0, 8, 11})
            total.Numbers += row.value(column).toLongLong();
        for (const int column : {1, 2, 3, 4, 5, 10})
            total.TextUnits += row.value(column).toString().size();
        for (const int column : {6, 7})
            total.Reals += row.value(column).toDouble();
        total.Years += row.value(9).toDateTime().date().year();
    }

    QSqlDatabase m_Database;
};

} // namespace

std::unique_ptr<IPeer> ConnectQt(const CStockTable& table)
{
    return std::make_unique<CQtPeer>(table);
}
