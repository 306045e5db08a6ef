#include "utility/csv/CsvFormat.h"

#include "files/BreakCSV.h"
#include "files/CsvReader.h"
#include "platform/base/Encoding.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>

using namespace utility;

namespace
{

using CFields = std::vector<CString>;

constexpr CCsvFormat FORMATS[] = {{ECsvRules::Reader, u','},
                                  {ECsvRules::Break, u','},
                                  {ECsvRules::Break, u';'},
                                  {ECsvRules::Break, u'\t'}};

CFields ReadBack(const CString& line, const CCsvFormat& format, const CTemporaryFolder& folder)
{
    CFields fields(100);
    int count = 0;
    if (format.m_Rules == ECsvRules::Break)
    {
        CString rest = line;
        count = BreakCSV(rest, fields.data(), 99, format.m_Separator);
    }
    else
    {
        CCsvReader reader(folder.MakeFile(u"line.csv", ToUtf8(line.View()) + "\r\n"),
                          CFile::modeRead);
        count = reader.NextLine();
        for (int i = 0; i < count; ++i)
            fields[static_cast<std::size_t>(i)] = reader.GetField(i);
    }
    fields.resize(static_cast<std::size_t>(count));
    return fields;
}

CFields MakeFields(std::mt19937& random)
{
    constexpr std::u16string_view UNITS = u"ab,;\t\" #\r\n\u00E9";
    CFields fields(1 + random() % 4);
    for (CString& field : fields)
    {
        for (std::size_t length = random() % 4; length > 0; --length)
            field += UNITS[random() % UNITS.size()];
    }
    return fields;
}

// What is composed reads back; a field that is refused holds a quote or a line end.
TEST(CsvFormatTest, ComposedLinesReadBackByTheirRules)
{
    const CTemporaryFolder folder;
    std::mt19937 random(11);
    for (const CCsvFormat& format : FORMATS)
    {
        SCOPED_TRACE(static_cast<int>(format.m_Separator));
        int composed = 0;
        for (int run = 0; run < 500; ++run)
        {
            const CFields fields = MakeFields(random);
            CString line;
            std::size_t refused = fields.size();
            if (!ComposeCsvLine(fields, format, line, refused))
            {
                ASSERT_LT(refused, fields.size());
                EXPECT_GE(fields[refused].FindOneOf(u"\"\n"), 0);
                continue;
            }
            ++composed;
            ASSERT_EQ(ReadBack(line, format, folder), fields) << ToUtf8(line.View());
            EXPECT_EQ(FindCsvFault(line, format), u"");
        }
        EXPECT_GT(composed, 100);
    }
}

TEST(CsvFormatTest, QuotesStandOnlyWhereNeeded)
{
    const struct
    {
        CFields Fields;
        const char16_t* Reader; // null where refused
        const char16_t* Break;
    } cases[] = {
        {{u"a", u"b"}, u"a,b", u"a,b"},
        {{u"a", u""}, u"a,\"\"", u"a,"},
        {{u"", u"a"}, u",a", u",a"},
        {{u""}, u"\"\"", u"\"\""},
        {{u"#1", u"#2"}, u"\"#1\",#2", u"#1,#2"},
        {{u"5\" pipe"}, u"5\" pipe", u"5\" pipe"},
        {{u";5\""}, nullptr, u";5\""},
        {{u"a, b", u" c"}, u"\"a, b\",\" c\"", u"\"a, b\",\" c\""},
        {{u"a", u"\"b\""}, nullptr, nullptr},
        {{u"a\nb"}, nullptr, nullptr},
        {{u"\uFEFFa"}, u"\"\uFEFFa\"", u"\"\uFEFFa\""},
    };
    for (const auto& test : cases)
    {
        for (const ECsvRules rules : {ECsvRules::Reader, ECsvRules::Break})
        {
            const char16_t* const wanted = rules == ECsvRules::Reader ? test.Reader : test.Break;
            SCOPED_TRACE(ToUtf8(test.Fields.front().View()));
            CString line;
            std::size_t refused = 0;
            const bool isComposed = ComposeCsvLine(test.Fields, {rules, u','}, line, refused);
            ASSERT_EQ(isComposed, wanted != nullptr);
            EXPECT_EQ(isComposed ? line : CString(), CString(wanted));
        }
    }
}

TEST(CsvFormatTest, FaultsAreWhatIsLost)
{
    constexpr const char* OPEN = "a quote is not closed";
    constexpr const char* LOST = "what follows a closing quote is lost";
    constexpr const char* DOUBLED = "an empty pair of quotes gives a further empty field";
    const struct
    {
        const char* Line;
        const char* Reader;
        const char* Break;
    } cases[] = {
        {"a,\"b\",c", "", ""},
        {"a,\"b", OPEN, OPEN},
        {"a,\"b\"x,c", LOST, LOST},
        {"\"b\" ,c", LOST, ""},
        {"\"\",c", DOUBLED, ""},
        {"c,\"\"", "", ""},
        {"\"a \"\"b\"\"\"", LOST, LOST},
        {"# \"a", "", ""},
        {";\"a", "", ""},
        {"\"a\"", "", ""},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.Line);
        const CString line = FromUtf8(test.Line);
        EXPECT_EQ(ToUtf8(FindCsvFault(line, {ECsvRules::Reader, u','}).View()), test.Reader);
        EXPECT_EQ(ToUtf8(FindCsvFault(line, {ECsvRules::Break, u','}).View()), test.Break);
    }
}

} // namespace
