#include "Peer.h"

#include <array>
#include <ctime>
#include <soci/soci.h>

using utility::EServer;

namespace
{

constexpr int FIRST_YEAR = 1900; // of std::tm

std::string BackendOf(const CStockTable& table)
{
    switch (table.GetServer())
    {
    case EServer::SQLite:
        return "sqlite3";
    case EServer::PostgreSQL:
        return "postgresql";
    case EServer::MariaDB:
        return "mysql";
    }
    return {};
}

std::string ConnectOf(const CStockTable& table)
{
    switch (table.GetServer())
    {
    case EServer::SQLite:
        return "dbname=" + table.GetKey(u"Database");
    case EServer::PostgreSQL:
        return "host=" + table.GetKey(u"Servername") + " dbname=" + table.GetKey(u"DATABASE") +
               " user=" + table.GetKey(u"Username");
    case EServer::MariaDB:
        return "unix_socket=" + table.GetKey(u"SOCKET") + " db=" + table.GetKey(u"DATABASE") +
               " user=root charset=utf8mb4";
    }
    return {};
}

class CSociPeer : public IPeer
{
public:
    explicit CSociPeer(const CStockTable& table) : m_Session(BackendOf(table), ConnectOf(table)) {}

    const char* GetName() const override { return "SOCI"; }

    CTotal ReadRows(int most) override
    {
        std::array<long long, 3> numbers{};
        std::array<std::string, 6> texts;
        std::array<double, 2> reals{};
        std::tm made{};
        soci::statement rows =
            (m_Session.prepare << CStockTable::SELECT, soci::into(numbers[0]), soci::into(texts[0]),
             soci::into(texts[1]), soci::into(texts[2]), soci::into(texts[3]), soci::into(texts[4]),
             soci::into(reals[0]), soci::into(reals[1]), soci::into(numbers[1]), soci::into(made),
             soci::into(texts[5]), soci::into(numbers[2]));
        CTotal total;
        bool isRow = rows.execute(true);
        while (isRow)
        {
            ++total.Rows;
            total.Numbers += numbers[0] + numbers[1] + numbers[2];
            for (const std::string& text : texts)
                total.TextUnits += static_cast<std::int64_t>(text.size());
            total.Reals += reals[0] + reals[1];
            total.Years += made.tm_year + FIRST_YEAR;
            isRow = total.Rows < most && rows.fetch();
        }
        return total;
    }

private:
    soci::session m_Session;
};

} // namespace

std::unique_ptr<IPeer> ConnectSoci(const CStockTable& table)
{
    return std::make_unique<CSociPeer>(table);
}
