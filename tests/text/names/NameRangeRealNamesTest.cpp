#include "platform/base/Encoding.h"
#include "settings/form/FormItem.h"
#include "text/names/NameRange.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <set>

namespace utility
{
namespace
{

constexpr const char* DEMOS = "/usr/share/kicad/demos"; // package kicad-demos

using CNames = std::set<std::u16string>;

/// "#PWR01" does, "R10" and "R0" do not.
bool BeginsWithZero(const std::u16string& name)
{
    CString stem;
    CString tail;
    int number = 0;
    int width = 0;
    CNameRange::GetStem(CString(name), stem, number, width, tail);
    return width > 1 && name[static_cast<std::size_t>(stem.GetLength())] == u'0';
}

/// The name of a placed symbol; the closing of the form skips what else it holds.
void TakeReference(CFormItem& symbol, CNames& names)
{
    while (CFormItem* property = symbol.OpenNext())
    {
        CString key;
        CString value;
        if (property->Name() == u"property" && property->Read(key) && key == u"Reference" &&
            property->Read(value) && !value.IsEmpty())
            names.emplace(value.View());
        property->End();
    }
}

/// The names of the symbols that a schematic places.
CNames ReadNames(const std::filesystem::path& schematic)
{
    CNames names;
    CFormImportReader reader;
    EXPECT_TRUE(reader.Open(FromUtf8(schematic.string())));
    CFormItem root(&reader);
    CFormItem* sheet = root.OpenNext();
    EXPECT_TRUE(sheet && sheet->Name() == u"kicad_sch");
    while (CFormItem* item = sheet ? sheet->OpenNext() : nullptr)
    {
        if (item->Name() == u"symbol")
            TakeReference(*item, names);
        item->End();
    }
    if (sheet)
        sheet->End();
    return names;
}

CNames Walk(CNameRange& range)
{
    CNames names;
    POSITION position = nullptr;
    for (CString name = range.First(position); !name.IsEmpty(); name = range.Next(position))
        names.emplace(name.View());
    return names;
}

/// The compact text of the names, each added alone.
CString Compact(const CNames& names, bool ordered)
{
    CNameRange range(u'[', u']', u'-', u',', true, ordered);
    for (const std::u16string& name : names)
        range.Add(CString(name));
    return range.GetString();
}

CNames ReadBack(const CString& text)
{
    CNameRange range;
    range.SetString(text);
    EXPECT_TRUE(range.IsValid());
    return Walk(range);
}

/// What the rule for widths makes of numbers with zeros in front: no fault, but good to see.
void PrintReading(const std::filesystem::path& schematic, const CNames& names)
{
    const CString text = Compact(names, false);
    std::cout << schematic.filename().string() << ": " << ToUtf8(text.View()) << '\n';
    const CNames read = ReadBack(text);
    std::string changed;
    for (const std::u16string& name : names)
    {
        if (!read.contains(name))
            changed += ' ' + ToUtf8(name);
    }
    if (!changed.empty())
        std::cout << "  read otherwise:" << changed << '\n';
}

TEST(NameRangeRealNamesTest, NamesOfEverySchematicComeBackWhole)
{
    ASSERT_TRUE(std::filesystem::exists(DEMOS)) << "install kicad-demos: dev/packages.sh test";
    int schematics = 0;
    int whole = 0;
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(DEMOS))
    {
        if (entry.path().extension() != ".kicad_sch")
            continue;
        SCOPED_TRACE(entry.path().string());
        const CNames names = ReadNames(entry.path());
        ++schematics;
        count += names.size();

        CNames plain; // whose numbers begin with no zero
        for (const std::u16string& name : names)
        {
            if (!BeginsWithZero(name))
                plain.insert(name);
        }
        for (const bool ordered : {false, true})
            EXPECT_EQ(ReadBack(Compact(plain, ordered)), plain);
        if (plain == names)
            ++whole;
        else
            PrintReading(entry.path(), names);
    }
    std::cout << count << " names in " << schematics << " schematics, " << whole
              << " without zeros in front of a number\n";
    EXPECT_GT(schematics, 25);
    EXPECT_GT(count, 500U);
    EXPECT_GT(whole, 0);
}

} // namespace
} // namespace utility
