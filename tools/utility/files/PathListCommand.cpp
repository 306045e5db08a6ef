#include "utility/files/PathListCommand.h"

#include "files/AutoFileList.h"
#include "files/AutoFileListWatch.h"
#include "files/FilePath.h"
#include "frame/AppError.h"
#include "platform/base/StringHash.h"
#include "platform/system/file/FileFind.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageLoop.h"
#include "text/ExpandVariables.h"

#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"

#include <set>

namespace utility
{

namespace
{

constexpr char16_t ALL_EXTENSIONS[] = u"*";

using CFiles = std::vector<CString>;

CString Shown(const CString& path, const CCommandCall& call)
{
    return call.Has("native") ? NativePath(path) : path;
}

CString Expanded(CString folder)
{
    ExpandVariables(folder);
    return folder;
}

CFiles FilesOf(const CAutoFileList& list)
{
    CFiles files;
    POSITION position = nullptr;
    for (CString file = list.First(position); position; file = list.Next(position))
        files.push_back(file);
    return files;
}

void WriteArray(CJsonWriter& json, const CFiles& files, const CCommandCall& call)
{
    json.BeginArray();
    for (const CString& file : files)
        json.Text(Shown(file, call));
    json.EndArray();
}

void PrintFiles(const CFiles& files, const CCommandCall& call)
{
    if (call.WantsJson())
    {
        CJsonWriter json;
        WriteArray(json, files, call);
        PrintBytes(json.GetText() + "\n");
        return;
    }
    for (const CString& file : files)
        PrintLine(Shown(file, call));
}

/// The files of one list that another does not have.
CFiles Without(const CFiles& files, const CFiles& others)
{
    const std::set<CString, CNoCaseLess> known(others.begin(), others.end());
    CFiles rest;
    for (const CString& file : files)
    {
        if (!known.contains(file))
            rest.push_back(file);
    }
    return rest;
}

void PrintChange(const CFiles& before, const CFiles& after, const CCommandCall& call)
{
    const CFiles removed = Without(before, after);
    const CFiles added = Without(after, before);
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Key(u"added");
        WriteArray(json, added, call);
        json.Key(u"removed");
        WriteArray(json, removed, call);
        json.EndObject();
        PrintBytes(json.GetText() + "\n");
        return;
    }
    for (const CString& file : removed)
        PrintLine(u"- " + Shown(file, call));
    for (const CString& file : added)
        PrintLine(u"+ " + Shown(file, call));
}

void FillFolders(CAutoFileList& list, const CCommandCall& call)
{
    list.Init(nullptr, call.Get("extension", ALL_EXTENSIONS), call.Get("key"));
    if (call.GetArguments().empty())
        list.LoadFromRegistry();
    for (const CString& folder : call.GetArguments())
        list.AddDir(folder);
    list.SetSearchDirs(true);
    list.SetKeepVariables(call.Has("variables"));
    list.IgnoreBackupFiles(!call.Has("backups"));
}

/// Why a folder cannot be listed; empty if it can.
CString FindFolderFault(const CString& folder)
{
    const CString expanded = Expanded(folder);
    if (!CFilePath::IsDirectory(expanded))
        return u"there is no folder " + NativePath(folder);
    CFileFind itself;
    return itself.FindFile(expanded + u"\\.")
               ? CString()
               : NativePath(folder) + u": " + CAppError::GetLastErrorString();
}

/// Tells which folders cannot be listed; a watch awaits them.
int CheckFolders(const CAutoFileList& list)
{
    int result = RESULT_OK;
    POSITION position = nullptr;
    for (CString folder = list.FirstEnabledNonVaultDir(position); position;
         folder = list.NextEnabledNonVaultDir(position))
    {
        const CString fault = FindFolderFault(folder);
        if (fault.IsEmpty())
            continue;
        PrintError(fault);
        result = RESULT_FAILURE;
    }
    return result;
}

/// Until Ctrl-C, or so many changes; 0 has no end.
int Watch(CAutoFileList& list, const CCommandCall& call, int limit)
{
    IMessageLoop& loop = GetMessageLoop();
    int count = 0;
    CFiles present;
    CAutoFileListWatch watch(list);
    const bool isStarted = watch.Start(true,
                                       [&]
                                       {
                                           CFiles after = FilesOf(list);
                                           PrintChange(present, after, call);
                                           present = std::move(after);
                                           if (!FinishOutput() || ++count == limit)
                                               loop.Quit(RESULT_OK);
                                       });
    if (!isStarted)
    {
        PrintError(CAppError::GetLastErrorString());
        return RESULT_FAILURE;
    }
    list.RefreshFiles(true);
    present = FilesOf(list);
    PrintFiles(present, call);
    if (!FinishOutput())
        return RESULT_FAILURE;
    return RunUntilInterrupted();
}

/// Why the words of a call do not fit together; empty if they do.
CString FindWordFault(const CCommandCall& call)
{
    if (call.GetArguments().empty() && !call.Has("key"))
        return u"a FOLDER or --key is wanted";
    if (call.Has("changes") && !call.Has("watch"))
        return u"--changes goes with --watch";
    return CString();
}

int List(const CCommandCall& call)
{
    const CString fault = FindWordFault(call);
    if (!fault.IsEmpty())
    {
        PrintError(fault);
        return RESULT_USAGE;
    }
    CAutoFileList list;
    FillFolders(list, call);
    if (call.Has("watch"))
        return Watch(list, call, call.GetNumber("changes", 0));
    const int result = CheckFolders(list);
    list.RefreshFiles(true);
    PrintFiles(FilesOf(list), call);
    return result;
}

} // namespace

CCommand PathListCommand()
{
    return {
        "path",
        "list",
        "List the files of folders, sorted by names and numbers",
        "Folders below are not searched, and copies that backups left are not listed. With\n"
        "--watch the list is followed by what changes, \"+ FILE\" and \"- FILE\", until Ctrl-C.\n"
        "\n"
        "    utility path list lib '%HOME%/lib' --extension sym --watch",
        {{"FOLDER", "a folder, which may hold variables (%HOME%)", EArity::Any}},
        {{"extension", "EXT", "files with this extension; all if not given"},
         {"key", "PATH", "without a FOLDER: the folders that the program keeps in its settings"},
         {"backups", "", "list backup and security copies, too"},
         {"variables", "", "show files with the variables of their folders"},
         {"watch", "", "go on with what changes; folders that are not there are awaited"},
         NumberOption("changes", "COUNT", "with --watch: end after so many changes", {1}),
         {"native", "", "as this system and other programs spell it"}},
        List};
}

} // namespace utility
