#include "database/DBADatabase.h"
#include "database/DBFieldRules.h"

#include "utility/command/CommandTable.h"
#include "utility/db/DbColumns.h"
#include "utility/db/DbWork.h"
#include "utility/db/map/DbRules.h"
#include "utility/db/map/ParseTypeName.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char RULES_HELP[] =
    "A rule says what the texts of a column mean, so that 4k7, 4.7K and 4700 are one value: "
    "capacitor, resistor, inductor, any (the unit decides) or number. 'utility db query' and "
    "'utility db browse' filter and sort by the rules; --parse counts before them.\n"
    "\n"
    "  utility db rules set Parts Value=any Tolerance=number\n"
    "\n"
    "Rules are kept in the settings of the application, by source and table. show prints them, "
    "without TABLE those of all tables; reset forgets those of the columns, or of the whole table.";

int TellUsage(const CString& problem)
{
    PrintError(problem + u"; see 'utility db rules --help'");
    return RESULT_USAGE;
}

int TellUnwritable()
{
    PrintError(u"the settings cannot be written");
    return RESULT_FAILURE;
}

void PrintRulesJson(const CDbSource& source, const std::vector<CString>& tables)
{
    CJsonWriter json;
    json.BeginArray();
    for (const CString& table : tables)
        for (const CColumnRule& rule : CDbRules(source, table).GetAll())
        {
            json.BeginObject();
            json.Field(u"table", table);
            json.Field(u"column", rule.m_Column);
            json.Field(u"rule", GetParseTypeName(rule.m_Type));
            json.EndObject();
        }
    json.EndArray();
    json.Flush();
    PrintBytes("\n");
}

void PrintRules(const CDbSource& source, const std::vector<CString>& tables)
{
    CTextTable lines;
    lines.AddColumn(u"Table");
    lines.AddColumn(u"Column");
    lines.AddColumn(u"Rule");
    for (const CString& table : tables)
        for (const CColumnRule& rule : CDbRules(source, table).GetAll())
            lines.AddRow({table, rule.m_Column, GetParseTypeName(rule.m_Type)});
    lines.Print();
}

int ShowRules(const CDbSource& source, const CCommandCall& call)
{
    if (call.GetArguments().size() > 2)
        return TellUsage(u"show takes a TABLE alone");
    const std::vector<CString> tables = call.GetArguments().size() > 1
                                            ? std::vector<CString>{call.GetArgument(1)}
                                            : CDbRules::GetTables(source);
    call.WantsJson() ? PrintRulesJson(source, tables) : PrintRules(source, tables);
    return RESULT_OK;
}

/// The rules with their columns as the table spells them; false, and the reason is told, if it has
/// no such column.
bool SpellColumns(CDBADatabase& database, const CString& table, std::vector<CColumnRule>& rules)
{
    const std::vector<CString> columns = ReadColumnNames(database, table);
    for (CColumnRule& rule : rules)
    {
        const int place = ColumnPlace(columns, rule.m_Column);
        if (place < 0)
        {
            TellNoColumn(table, rule.m_Column, columns);
            return false;
        }
        rule.m_Column = columns[static_cast<std::size_t>(place)];
    }
    return true;
}

int SetRules(const CDbSource& source, const CString& table, const std::vector<CString>& words)
{
    std::vector<CColumnRule> rules;
    for (const CString& word : words)
    {
        const std::optional<CColumnRule> rule = ReadColumnRule(word);
        if (!rule)
            return TellUsage(u"'" + word + u"' is no " + COLUMN_RULE_FORM);
        rules.push_back(*rule);
    }
    if (rules.empty())
        return TellUsage(u"a rule is missing: COLUMN=TYPE");
    return RunOn(source, EDbUse::Read,
                 [&](CDBADatabase& database)
                 {
                     if (!SpellColumns(database, table, rules))
                         return RESULT_USAGE;
                     CDbRules kept(source, table);
                     for (const CColumnRule& rule : rules)
                         if (!kept.Set(rule))
                             return TellUnwritable();
                     return RESULT_OK;
                 });
}

/// Without opening the source: rules outlive their columns.
int ResetRules(const CDbSource& source, const CString& table, const std::vector<CString>& columns)
{
    CDbRules rules(source, table);
    if (columns.empty())
        return rules.ResetAll() ? RESULT_OK : TellUnwritable();
    for (const CString& column : columns)
        if (!rules.Set({column, PARSE_NONE}))
            return TellUnwritable();
    return RESULT_OK;
}

int RunRules(const CCommandCall& call)
{
    const CString action = call.GetArgument(0);
    const CDbSource source = SourceToRead(call);
    if (action == u"show")
        return ShowRules(source, call);
    if (call.GetArguments().size() < 2)
        return TellUsage(action + u" needs a TABLE");
    const std::vector<CString> words(call.GetArguments().begin() + 2, call.GetArguments().end());
    return action == u"set" ? SetRules(source, call.GetArgument(1), words)
                            : ResetRules(source, call.GetArgument(1), words);
}

} // namespace

std::vector<CCommand> DbRulesCommands()
{
    return {
        {"db",
         "rules",
         "Show or change what the texts of a table's columns mean",
         RULES_HELP,
         {{"ACTION", "What to do", EArity::One, {"show", "set", "reset"}},
          {"TABLE", "The table or view", EArity::Optional},
          {"RULE", "COLUMN=TYPE for set, where none forgets; COLUMN for reset", EArity::Any}},
         FromOptions(),
         RunRules,
         true},
    };
}

} // namespace utility
