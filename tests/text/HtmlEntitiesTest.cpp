#include "text/HtmlEntities.h"

#include "platform/base/Encoding.h"
#include "platform/base/String.h"

#include "support/FuzzCorpus.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

CString Decode(const CString& text)
{
    CString out = text;
    char16_t* buffer = out.GetBuffer(text.GetLength());
    const unsigned int length = DecodeHtmlEntitiesUtf8(buffer, buffer);
    out.ReleaseBuffer(static_cast<int>(length));
    return out;
}

} // namespace

TEST(HtmlEntitiesTest, NamesAndNumbersBecomeTheirCharacters)
{
    const struct
    {
        const char16_t* m_In;
        const char16_t* m_Out;
    } cases[] = {
        {u"", u""},
        {u"R&amp;D", u"R&D"},
        {u"&lt;&gt;&quot;&apos;&nbsp;", u"<>\"'\u00A0"},
        {u"&AElig;&zwnj;&zwj;&thetasym;&Omega;&omega;", u"\u00C6\u200C\u200D\u03D1\u03A9\u03C9"},
        {u"&sup2;&frac12;&there4;", u"\u00B2\u00BD\u2234"},
        {u"&#x27;&#x22;&#X3A9;&#937;&#0065;", u"'\"\u03A9\u03A9A"},
        {u"&#x1F600;", u"\U0001F600"},
        {u"&#x10FFFF;", u"\U0010FFFF"},
        {u"&amp;lt;", u"&lt;"}, // once
        {u"&amp;&amp", u"&&amp"},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(ToUtf8(row.m_In));
        EXPECT_EQ(Decode(row.m_In), row.m_Out);
    }
}

TEST(HtmlEntitiesTest, WhatIsNoEntityStaysAsText)
{
    const char16_t* const cases[] = {
        u"&",     u"&;",       u"&#",       u"&#;",        u"&#x;",
        u"&#x",   u"&lt",      u"&LT;",     u"&omega2;",   u"&thetasymx;",
        u"&#0;",  u"&#xD800;", u"&#xDFFF;", u"&#x110000;", u"&#99999999999999999999;",
        u"&#-1;", u"&#12a;",   u"& amp;",   u"&amp ;",     u"&&;",
    };

    for (const char16_t* text : cases)
    {
        SCOPED_TRACE(ToUtf8(text));
        EXPECT_EQ(Decode(text), text);
    }
}

TEST(HtmlEntitiesTest, FuzzCorpusNeverGrows)
{
    const std::vector<CString> corpus = ReadFuzzCorpus("HtmlEntities");
    EXPECT_GE(corpus.size(), 2U);
    for (const CString& text : corpus)
        EXPECT_LE(Decode(text).GetLength(), text.GetLength());
}

} // namespace utility
