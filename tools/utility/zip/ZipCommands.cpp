#include "files/zip/ZipResult.h"
#include "platform/base/time/Time.h"
#include "platform/system/file/FileStatus.h"

#include "utility/command/CommandTable.h"
#include "utility/output/ToolOutput.h"
#include "utility/zip/ZipArchive.h"
#include "utility/zip/ZipCheck.h"
#include "utility/zip/ZipPack.h"
#include "utility/zip/ZipPassword.h"
#include "utility/zip/ZipUnpack.h"
#include "utility/zip/ZipWords.h"

namespace utility
{

namespace
{

CString TimeOf(const ZIPENTRY& entry)
{
    return CTime(entry.mtime).Format(u"%Y-%m-%d %H:%M:%S");
}

CString NumberText(std::uint64_t number)
{
    CString text;
    text.Format(u"%I64u", number);
    return text;
}

void WriteEntry(CJsonWriter& json, const CZipArchive& archive, int index)
{
    const ZIPENTRYINFO info = archive.GetInfo(index);
    const ZIPENTRY entry = archive.GetEntry(index);
    json.BeginObject();
    json.Key(u"index");
    json.Number(index);
    json.Field(u"name", info.name);
    json.Key(u"folder");
    json.Bool((entry.attr & CFileStatus::directory) != 0);
    json.Key(u"size");
    json.Number(static_cast<std::int64_t>(info.unc_size));
    json.Key(u"packed");
    json.Number(static_cast<std::int64_t>(info.comp_size));
    json.Field(u"method", ZipMethodWords(info));
    json.Field(u"modified", TimeOf(entry));
    json.EndObject();
}

void PrintEntries(const CCommandCall& call, const CZipArchive& archive,
                  const std::vector<int>& entries)
{
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginArray();
        for (const int index : entries)
        {
            WriteEntry(json, archive, index);
            json.Flush();
        }
        json.EndArray();
        PrintBytes(json.GetText() + "\n");
        return;
    }
    CTextTable table;
    table.AddColumn(u"Size", CTextTable::EAlign::Right);
    table.AddColumn(u"Packed", CTextTable::EAlign::Right);
    table.AddColumn(u"Modified");
    table.AddColumn(u"Method");
    table.AddColumn(u"Name");
    for (const int index : entries)
    {
        const ZIPENTRYINFO info = archive.GetInfo(index);
        table.AddRow({NumberText(info.unc_size), NumberText(info.comp_size),
                      TimeOf(archive.GetEntry(index)), ZipMethodWords(info), info.name});
    }
    table.Print();
}

int ListZip(const CCommandCall& call)
{
    CZipArchive archive;
    if (archive.Open(call) != ZIP_SUCCESS)
        return RESULT_FAILURE;
    std::vector<int> entries;
    if (!archive.Select(call, entries))
        return RESULT_NO;
    PrintEntries(call, archive, entries);
    return RESULT_OK;
}

int FindInZip(const CCommandCall& call)
{
    CZipArchive archive;
    if (archive.Open(call) != ZIP_SUCCESS)
        return RESULT_FAILURE;
    int index = -1;
    if (FindZipItem(archive.GetHandle(), call.GetArgument(1), !call.Has("case"), &index, nullptr) !=
        ZIP_SUCCESS)
        return RESULT_NO;
    PrintEntries(call, archive, {index});
    return RESULT_OK;
}

CCommandArgument ArchiveArgument()
{
    return {"ARCHIVE", "the zip archive"};
}

CCommandArgument PatternArguments()
{
    return {"PATTERN", "entries whose whole names fit, such as 'library/*'; all without one",
            EArity::Any};
}

CCommand CreateCommand()
{
    CCommand command{"zip", "create", "Pack files and folders into a new archive"};
    command.m_Help =
        "Entries have the paths given, as far as they lead downwards. Links to folders below those "
        "are passed over, and the answer is then 1. The archive takes its place once it is whole; "
        "until then, and after Ctrl-C, what was there stays. Passwords encrypt in the traditional "
        "way, which keeps nobody out for long.\n\n"
        "    utility zip create amplifier.zip amplifier.sch library --first amplifier.sch";
    command.m_Arguments = {{"ARCHIVE", "the archive to be made; an old one is replaced"},
                           {"PATH", "a file, or a folder with all that is in it", EArity::Many}};
    command.m_Options = {{"first", "NAME", "Let this entry stand first in lists"},
                         ZipPasswordOption(),
                         ZipPasswordFileOption()};
    command.m_Run = CreateZipArchive;
    return command;
}

CCommand ExtractCommand()
{
    CCommand command{"zip", "extract", "Unpack an archive, or what fits the patterns"};
    command.m_Help =
        "Nothing is ever written outside the target folder, whatever the archive says: names are "
        "cleaned, and links below the folder are not followed. Files that are there are kept, and "
        "the answer is then 1.\n\n"
        "    utility zip extract amplifier.zip 'library/*' --into parts";
    command.m_Arguments = {ArchiveArgument(), PatternArguments()};
    command.m_Options = {
        {"into", "FOLDER", "The target folder, made if it is not there; preset: the current one"},
        {"overwrite", "", "Replace files that are there"},
        {"max-size", "BYTES",
         "Unpack nothing if it were more, as 500M or 2G; preset: what is free, at most 10G"},
        ZipPasswordOption(),
        ZipPasswordFileOption()};
    command.m_Run = ExtractZip;
    return command;
}

} // namespace

std::vector<CCommand> ZipCommands()
{
    CCommand list{"zip", "list", "List the entries of an archive"};
    list.m_Help = "    utility zip list amplifier.zip '*.sym'";
    list.m_Arguments = {ArchiveArgument(), PatternArguments()};
    list.m_Run = ListZip;

    CCommand test{"zip", "test", "Unpack an archive to nowhere, and tell what is damaged"};
    test.m_Help = "The answer is 1 if anything is.\n\n    utility zip test amplifier.zip";
    test.m_Arguments = {ArchiveArgument(), PatternArguments()};
    test.m_Options = {ZipPasswordOption(), ZipPasswordFileOption()};
    test.m_Run = TestZip;

    CCommand find{"zip", "find", "Find one entry by its name"};
    find.m_Help =
        "The answer is 1 if there is none.\n\n    utility zip find amplifier.zip library/amp.sym";
    find.m_Arguments = {ArchiveArgument(), {"NAME", "the whole name, in any case"}};
    find.m_Options = {{"case", "", "Upper and lower case differ"}};
    find.m_Run = FindInZip;
    return {CreateCommand(), list, ExtractCommand(), test, find};
}

} // namespace utility
