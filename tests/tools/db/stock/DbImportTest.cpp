#include "platform/base/Encoding.h"

#include "support/DatabaseServers.h"
#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

// Two libraries with all that an import has to tell apart: unit bodies, another drawing of the same
// pins, symbols that extend, the same name in both, and texts beyond ASCII.
constexpr char AMPLIFIERS[] = R"lib((kicad_symbol_lib (version 20211014) (generator test)
  (symbol "LM358" (pin_names (offset 0.127)) (in_bom yes)
    (property "Reference" "U" (id 0) (at 0 5.08 0) (effects (font (size 1.27 1.27))))
    (property "Value" "LM358" (id 1))
    (property "ki_description" "Dual \"op\" amp (2 MΩ, µA, 漢)" (id 4))
    (symbol "LM358_0_1" (pin power_in line (at 0 0 0) (name "V+") (number "8")))
    (symbol "LM358_1_1" (pin input line (name "-" (effects)) (number "2")) (pin output line (number "1")))
    (symbol "LM358_1_2" (pin input line (number "2")) (pin output line (number "1")))
    (symbol "LM358_2_1" (pin input line (number "6"))))
  (symbol "LM2904" (extends "LM358") (property "Value" "LM2904"))
  (symbol "TL072" (extends "LM2904")))
)lib";
constexpr char OTHERS[] = "(kicad_symbol_lib (symbol \"LM358\" (property \"Value\" \"other\")))\n";

/// A folder "lib" of the two libraries, and what runs on it gives.
class DbImportTest : public testing::Test
{
protected:
    DbImportTest()
    {
        m_Tool.RunLine("mkdir lib");
        Write("Amp", AMPLIFIERS);
        Write("Other", OTHERS);
    }

    void Write(const std::string& library, const std::string& text)
    {
        m_Tool.RunLine("cat >lib/" + library + ".kicad_sym", text);
    }

    /// The first words of an import's line: "4 symbols in 2 libraries, 4 rows changed (...)".
    std::string Import()
    {
        const CToolRun run = m_Tool.Run({"db", "import-symbols", "lib"});
        return run.m_Errors +
               run.m_Output.substr(0, run.m_Output.rfind(", ", run.m_Output.rfind(", ") - 1));
    }

    std::string Rows(const std::string& columns = "Library,Name,Value,Extends,Pins,Units")
    {
        return m_Tool.Run({"db", "query", "Symbols", "--columns", columns, "--csv"}).m_Output;
    }

    CToolSandbox m_Tool;
};

TEST_F(DbImportTest, EachTopLevelSymbolIsARowAndTakesPinsFromWhatItExtends)
{
    EXPECT_EQ(Import(), "4 symbols in 2 libraries, 4 rows changed (4 added, 0 mended, 0 deleted)");

    EXPECT_EQ(Rows(), "Library,Name,Value,Extends,Pins,Units\n"
                      "Amp,LM358,LM358,,4,2\n"
                      "Amp,LM2904,LM2904,LM358,4,2\n"
                      "Amp,TL072,,LM2904,4,2\n"
                      "Other,LM358,other,,0,0\n");
}

TEST_F(DbImportTest, LaterImportsWriteOnlyWhatDiffers)
{
    Import();
    const std::string first = Rows();
    EXPECT_EQ(Import(), "4 symbols in 2 libraries, 0 rows changed");
    EXPECT_EQ(Rows(), first);

    Write("Other", "(kicad_symbol_lib (symbol \"BC547\") (symbol \"lm358\"))\n");
    EXPECT_EQ(Import(), "5 symbols in 2 libraries, 3 rows changed (2 added, 0 mended, 1 deleted)");
    Write("Amp", "(kicad_symbol_lib (symbol \"LM358\" (property \"Value\" \"new\")))\n");
    EXPECT_EQ(Import(), "3 symbols in 2 libraries, 3 rows changed (0 added, 1 mended, 2 deleted)");

    EXPECT_EQ(Rows("Library,Name,Value,Pins"), "Library,Name,Value,Pins\n"
                                               "Amp,LM358,new,0\n"
                                               "Other,BC547,,0\n"
                                               "Other,lm358,,0\n");
}

TEST_F(DbImportTest, LongTextsAreStoredWholeAndRefusedBeyondTheirColumn)
{
    const std::string words(2000, 'w');
    Write("Other",
          "(kicad_symbol_lib (symbol \"A\" (property \"ki_keywords\" \"" + words + "\")))");
    Import();
    EXPECT_NE(Rows("Keywords").find("\n" + words + "\n"), std::string::npos);
    EXPECT_EQ(Import(), "4 symbols in 2 libraries, 0 rows changed");

    Write("Other",
          "(kicad_symbol_lib (symbol \"A\" (property \"ki_keywords\" \"" + words + "x\")))");
    EXPECT_EQ(Import(), "utility: lib/Other.kicad_sym: the Keywords of symbol 'A' has 2001 "
                        "characters, of which the table takes 2000\n");
}

TEST_F(DbImportTest, NothingIsStoredWhileAFileIsDamaged)
{
    const struct
    {
        const char* m_Text;
        const char* m_Fault; // behind the file's name
    } cases[] = {
        {"(kicad_symbol_lib\n  (symbol \"A\"\n",
         ":2:3: this bracket is not closed before the end of the file"},
        {"(kicad_symbol_lib (symbol \"A)))\n", ":1:27: "},
        {"(kicad_symbol_lib))\n", ":1:19: this bracket closes nothing"},
        {"(kicad_symbol_lib (symbol \"\xFF\"))\n", ":1:28: this is not well-formed UTF-8"},
    };
    for (const auto& damaged : cases)
    {
        SCOPED_TRACE(damaged.m_Text);
        Write("Zener", damaged.m_Text);

        const CToolRun run = m_Tool.Run({"db", "import-symbols", "lib"});

        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_EQ(run.m_Errors.find(std::string("utility: lib/Zener.kicad_sym") + damaged.m_Fault),
                  0u)
            << run.m_Errors;
        EXPECT_FALSE(m_Tool.GetFolder().Exists(u"parts.db"));
    }
}

TEST_F(DbImportTest, SoundTextThatIsNoLibraryIsRefusedAndEarlierOnesStay)
{
    const struct
    {
        const char* m_Text;
        const char* m_Reason;
    } cases[] = {
        {"(netlist (symbol \"A\"))", "this is no symbol library"},
        {"(kicad_symbol_lib (symbol \"A\" (extends \"B\")))",
         "symbol 'A' extends 'B', which is not in the file"},
        {"(kicad_symbol_lib (symbol \"A\" (extends \"B\")) (symbol \"B\" (extends \"A\")))",
         "symbol 'A' extends itself"},
        {"(kicad_symbol_lib (symbol \"A\") (symbol \"A\"))", "symbol 'A' stands twice in the file"},
    };
    for (const auto& odd : cases)
    {
        SCOPED_TRACE(odd.m_Text);
        Write("Zener", odd.m_Text);
        EXPECT_EQ(Import(), std::string("utility: lib/Zener.kicad_sym: ") + odd.m_Reason + "\n");
        EXPECT_NE(Rows().find("Other,LM358"), std::string::npos);
        EXPECT_EQ(Rows().find("Zener"), std::string::npos);
    }
}

TEST_F(DbImportTest, EveryKindOfSourceTakesTheSameRows)
{
    Import();
    const std::string ask =
        "utility db query Symbols --columns Library,Name,Value,Extends,Pins,Units --csv";
    // Sorted, for each source has an order of its own.
    const std::string rows = m_Tool.RunLine(ask + " | sort").m_Output;
    for (const EServer server : ALL_SERVERS)
    {
        SCOPED_TRACE(NameOf(server));
        const std::string source = ToUtf8(CDatabaseServers::Get().MakeSource(server).View());
        const std::vector<std::string> import = {"db", "import-symbols", "lib", "--into", source};

        EXPECT_EQ(m_Tool.Run(import).m_Errors, "");
        const CToolRun second = m_Tool.Run(import);

        EXPECT_NE(second.m_Output.find(" 0 rows changed, "), std::string::npos)
            << second.m_Output << second.m_Errors;
        EXPECT_EQ(m_Tool.RunLine(ask + " --from '" + source + "' | sort").m_Output, rows);
        EXPECT_EQ(m_Tool.Run({"db", "make-passives", "--into", source}).m_Output.substr(0, 24),
                  "33552 rows in 'Passives'");
    }
}

TEST_F(DbImportTest, RowsAreTheSameInEveryLocale)
{
    Import();
    const std::string rows = Rows("Library,Name,Description");
    ASSERT_NE(rows.find("2 MΩ, µA, 漢"), std::string::npos) << rows;

    ASSERT_EQ(m_Tool
                  .RunLine("mkdir locales && localedef -i de_DE -f ISO-8859-1 "
                           "./locales/de_DE.ISO-8859-1")
                  .m_ExitCode,
              0);
    for (const std::string locale : {"LC_ALL=C", "LOCPATH=$PWD/locales LC_ALL=de_DE.ISO-8859-1"})
    {
        SCOPED_TRACE(locale);
        const CToolRun run =
            m_Tool.RunLine("rm -f parts.db*; " + locale + " utility db import-symbols lib");
        EXPECT_EQ(run.m_ExitCode, 0) << run.m_Errors;
        EXPECT_EQ(Rows("Library,Name,Description"), rows);
    }
}

} // namespace
