#include "platform/base/Encoding.h"
#include "platform/base/collections/StringArray.h"
#include "settings/xml/XMLSettings.h"

#include "support/PrintText.h"

#include <gtest/gtest.h>

#include <random>

using namespace utility;

namespace
{

TEST(XMLCodingTest, EveryEntityUnderEveryBit)
{
    struct
    {
        int m_Encodings;
        const char16_t* m_Text;
        const char16_t* m_Encoded;
        const char16_t* m_Decoded; // of the encoded
    } const rows[] = {
        {0, u"&<>\"'", u"&<>\"'", u"&<>\"'"},
        {2, u"&", u"&amp;", u"&"},
        {2, u"<", u"&lt;", u"<"},
        {2, u">", u"&gt;", u">"},
        {2, u"\"", u"&quot;", u"\""},
        {2, u"'", u"&apos;", u"'"},
        {4, u"&", u"&#x26;#x26;", u"&#x26;"},
        {4, u"<", u"&#x26;#x3c;", u"&#x3c;"},
        {4, u">", u"&#x3e;", u">"},
        {4, u"\"", u"&#x27;", u"'"},
        {4, u"'", u"&#x22;", u"\""},
        {6, u"&>", u"&#x26;#x26;&#x3e;", u"&#x26;>"},
        {2, u"a & b<c", u"a &amp; b&lt;c", u"a & b<c"},
        {2, u"&&#65;&", u"&amp;&#65;&amp;", u"&A&"},
        {4, u"&#65;", u"&#65;", u"A"},
        {2, u"&amp;", u"&amp;amp;", u"&amp;"},
        {2, u"", u"", u""},
        {8, u"&<", u"&<", u"&<"},
        {18, u"&<>\"'&#1;", u"&amp;<>\"'&#1;", u"&<>\"'\x01"},
        {20, u"&<>\"'", u"&#x26;#x26;<>\"'", u"&#x26;<>\"'"},
        {16, u"&<", u"&<", u"&<"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::Message()
                     << row.m_Encodings << " " << testing::PrintToString(CString(row.m_Text)));
        const CString encoded = CXMLSettings::EncodeString(row.m_Encodings, row.m_Text);
        EXPECT_EQ(encoded, row.m_Encoded);
        EXPECT_EQ(CString(CXMLSettings::DecodeString(row.m_Encodings, encoded)), row.m_Decoded);
    }
}

TEST(XMLCodingTest, FilesCarryValuesAndAttributesAsTheBitsSay)
{
    struct
    {
        int m_Encodings;
        const char16_t* m_Line;
    } const rows[] = {
        {0, u"<a x=\"&<\">&<'</a>\n"},
        {2, u"<a x=\"&<\">&amp;&lt;&apos;</a>\n"},
        {4, u"<a x=\"&<\">&#x26;#x26;&#x26;#x3c;&#x22;</a>\n"},
        {16, u"<a x=\"&<\">&<'</a>\n"},
        {18, u"<a x=\"&amp;<\">&amp;&lt;&apos;</a>\n"},
        {20, u"<a x=\"&#x26;#x26;<\">&#x26;#x26;&#x26;#x3c;&#x22;</a>\n"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Encodings);
        CXMLSettings settings;
        EXPECT_EQ(settings.SetEncodings(row.m_Encodings), 0);
        settings.SetValue(u"", u"a", u"&<'");
        settings.SetAttributesString(u"a", u"x=\"&<\"");
        CStringArray lines;
        settings.SaveXML(&lines, -1);
        ASSERT_EQ(lines.GetSize(), 1);
        EXPECT_EQ(lines[0], row.m_Line);
    }
}

/// Texts of the units that matter here, without what is known not to come back: white space alone,
/// line ends, lone surrogates, "&#".
CString RandomValue(std::mt19937& random)
{
    constexpr std::u16string_view UNITS = u"&<>\"';#ax -!/?=\tampltqu\u00E9\u03A9";
    std::u16string text;
    for (unsigned length = random() % 12; length > 0; --length)
    {
        text += UNITS[random() % UNITS.size()];
        if (random() % 16 == 0)
            text += u"\U0001F600";
    }
    while (text.find(u"&#") != std::u16string::npos)
        text.erase(text.find(u"&#"), 1);
    return text.find_first_not_of(u" \t") == std::u16string::npos
               ? CString()
               : CString(std::u16string_view(text));
}

TEST(XMLCodingTest, TreesComeBackUnderNamedEntities)
{
    std::mt19937 random(4);
    for (int round = 0; round < 500; ++round)
    {
        SCOPED_TRACE(round);
        CXMLSettings settings;
        settings.SetEncodings(2);
        void* element = settings.AddNewElement(u"", u"top");
        for (unsigned count = random() % 20; count > 0; --count)
        {
            CString name;
            name.Format(u"n%d", static_cast<int>(random() % 5));
            void* child = settings.AddNewElementByHandle(element, name);
            settings.SetAttributesString(child, random() % 2 ? u"a=\"1\" b='x'" : u"");
            if (random() % 3 == 0)
                element = child;
            else
                settings.SetValueByHandle(element, name, RandomValue(random));
        }
        CStringArray lines;
        settings.SaveXML(&lines, -1);
        CString first;
        settings.WriteXMLtoString(first);
        for (CString& line : lines)
            line.TrimRight(u'\n');

        CXMLSettings back;
        back.SetEncodings(2);
        back.LoadXML(&lines);

        CString second;
        back.WriteXMLtoString(second);
        EXPECT_FALSE(back.HasParseError());
        EXPECT_EQ(second, first);
    }
}

} // namespace
