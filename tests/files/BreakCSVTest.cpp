#include "files/BreakCSV.h"

#include "files/CsvFileRowMap.h"
#include "frame/AppLog.h"
#include "frame/Application.h"
#include "platform/base/Encoding.h"
#include "platform/system/file/StdioFile.h"
#include "settings/AppRegistry.h"

#include "support/ChildProcess.h"
#include "support/SettingsSandbox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

using CFields = std::vector<std::string>;

CFields Break(CString& line, int limit, char16_t separator)
{
    std::vector<CString> fields(static_cast<std::size_t>(limit) + 1, CString(u"preset"));
    const int count = BreakCSV(line, fields.data(), limit, separator);
    CFields texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(ToUtf8(fields[static_cast<std::size_t>(i)].View()));
    return texts;
}

CFields Texts(const CStringArray& array)
{
    CFields texts;
    for (const CString& text : array)
        texts.push_back(ToUtf8(text.View()));
    return texts;
}

TEST(BreakCSVTest, BreaksALineByItsRules)
{
    const struct
    {
        const char* Line;
        int Limit;
        char16_t Separator;
        CFields Fields;
        const char* Rest = "";
    } cases[] = {
        {"1,2,", 9, u',', {"1", "2", ""}},
        {"\"a,b\",c", 9, u',', {"a,b", "c"}},
        {"\"a\"x,c", 9, u',', {"a", "c"}},
        {"\"a\"x", 9, u',', {"a"}},
        {"1;2", 9, u';', {"1", "2"}},
        {"1,2", 9, u';', {"1,2"}},
        {"", 9, u',', {}},
        {" ", 9, u',', {""}},
        {",", 9, u',', {"", ""}},
        {" a\t, \" b\"", 9, u',', {"a", "\" b\""}},
        {"\" a \",\"\",\"", 9, u',', {" a ", "", ""}},
        {"\"a,b,", 9, u',', {"a,b,", ""}}, // not closed: the field takes all, the separator too
        {"# note", 9, u',', {"# note"}},
        {"a\tb\t", 9, u'\t', {"a", "b", ""}},
        {"a,b,c,", 2, u',', {"a", "b", ""}, "c,"},
        {"a,b,c", 2, u',', {"a", "b"}, "c"},
        {"a,b", 0, u',', {}, "a,b"},
        {"a,", 0, u',', {""}, "a,"},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.Line);
        CString line = FromUtf8(test.Line);
        EXPECT_EQ(Break(line, test.Limit, test.Separator), test.Fields);
        EXPECT_EQ(ToUtf8(line.View()), test.Rest);
    }
}

TEST(BreakCSVTest, FileGoesToHeaderAndRowsByKey)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(
        u"a.csv", "\r\n\nName,Value ,\r\nR1,10k,\n\nR2,\"4k7, 1%\"\r\nR1,22k\nx\n\"\"\n");
    CStringArray header;
    CCsvFileRowMap rows;

    EXPECT_EQ(BreakCSV(path, header, rows, u','), 3);

    EXPECT_EQ(Texts(header), (CFields{"Name", "Value", ""}));
    EXPECT_EQ(rows.GetCount(), 4);
    ASSERT_NE(rows.FindRow(u"R1"), nullptr);
    EXPECT_EQ(Texts(*rows.FindRow(u"R1")), (CFields{"R1", "22k"})) << "the later row is found";
    EXPECT_EQ(Texts(*rows.FindRow(u"R2")), (CFields{"R2", "4k7, 1%"}));
    EXPECT_EQ(Texts(*rows.FindRow(u"")), CFields{""});
    EXPECT_EQ(rows.FindRow(u"r1"), nullptr);
}

TEST(BreakCSVTest, RowsTooShortForTheKeyColumnGoUnderTheEmptyKey)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a.csv", "a;b\n1;x\n2\n3;y");
    for (const int column : {1, -1, 7})
    {
        SCOPED_TRACE(column);
        CStringArray header;
        CCsvFileRowMap rows;
        EXPECT_EQ(BreakCSV(path, header, column, rows, u';'), 2);
        EXPECT_EQ(rows.GetCount(), column == 1 ? 3 : 1);
        ASSERT_NE(rows.FindRow(u""), nullptr);
        EXPECT_EQ(Texts(*rows.FindRow(u"")), column == 1 ? CFields{"2"} : (CFields{"3", "y"}));
    }
}

TEST(BreakCSVTest, AReplacedRowLivesAsLongAsTheMap)
{
    CCsvFileRowMap rows;
    auto first = std::make_unique<CStringArray>();
    const CStringArray* held = first.get();
    first->Add(u"first");

    rows.AddRow(u"k", std::move(first));
    rows.AddRow(u"k", std::make_unique<CStringArray>());

    EXPECT_NE(rows.FindRow(u"k"), held);
    EXPECT_EQ(Texts(*held), CFields{"first"});
}

TEST(BreakCSVTest, WhatCannotBeReadChangesNothing)
{
    const CTemporaryFolder folder;
    const CString paths[] = {folder.PathOf(u"absent"), folder.MakeFolder(u"folder"),
                             folder.MakeFile(u"empty"), folder.MakeFile(u"blank", "\n\r\n\n")};
    for (const CString& path : paths)
    {
        SCOPED_TRACE(ToUtf8(path.View()));
        CStringArray header;
        header.Add(u"preset");
        CCsvFileRowMap rows;
        EXPECT_EQ(BreakCSV(path, header, 0, rows, u','), -1);
        EXPECT_EQ(Texts(header), CFields{"preset"});
        EXPECT_EQ(rows.GetCount(), 0);
    }
}

TEST(BreakCSVTest, AFileHasUpToAThousandFieldsALineAndItsClosingSeparator)
{
    const auto line = [](int fields)
    {
        std::string text = "k";
        for (int i = 1; i < fields; ++i)
            text += ",x";
        return text;
    };
    const struct
    {
        std::string Line;
        int Count;
    } cases[] = {
        {line(999), 999},          {line(1000), 1000},   {line(1000) + ",", 1001},
        {line(1000) + ",y", 1000}, {line(100000), 1000}, {line(100000) + ",", 1001},
    };
    const CTemporaryFolder folder;
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.Count);
        CStringArray header;
        CCsvFileRowMap rows;
        const CString path = folder.MakeFile(u"a.csv", test.Line + "\n" + test.Line);
        EXPECT_EQ(BreakCSV(path, header, rows, u','), test.Count);
        ASSERT_NE(rows.FindRow(u"k"), nullptr);
        EXPECT_EQ(rows.FindRow(u"k")->GetSize(), test.Count);
    }
}

TEST(BreakCSVTest, ALineOfTooManyFieldsIsNamedInTheLog)
{
    if (!IsInFreshProcess())
        return; // the log keeps its contexts for life
    const CSettingsSandbox sandbox;
    const CTemporaryFolder folder;
    CApplication::SetProductName(u"CSV Test");
    CAppRegistry settings(u"Application");
    settings.SetValue(u"Logging", 1);
    settings.SetValue(u"LoggingContext", u"BreakCSV");
    CAppLog::Start();
    std::string bytes = "a,b\n\n";
    for (int i = 0; i < 1001; ++i)
        bytes += "x,";
    const CString path = folder.MakeFile(u"long.csv", bytes + "\n1,2\n");
    CStringArray header;
    CCsvFileRowMap rows;

    EXPECT_EQ(BreakCSV(path, header, rows, u','), 2);

    CStdioFile log(CAppLog::GetLogPath(), CFile::modeRead | CFile::shareDenyNone);
    CString text;
    for (CString line; log.ReadString(line);)
        text += line;
    EXPECT_GE(text.Find(u"Line 3 of " + path + u" has more than 1000 fields"), 0)
        << ToUtf8(text.View());
}

TEST(BreakCSVTest, OddFilesAreReadByTheSameRules)
{
    const struct
    {
        const char* What;
        std::string Bytes;
        CFields Header;
        CFields Row; // under the key "1"
    } cases[] = {
        {"a mark is not skipped",
         "\xEF\xBB\xBF"
         "a\n1",
         {"\xEF\xBB\xBF"
          "a"},
         {"1"}},
        {"a quote ends with its line", "a,\"b\n1,\"2,3\n4", {"a", "b"}, {"1", "2,3"}},
        {"mixed line ends", "a\r\n1,x\ry\n2", {"a"}, {"1", "x\ry"}},
        {"a NUL",
         std::string("a\0b,c\n1,\0\n", 10),
         {std::string("a\0b", 3), "c"},
         {"1", std::string("\0", 1)}},
        {"no line end", "a\n1,", {"a"}, {"1", ""}},
    };
    const CTemporaryFolder folder;
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.What);
        CStringArray header;
        CCsvFileRowMap rows;
        BreakCSV(folder.MakeFile(u"a.csv", test.Bytes), header, rows, u',');
        EXPECT_EQ(Texts(header), test.Header);
        ASSERT_NE(rows.FindRow(u"1"), nullptr);
        EXPECT_EQ(Texts(*rows.FindRow(u"1")), test.Row);
    }
}

} // namespace
