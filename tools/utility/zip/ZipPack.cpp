#include "utility/zip/ZipPack.h"

#include "files/SafeFile.h"
#include "files/zip/ZipCreate.h"
#include "files/zip/ZipResult.h"
#include "frame/AppError.h"
#include "platform/system/file/NativePath.h"

#include "utility/command/Command.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ByteProgress.h"
#include "utility/output/ToolOutput.h"
#include "utility/zip/ZipGathering.h"
#include "utility/zip/ZipPassword.h"
#include "utility/zip/ZipWords.h"

namespace utility
{

namespace
{

bool Refuse(const CString& path, const CString& reason)
{
    PrintError(NativePath(path) + u": " + reason);
    return false;
}

bool GatherAll(const CCommandCall& call, CZipGathering& gathering)
{
    const std::vector<CString>& arguments = call.GetArguments();
    for (std::size_t i = 1; i < arguments.size(); ++i)
    {
        if (!gathering.Gather(arguments[i]))
            return false;
    }
    return true;
}

ZRESULT AddPart(HZIP zip, const CZipPart& part)
{
    const char16_t* const path = part.m_Path;
    return part.m_IsFolder ? ZipAddFolder(zip, part.m_Name, path) : ZipAdd(zip, part.m_Name, path);
}

/// Adds all parts to an archive; false, and the reason is told, if it could not.
bool AddParts(HZIP zip, const CZipGathering& gathering)
{
    CByteProgress progress(u"Packing", gathering.GetSize());
    SetZipProgress(zip,
                   [&](std::size_t bytes)
                   {
                       progress.Add(bytes);
                       return !IsInterrupted();
                   });
    for (const CZipPart& part : gathering.GetParts())
    {
        const ZRESULT code = AddPart(zip, part);
        if (IsInterrupted())
            return false;
        if (code == ZIP_SUCCESS)
            continue;
        progress.End();
        return Refuse(part.m_Path, ZipMadeWords(code));
    }
    SetZipProgress(zip, nullptr);
    return true;
}

bool PromoteFirst(HZIP zip, const CCommandCall& call)
{
    const CString first = call.Get("first");
    if (!call.Has("first") || ZipPromote(zip, first) == ZIP_SUCCESS)
        return true;
    PrintError(u"--first: no entry has the name '" + first + u"'");
    return false;
}

/// Writes the archive to a place of its own; false, and the reason is told, if it could not.
bool WriteArchive(const CString& path, const CString& password, const CZipGathering& gathering,
                  const CCommandCall& call)
{
    const HZIP zip = CreateZip(path, password);
    if (!zip)
        return Refuse(path, ZipMadeWords(GetLastZipResultZ()));
    const bool isFilled = AddParts(zip, gathering) && PromoteFirst(zip, call);
    const ZRESULT code = CloseZipZ(zip);
    return isFilled && (code == ZIP_SUCCESS || Refuse(path, ZipMadeWords(code)));
}

/// Beside the target, whose place the archive takes once it is whole.
bool ReplaceArchive(const CString& target, const CString& password, const CZipGathering& gathering,
                    const CCommandCall& call)
{
    CSafeFile safe;
    if (!safe.Begin(target))
        return Refuse(target, CAppError::GetLastErrorString());
    if (!WriteArchive(safe.GetWrittenPath(), password, gathering, call))
        return false;
    return safe.Commit() || Refuse(target, CAppError::GetLastErrorString());
}

void PrintSummary(const CCommandCall& call, const CZipGathering& gathering)
{
    const auto count = static_cast<int>(gathering.GetParts().size());
    const int passedOver = gathering.GetPassedOver();
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Key(u"entries");
        json.Number(count);
        json.Key(u"bytes");
        json.Number(static_cast<std::int64_t>(gathering.GetSize()));
        json.Key(u"passed_over");
        json.Number(passedOver);
        json.EndObject();
        PrintBytes(json.GetText() + "\n");
        return;
    }
    CString summary;
    summary.Format(u"%d %s, %I64u bytes", count, count == 1 ? u"entry" : u"entries",
                   gathering.GetSize());
    if (passedOver > 0)
        summary.AppendFormat(u", %d passed over", passedOver);
    PrintLine(summary);
}

} // namespace

int CreateZipArchive(const CCommandCall& call)
{
    const CString target = call.GetArgument(0);
    CString password;
    CZipGathering gathering(target);
    if (!ReadZipPassword(call, true, password))
        return RESULT_FAILURE;
    const bool isMade = !IsInterrupted() && GatherAll(call, gathering) &&
                        ReplaceArchive(target, password, gathering, call);
    if (!isMade)
    {
        if (IsInterrupted())
            PrintError(u"interrupted: no archive was made");
        return RESULT_FAILURE;
    }
    PrintSummary(call, gathering);
    return gathering.GetPassedOver() > 0 ? RESULT_NO : RESULT_OK;
}

} // namespace utility
