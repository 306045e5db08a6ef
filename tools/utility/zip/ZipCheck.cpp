#include "utility/zip/ZipCheck.h"

#include "files/zip/ZipResult.h"

#include "utility/command/Command.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ByteProgress.h"
#include "utility/output/ToolOutput.h"
#include "utility/zip/ZipArchive.h"
#include "utility/zip/ZipWords.h"

namespace utility
{

namespace
{

/// The names of the damaged ones among the entries, which are told; fewer if the user stops it.
std::vector<CString> FindDamaged(const CZipArchive& archive, const std::vector<int>& entries)
{
    std::vector<CString> damaged;
    CByteProgress progress(u"Testing", archive.SumSizes(entries));
    for (const int index : entries)
    {
        const auto skip = [&](std::string_view piece)
        {
            progress.Add(piece.size());
            return !IsInterrupted();
        };
        const ZRESULT code = archive.Read(index, skip);
        if (IsInterrupted())
            break;
        if (code == ZIP_SUCCESS)
            continue;
        progress.End();
        const ZIPENTRYINFO info = archive.GetInfo(index);
        damaged.push_back(info.name);
        PrintError(Printable(info.name) + u": " + ZipEntryWords(code, info));
    }
    return damaged;
}

void PrintSummary(const CCommandCall& call, int count, const std::vector<CString>& damaged)
{
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Key(u"entries");
        json.Number(count);
        json.Key(u"damaged");
        json.BeginArray();
        for (const CString& name : damaged)
            json.Text(name);
        json.EndArray();
        json.EndObject();
        PrintBytes(json.GetText() + "\n");
        return;
    }
    CString summary;
    summary.Format(u"%d of %d %s sound", count - static_cast<int>(damaged.size()), count,
                   count == 1 ? u"entry is" : u"entries are");
    PrintLine(summary);
}

} // namespace

int TestZip(const CCommandCall& call)
{
    CZipArchive archive;
    if (const ZRESULT code = archive.Open(call); code != ZIP_SUCCESS)
        return code == ZIP_CORRUPT ? RESULT_NO : RESULT_FAILURE;
    std::vector<int> entries;
    if (!archive.Select(call, entries))
        return RESULT_NO;
    const std::vector<CString> damaged = FindDamaged(archive, entries);
    if (IsInterrupted())
    {
        PrintError(u"interrupted: not all entries were tested");
        return RESULT_FAILURE;
    }
    PrintSummary(call, static_cast<int>(entries.size()), damaged);
    return damaged.empty() ? RESULT_OK : RESULT_NO;
}

} // namespace utility
