#include "platform/base/object/Archive.h"
#include "platform/base/object/ArchiveException.h"
#include "platform/system/file/File.h"
#include "settings/form/FormExportWriter.h"
#include "settings/form/FormItem.h"
#include "text/numbers/LengthUnit.h"

#include "support/PrintText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

using E = EBaseLengthUnit;

class LengthUnitStoreTest : public testing::Test
{
protected:
    static CLengthUnit MakeUnit()
    {
        CLengthUnit unit(E::Millimetre, 2.0, true, false);
        unit.SetShortName(u"h");
        unit.SetDecimalChar(u',');
        return unit;
    }
    CTemporaryFolder m_Folder;
};

TEST_F(LengthUnitStoreTest, FormTextComesBack)
{
    CFormExportWriter writer;
    ASSERT_TRUE(writer.Open(m_Folder.PathOf(u"a.frm")));
    writer.OpenForm(u"Unit", true);
    EXPECT_TRUE(MakeUnit().ExportContents(writer, true));
    writer.Close();
    EXPECT_EQ(m_Folder.Read(u"a.frm"), "(Unit\r\n  (Base 3)\r\n  (UnitsPerBase 2)\r\n"
                                       "  (Name \"(mm/2.000000)\")\r\n  (ShName \"h\")\r\n"
                                       "  (Precision 2)\r\n  (NoTrailing)\r\n  (WantRounding)\r\n"
                                       "  (DecChar \",\")\r\n)\r\n");

    CFormImportReader reader;
    ASSERT_TRUE(reader.Open(m_Folder.PathOf(u"a.frm")));
    CFormItem root(&reader);
    CFormItem* item = root.OpenNext();
    ASSERT_TRUE(item);
    CLengthUnit read;
    EXPECT_TRUE(read.Import(item));
    item->End();
    EXPECT_TRUE(read == MakeUnit());
}

TEST_F(LengthUnitStoreTest, ArchiveBytesComeBackInBothVersions)
{
    using namespace std::string_literals;
    const std::string head = "\x03\0\0\0\0\0\0\0\0\0\0\x40\xFF\xFE\xFF\x0D"
                             "(\0m\0m\0/\0\x32\0.\0\x30\0\x30\0\x30\0\x30\0\x30\0\x30\0)\0"
                             "\xFF\xFE\xFF\x01h\0\x02\0\0\0\0\x01"s;
    for (const int version : {1, 2})
    {
        SCOPED_TRACE(version);
        CLengthUnit unit = MakeUnit();
        {
            CFile file(m_Folder.PathOf(u"a"), CFile::modeCreate | CFile::modeWrite);
            CArchive archive(&file, CArchive::store);
            unit.Serialize(archive, version);
        }
        EXPECT_EQ(m_Folder.Read(u"a"), version == 1 ? head : head + ",\0"s);

        CFile file(m_Folder.PathOf(u"a"), CFile::modeRead);
        CArchive archive(&file, CArchive::load);
        CLengthUnit read;
        read.Serialize(archive, version);
        EXPECT_EQ(read.GetDecimalChar(), version == 1 ? u'.' : u',');
        read.SetDecimalChar(u',');
        EXPECT_TRUE(read == unit);
    }
    CFile file(m_Folder.MakeFile(u"cut", head.substr(0, 30)), CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    CLengthUnit kept;
    int cause = 0;
    try
    {
        kept.Serialize(archive, 2);
    }
    catch (CArchiveException* exception)
    {
        const CExceptionGuard guard(exception);
        cause = exception->m_cause;
    }
    EXPECT_EQ(cause, CArchiveException::endOfFile);
    EXPECT_TRUE(kept == CLengthUnit());
}

TEST_F(LengthUnitStoreTest, ItemsComeInAnyOrderAndCaseAndStrangersAreIgnored)
{
    const CString path = m_Folder.MakeFile(
        u"a.frm", "(Unit (decchar \";x\") (Fathom 3) (NOTRAILING) (shname \"s\") (Base 8) "
                  "(Precision 5) (base -1) (Name \"n\") (unitsperbase 0.5))\r\n");
    CFormImportReader reader;
    ASSERT_TRUE(reader.Open(path));
    CFormItem root(&reader);
    CFormItem* item = root.OpenNext();
    ASSERT_TRUE(item);
    CLengthUnit unit(E::Centimetre, 1.0, true, true);

    EXPECT_TRUE(unit.Import(item));

    item->End();
    EXPECT_EQ(unit.GetBaseUnit(), E::Centimetre);
    EXPECT_EQ(unit.GetUnitsPerBaseUnit(), 0.5);
    EXPECT_EQ(unit.GetName(), CString(u"n"));
    EXPECT_EQ(unit.GetShortName(), CString(u"s"));
    EXPECT_EQ(unit.GetPrecision(), 5);
    EXPECT_FALSE(unit.GetWantTrailingZeros());
    EXPECT_FALSE(unit.GetWantRoundingIndicator()) << "off unless the form asks for it";
    EXPECT_EQ(unit.GetDecimalChar(), u';');
}

TEST_F(LengthUnitStoreTest, NoDecimalCharacterIsAnEmptyText)
{
    CLengthUnit unit;
    unit.SetDecimalChar(0);
    CFormExportWriter writer;
    ASSERT_TRUE(writer.Open(m_Folder.PathOf(u"a.frm")));
    writer.OpenForm(u"Unit", true);
    EXPECT_TRUE(unit.ExportContents(writer, true));
    writer.Close();
    EXPECT_EQ(m_Folder.Read(u"a.frm"),
              "(Unit\r\n  (Base 1)\r\n  (UnitsPerBase 1)\r\n  (Name \"thou\")\r\n"
              "  (ShName \"thou\")\r\n  (Precision 1)\r\n  (DecChar \"\")\r\n)\r\n");

    CFormImportReader reader;
    ASSERT_TRUE(reader.Open(m_Folder.PathOf(u"a.frm")));
    CFormItem root(&reader);
    CFormItem* item = root.OpenNext();
    ASSERT_TRUE(item);
    CLengthUnit read;
    EXPECT_TRUE(read.Import(item));
    item->End();
    EXPECT_TRUE(read == unit);
}

} // namespace
} // namespace utility
