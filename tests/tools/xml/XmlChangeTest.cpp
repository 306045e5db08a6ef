#include "utility/xml/XmlChange.h"

#include "platform/base/Encoding.h"

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"
#include "utility/command/Command.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

/// A call that names the file as the shell does.
CCommandCall CallFor(const CTemporaryFolder& folder, bool force)
{
    CCommandCall call;
    call.AddArgument(FromUtf8((folder.GetNativePath() / "a.xml").string()));
    if (force)
        call.AddFlag("force");
    return call;
}

/// What somebody else does to the file, in a process of his own.
void ChangeElsewhere(const CTemporaryFolder& folder, std::string_view bytes)
{
    CChildProcess other(
        [&]
        {
            folder.MakeFile(u"a.xml", bytes);
            return 0;
        });
    ASSERT_EQ(other.Wait(), 0);
}

// The other's file has the same length and, most likely, the same second.
TEST(XmlChangeTest, WhatAnotherProcessWroteMeanwhileIsReplacedByForceAlone)
{
    for (const bool force : {false, true})
    {
        SCOPED_TRACE(force);
        const CTemporaryFolder folder;
        folder.MakeFile(u"a.xml", "<a>1</a>");
        {
            const CCommandCall call = CallFor(folder, force);
            CXmlChange change(call, 0);
            ASSERT_TRUE(change.Load());
            change.GetSettings().SetValue(u"", u"a", u"2");
            ChangeElsewhere(folder, "<a>3</a>");

            EXPECT_EQ(change.Save(), force);
        }
        EXPECT_EQ(folder.Read(u"a.xml").find("<a>2</a>") != std::string::npos, force);
        EXPECT_EQ(folder.Read(u"a.xml") == "<a>3</a>", !force);
    }
}

TEST(XmlChangeTest, AFileThatCameToBeMeanwhileStays)
{
    const CTemporaryFolder folder;
    const CCommandCall call = CallFor(folder, false);
    CXmlChange change(call, 0);
    ASSERT_TRUE(change.LoadOrMake());
    change.GetSettings().SetValue(u"", u"a", u"2");
    ChangeElsewhere(folder, "<a>3</a>");

    EXPECT_FALSE(change.Save());

    EXPECT_EQ(folder.Read(u"a.xml"), "<a>3</a>");
}

TEST(XmlChangeTest, AFileLeftAloneIsSavedAsOftenAsWanted)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"a.xml", "<a>1</a>");
    const CCommandCall call = CallFor(folder, false);
    CXmlChange change(call, 0);
    ASSERT_TRUE(change.Load());
    for (const char16_t* value : {u"2", u"3"})
    {
        change.GetSettings().SetValue(u"", u"a", value);
        EXPECT_TRUE(change.Save());
    }
    EXPECT_NE(folder.Read(u"a.xml").find("<a>3</a>"), std::string::npos);
}

} // namespace

} // namespace utility
