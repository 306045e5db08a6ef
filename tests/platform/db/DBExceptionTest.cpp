#include "platform/db/DBException.h"

#include "DatabaseFixture.h"
#include "support/RecordingConnection.h"

namespace utility
{

TEST(DBExceptionTest, RefusalOfAStoppedStatementIsAStopUnlessTheDriverTellsAnother)
{
    const struct
    {
        const char* Name;
        bool WasStopped;
        std::vector<CDiagnostic> Diagnostics;
        EDBFailure Failure;
        const char* State;
    } cases[] = {
        {"stopped, without words", true, {}, EDBFailure::Cancelled, "HY008"},
        {"stopped too late to fail",
         true,
         {{u"HY010", 0, u"[DM]Function sequence error"}},
         EDBFailure::Cancelled,
         "HY008"},
        {"stopped, and told as no fault",
         true,
         {{u"00000", 0, u""}},
         EDBFailure::Cancelled,
         "HY008"},
        {"stopped, in the driver's words",
         true,
         {{u"57014", 1, u"canceling statement due to user request"}},
         EDBFailure::Cancelled,
         "57014"},
        {"stopped, but lost",
         true,
         {{u"08S01", 1, u"no connection"}},
         EDBFailure::NoServer,
         "08S01"},
        {"out of sequence by a fault of ours",
         false,
         {{u"HY010", 0, u"[DM]Function sequence error"}},
         EDBFailure::Other,
         "HY010"},
    };
    for (const auto& item : cases)
    {
        SCOPED_TRACE(item.Name);
        std::vector<CString> sent;
        CRecordingStatement statement(sent);
        statement.m_WasStopped = item.WasStopped;
        statement.m_Diagnostics = item.Diagnostics;

        const CRefusal refusal =
            RefusalOf([&] { AfxThrowDBException(SQL_ERROR, nullptr, &statement); });

        EXPECT_EQ(refusal.Failure, item.Failure) << refusal.Text;
        EXPECT_EQ(refusal.State, item.State);
    }
}

} // namespace utility
