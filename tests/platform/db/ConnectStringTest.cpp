#include "platform/db/ConnectString.h"

#include "platform/base/Encoding.h"

#include "support/FuzzCorpus.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(ConnectStringTest, ReadsKeysWithoutCaseAndValuesWithoutBraces)
{
    const CConnectString connect(
        u"odbc;DSN=;Driver={SQLite3}; Pwd = {a;}}b} ;Pwd=second;flag;Path=a=b");

    EXPECT_EQ(connect.Get(u"DRIVER"), u"SQLite3");
    EXPECT_EQ(connect.Get(u"PWD"), u"a;}b") << "the first of a name holds";
    EXPECT_EQ(connect.Get(u"path"), u"a=b");
    EXPECT_TRUE(connect.Has(u"FLAG"));
    EXPECT_TRUE(connect.Has(u"DSN"));
    EXPECT_FALSE(connect.Has(u"Database"));
    EXPECT_EQ(connect.Format(), u"DSN=;Driver={SQLite3};Pwd={a;}}b};Pwd=second;flag;Path={a=b}");
}

TEST(ConnectStringTest, PasswordsAreMaskedWhereverTheyStand)
{
    struct CCase
    {
        const char* Name;
        LPCWSTR Text;
        LPCWSTR Masked;
    };
    for (const CCase& item :
         {CCase{"plain", u"DSN=a;PWD=secret;UID=u", u"DSN=a;PWD=***;UID=u"},
          CCase{"braced", u"PWD={se;cr}}et};UID=u", u"PWD=***;UID=u"},
          CCase{"long name, last", u"UID=u;password=se cret", u"UID=u;password=***"},
          CCase{"both", u"PWD=a;PASSWORD=b", u"PWD=***;PASSWORD=***"},
          CCase{"brace never closed", u"PWD={se;cret", u"PWD=***"},
          CCase{"equals inside", u"Pwd==x;a=b", u"Pwd=***;a=b"},
          CCase{"empty", u"PWD=;a=b", u"PWD=;a=b"},
          CCase{"other keys", u"PWDX=a;MYPASSWORD=b", u"PWDX=a;MYPASSWORD=b"}})
    {
        SCOPED_TRACE(item.Name);
        EXPECT_EQ(ToUtf8(MaskPasswords(item.Text).View()), ToUtf8(item.Masked));
    }
}

// The same as ConnectStringFuzz checks.
TEST(ConnectStringTest, FuzzCorpusReadsBackAsWritten)
{
    const std::vector<CString> corpus = ReadFuzzCorpus("ConnectString");
    ASSERT_FALSE(corpus.empty());
    for (const CString& text : corpus)
    {
        const CString written = CConnectString(text.View()).Format();
        EXPECT_EQ(CConnectString(written.View()).Format(), written) << ToUtf8(text.View());
    }
}

} // namespace utility
