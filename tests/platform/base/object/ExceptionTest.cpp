#include "platform/base/object/Exception.h"

#include "platform/base/object/ArchiveException.h"
#include "platform/base/object/InvalidArgException.h"
#include "platform/base/object/MemoryException.h"
#include "platform/base/object/OleException.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

class CCountedException : public CException
{
public:
    explicit CCountedException(int& deleted) : m_Deleted(deleted) {}
    ~CCountedException() override { ++m_Deleted; }

    CString GetErrorText() const override { return u"12345"; }

private:
    int& m_Deleted;
};

} // namespace

TEST(ExceptionTest, GuardDeletesWhatWasCaughtByItsBase)
{
    int deleted = 0;
    try
    {
        throw new CCountedException(deleted);
    }
    catch (CException* exception)
    {
        const CExceptionGuard guard(exception);
        EXPECT_EQ(deleted, 0);
    }
    EXPECT_EQ(deleted, 1);
}

TEST(ExceptionTest, WordsAreCutToTheBuffer)
{
    int deleted = 0;
    const CCountedException exception(deleted);
    char16_t buffer[4] = {u'x', u'x', u'x', u'x'};

    EXPECT_TRUE(exception.GetErrorMessage(buffer, 4));
    EXPECT_EQ(CString(buffer), u"123");
    EXPECT_FALSE(exception.GetErrorMessage(buffer, 0));
    EXPECT_EQ(buffer[0], u'1');
    EXPECT_FALSE(CArchiveException().GetErrorMessage(buffer, 4));
    EXPECT_EQ(buffer[0], 0);
}

TEST(ExceptionTest, EachKindIsThrownWithItsRecordAndWords)
{
    const struct
    {
        void (*m_Throw)();
        const CRuntimeClass* m_Class;
        const char16_t* m_Words;
    } cases[] = {
        {[] { AfxThrowInvalidArgException(); }, RUNTIME_CLASS(CInvalidArgException), u"argument"},
        {[] { AfxThrowMemoryException(); }, RUNTIME_CLASS(CMemoryException), u"memory"},
        {[] { AfxThrowOleException(-2147467259); }, RUNTIME_CLASS(COleException), u"0x80004005"},
        {[] { AfxThrowArchiveException(CArchiveException::writeOnly); },
         RUNTIME_CLASS(CArchiveException), u"writing only"},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Class->m_lpszClassName);
        try
        {
            row.m_Throw();
            ADD_FAILURE() << "nothing was thrown";
        }
        catch (CException* exception)
        {
            const CExceptionGuard guard(exception);
            EXPECT_EQ(exception->GetRuntimeClass(), row.m_Class);
            EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CException)));
            EXPECT_GE(exception->GetErrorText().Find(row.m_Words), 0);
        }
    }
}

} // namespace utility
