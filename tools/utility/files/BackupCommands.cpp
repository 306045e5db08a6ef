#include "files/FilePath.h"
#include "files/backup/BackupCopy.h"
#include "files/backup/BackupFileInfo.h"
#include "files/backup/BackupFiles.h"
#include "frame/AppError.h"
#include "frame/AppMessageBox.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"

#include "utility/command/CommandTable.h"
#include "utility/files/BackupCall.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

int Fail(const CString& what, const CString& reason)
{
    PrintError(what + u": " + reason);
    return RESULT_FAILURE;
}

/// What fails may lie with a design that is there or with the place of its copies.
CString WordNoCopy(EBackupKind kind, const CString& design)
{
    if (!CFilePath::DoesFileExist(design))
        return NativePath(design);
    CFilePath place;
    CBackupFiles::MakeName(kind, place, design, CString(), true, false);
    return NativePath(design) + u": no new copy in " + NativePath(place.GetDriveAndDirectory()) +
           u", and older ones are as they were";
}

CString WordWaiting(const CString& copy)
{
    return u"the next call gives " + NativePath(copy) + u" its name";
}

int FailUsage(const CString& text)
{
    PrintError(text);
    return RESULT_USAGE;
}

void PrintPath(const CString& path, const char16_t* name, const CCommandCall& call)
{
    if (!call.WantsJson())
    {
        PrintLine(NativePath(path));
        return;
    }
    CJsonWriter json;
    json.BeginObject();
    json.Field(name, NativePath(path));
    json.EndObject();
    PrintBytes(json.GetText() + "\n");
}

/// A restore point of that name would be replaced, and it may be one that the user needs.
bool MayTakeName(const CString& design, const CString& label)
{
    CFilePath name;
    CBackupFiles::MakeRestorePointName(name, design, label, false);
    if (!CFilePath::DoesFileExist(name))
        return true;
    const CString question = u"Replace the restore point \"" + NativePath(name) + u"\"?";
    return CAppMessageBox::Show(question, MB_YESNO | MB_ICONQUESTION, 0) == IDYES;
}

int Make(const CCommandCall& call)
{
    const EBackupKind kind = GetBackupKind(call);
    const bool isRestorePoint = kind == EBackupKind::RestorePoint;
    const bool isLabelled = isRestorePoint && CBackupFiles::DoesRestorePointIncludeLabel();
    if (isLabelled != call.Has("label"))
        return FailUsage(isLabelled ? u"a restore point needs its --label"
                                    : u"--label is for restore points whose names show it");
    if (!CBackupFiles::IsWanted(kind))
    {
        PrintError(u"copies of this kind are switched off in the settings");
        return RESULT_NO;
    }
    const CString design = GetDesign(call);
    const CString label = call.Get("label");
    if (isRestorePoint && !MayTakeName(design, label))
        return RESULT_NO;
    CString made;
    if (!CBackupCopy::Make(kind, design, label, made))
    {
        const CString reason = CAppError::GetLastErrorString(); // of the copy, not of the wording
        return Fail(made.IsEmpty() ? WordNoCopy(kind, design) : WordWaiting(made), reason);
    }
    PrintPath(made, u"made", call);
    return RESULT_OK;
}

void PrintJson(const std::vector<CBackupListRow>& rows)
{
    CJsonWriter json;
    json.BeginArray();
    for (const CBackupListRow& row : rows)
    {
        if (!row.m_File)
            continue;
        json.BeginObject();
        json.Field(u"path", NativePath(row.m_File->m_Path));
        json.Key(u"time");
        json.Number(row.m_File->m_Time);
        json.Key(u"size");
        json.Number(row.m_File->m_Size);
        json.EndObject();
    }
    json.EndArray();
    PrintBytes(json.GetText() + "\n");
}

void PrintTable(const std::vector<CBackupListRow>& rows)
{
    CTextTable table;
    for (const CBackupListRow& row : rows)
    {
        std::vector<CString> cells;
        int start = 0;
        for (int tab = row.m_Text.Find(u'\t'); tab >= 0; tab = row.m_Text.Find(u'\t', start))
        {
            cells.push_back(row.m_Text.Mid(start, tab - start));
            start = tab + 1;
        }
        cells.push_back(row.m_Text.Mid(start));
        if (row.m_File)
            table.AddRow(cells);
        else
        {
            for (const CString& heading : cells)
                table.AddColumn(heading);
        }
    }
    table.Print();
}

int List(const CCommandCall& call)
{
    CBackupFileList files;
    const std::vector<CBackupListRow> rows = FindBackupCopies(files, call);
    if (call.WantsJson())
        PrintJson(rows);
    else
        PrintTable(rows);
    return rows.size() > 1 ? RESULT_OK : RESULT_NO;
}

int Restore(const CCommandCall& call)
{
    const bool isLabelled = call.Has("label");
    if (isLabelled &&
        (call.GetArguments().size() > 1 || GetBackupKind(call) != EBackupKind::RestorePoint))
        return FailUsage(u"--label goes with --kind restore-point and without a COPY");
    if (isLabelled && !CBackupFiles::DoesRestorePointIncludeLabel())
        return FailUsage(u"the names of restore points show no label");
    const CString design = GetDesign(call);
    const CString copy = FindBackupCopy(call);
    if (copy.IsEmpty())
    {
        PrintError(u"there is no such copy of " + NativePath(design));
        return RESULT_NO;
    }
    CString kept;
    if (!CBackupCopy::Restore(copy, design, kept))
        return Fail(NativePath(design), CAppError::GetLastErrorString());
    if (!kept.IsEmpty() || call.WantsJson())
        PrintPath(kept, u"kept", call);
    return RESULT_OK;
}

CCommandArgument FileArgument()
{
    return {"FILE", "the design; it need not be there to list or restore copies of it"};
}

CCommandOption KindOption(const char* help)
{
    return {"kind", "KIND", help, false, {"backup", "security", "restore-point"}};
}

} // namespace

std::vector<CCommand> BackupCommands()
{
    return {
        {"backup",
         "make",
         "Copy a design as its next backup, security copy or restore point",
         "Template, place and number of copies are the program's settings. The copy stands whole\n"
         "beside its place before older ones make room for it; what an earlier call had to leave\n"
         "is finished. Prints the copy's path.\n"
         "\n"
         "    utility backup make board.pcb --kind restore-point --label 'before routing'",
         {FileArgument()},
         {KindOption("why it is kept; backup if not given"),
          {"label", "TEXT", "what tells a restore point apart"}},
         Make},
        {"backup",
         "list",
         "List the copies of a design, the youngest last",
         "Ends with 1 if there is none.",
         {FileArgument()},
         {KindOption("copies of this kind alone"),
          {"all", "", "every file of the design's extension in the places of copies"}},
         List},
        {"backup",
         "restore",
         "Put a copy in the place of a design",
         "What it replaces is kept as a backup copy, also where those are switched off, and its\n"
         "path is printed. Older backup copies make room for it, if need be also the one that is\n"
         "restored.\n"
         "\n"
         "    utility backup restore board.pcb --kind restore-point --label 'before routing'",
         {FileArgument(),
          {"COPY", "its name as listed; the youngest if not given", EArity::Optional}},
         {KindOption("copies of this kind alone"), {"label", "TEXT", "the restore point's"}},
         Restore},
    };
}

} // namespace utility
