#include "DeskSettings.h"

#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

using namespace utility;

namespace partsdesk
{

TEST(DeskSettingsTest, WhatWasSavedIsLoadedAgain)
{
    const CSettingsSandbox sandbox;
    CDeskSettings saved;
    saved.m_Columns = 7;
    saved.m_IdleMilliseconds = 25;
    saved.m_Pitch = u"0.1 inch";
    saved.m_Database = u"\\stock\\parts.db";
    saved.Save();

    CDeskSettings loaded;
    loaded.Load();

    EXPECT_EQ(loaded.m_Columns, 7);
    EXPECT_EQ(loaded.m_IdleMilliseconds, 25);
    EXPECT_EQ(loaded.m_Pitch, u"0.1 inch");
    EXPECT_EQ(loaded.m_Database, u"\\stock\\parts.db");
}

TEST(DeskSettingsTest, DefaultsStandForWhatIsAbsentOrGarbage)
{
    const CSettingsSandbox sandbox;
    CAppRegistry registry(u"Desk");
    registry.SetValue(u"Columns", -3);
    registry.SetValue(u"IdleMilliseconds", 100000);
    registry.SetValue(u"Pitch", u"wide");

    CDeskSettings loaded;
    loaded.Load();

    EXPECT_EQ(loaded.m_Columns, 4);
    EXPECT_EQ(loaded.m_IdleMilliseconds, 10);
    EXPECT_EQ(loaded.m_Pitch, u"2.54 mm");
    EXPECT_EQ(loaded.m_Database, u"");
}

TEST(DeskSettingsTest, APitchIsALengthAboveNothing)
{
    const struct
    {
        const char16_t* m_Text;
        double m_Millimetres; // 0: refused
    } rows[] = {
        {u"2.54 mm", 2.54}, {u"2.54", 2.54}, {u"100 thou", 2.54}, {u"0.1 inch", 2.54}, {u"0", 0},
        {u"-1 mm", 0},      {u"", 0},        {u"wide", 0}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        double millimetres = 0;
        EXPECT_EQ(ReadPitch(row.m_Text, millimetres), row.m_Millimetres != 0);
        EXPECT_NEAR(millimetres, row.m_Millimetres, 1e-9);
    }
}

TEST(DeskSettingsTest, ABodyIsAsLongAsItsRows)
{
    EXPECT_EQ(BodyLength(8, 2.54), u"10.16 mm (400 thou)");
    EXPECT_EQ(BodyLength(3, 2.54), u"2.54 mm (100 thou)");
    EXPECT_EQ(BodyLength(1, 2.54), u"");
    EXPECT_EQ(BodyLength(0, 2.54), u"");
}

} // namespace partsdesk
