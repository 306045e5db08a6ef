#include "ZipPack.h"

#include "files/FileSize.h"
#include "files/SafeFile.h"
#include "files/zip/ZipCreate.h"
#include "files/zip/ZipResult.h"
#include "frame/AppError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/StringHash.h"
#include "platform/system/SystemMessage.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileFind.h"
#include "platform/system/file/NativePath.h"

#include "ByteProgress.h"
#include "Command.h"
#include "Interrupt.h"
#include "ToolOutput.h"
#include "ZipPassword.h"
#include "ZipWords.h"

#include <unordered_set>
#include <vector>

namespace utility
{

namespace
{

/// What becomes an entry.
struct CPart
{
    CString m_Name; // in the archive
    CString m_Path;
    bool m_IsFolder = false;
    std::int64_t m_Size = 0;
};

void TellFailure(const CString& path, const CString& reason)
{
    PrintError(NativePath(path) + u": " + reason);
}

/// A path as it stands in an archive: relative, "/" between the names, nothing that leads upwards.
CString NameInArchive(std::u16string_view path)
{
    CString name;
    while (!path.empty())
    {
        const std::size_t length = std::min(path.find_first_of(u"/\\"), path.size());
        const std::u16string_view part = path.substr(0, length);
        path.remove_prefix(std::min(length + 1, path.size()));
        const bool isDrive = part.size() == 2 && part[1] == u':';
        if (part == u".." || isDrive)
            name.Empty();
        else if (!part.empty() && part != u".")
            name += (name.IsEmpty() ? CString() : CString(u"/")) + CString(part);
    }
    return name;
}

/// Gathers the parts of an archive, each name once.
class CGathering
{
public:
    explicit CGathering(const CString& target) : m_Target(DiskPathBytes(GetFullPathNameW(target)))
    {
    }

    /// A file, or a folder with all below it; false, and the reason is told, if it is not there.
    bool Gather(const CString& path);

    const std::vector<CPart>& GetParts() const { return m_Parts; }
    std::uint64_t GetSize() const { return m_Size; }

private:
    bool AddFile(const CString& name, const CString& path);
    bool AddFolder(const CString& name, const CString& path);
    bool Add(CPart part);

    std::string m_Target; // the archive, which does not go into itself
    std::vector<CPart> m_Parts;
    std::vector<CPart> m_Waiting; // folders
    std::unordered_set<CString, CStringHash, CStringEqual> m_Names;
    std::uint64_t m_Size = 0;
};

bool CGathering::Gather(const CString& path)
{
    const CString name = NameInArchive(path.View());
    switch (GetEntryKind(path))
    {
    case EEntryKind::Folder:
        m_Waiting.push_back({name, path, true, 0});
        break;
    case EEntryKind::File:
        return AddFile(name, path);
    case EEntryKind::Other:
        TellFailure(path, u"neither a file nor a folder");
        return false;
    case EEntryKind::None:
        TellFailure(path, GetSystemMessage(ERROR_FILE_NOT_FOUND));
        return false;
    }
    while (!m_Waiting.empty())
    {
        const CPart folder = m_Waiting.back();
        m_Waiting.pop_back();
        if (IsInterrupted() || !AddFolder(folder.m_Name, folder.m_Path))
            return false;
    }
    return true;
}

bool CGathering::AddFolder(const CString& name, const CString& path)
{
    if (!name.IsEmpty() && !Add({name + u"/", path, true, 0}))
        return false;
    CFileFind find;
    const std::size_t firstBelow = m_Waiting.size();
    bool hasMore = find.FindFile(path + u"\\*.*");
    if (!hasMore)
    {
        TellFailure(path, GetSystemMessage(GetLastError()));
        return false;
    }
    while (hasMore)
    {
        hasMore = find.FindNextFile();
        const CString below =
            name.IsEmpty() ? find.GetFileName() : name + u"/" + find.GetFileName();
        if (find.IsDots())
            continue;
        if (find.IsDirectory())
            m_Waiting.push_back({below, find.GetFilePath(), true, 0});
        else if (GetEntryKind(find.GetFilePath()) != EEntryKind::File)
            TellFailure(find.GetFilePath(), u"passed over: neither a file nor a folder");
        else if (!AddFile(below, find.GetFilePath()))
            return false;
    }
    std::reverse(m_Waiting.begin() + static_cast<std::ptrdiff_t>(firstBelow), m_Waiting.end());
    return true;
}

bool CGathering::AddFile(const CString& name, const CString& path)
{
    if (DiskPathBytes(GetFullPathNameW(path)) == m_Target)
        return true;
    return Add({name, path, false, GetFileSize(path)});
}

bool CGathering::Add(CPart part)
{
    if (!m_Names.insert(part.m_Name).second)
    {
        if (part.m_IsFolder)
            return true;
        TellFailure(part.m_Path, u"another file has the name '" + part.m_Name + u"' already");
        return false;
    }
    m_Size += static_cast<std::uint64_t>(part.m_Size);
    m_Parts.push_back(std::move(part));
    return true;
}

/// Adds all parts to an archive; false, and the reason is told, if it could not.
bool AddParts(HZIP zip, const CGathering& gathering)
{
    CByteProgress progress(u"Packing", gathering.GetSize());
    SetZipProgress(zip,
                   [&](std::size_t bytes)
                   {
                       progress.Add(bytes);
                       return !IsInterrupted();
                   });
    for (const CPart& part : gathering.GetParts())
    {
        const ZRESULT code = part.m_IsFolder ? ZipAddFolder(zip, part.m_Name)
                                             : ZipAdd(zip, part.m_Name, part.m_Path.GetString());
        if (IsInterrupted())
            return false;
        if (code == ZIP_SUCCESS)
            continue;
        progress.End();
        TellFailure(part.m_Path, ZipMadeWords(code));
        return false;
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
bool WriteArchive(const CString& path, const CGathering& gathering, const CCommandCall& call)
{
    CString password;
    if (!ReadZipPassword(call, true, password))
        return false;
    const HZIP zip = CreateZip(path, password);
    bool isWhole = zip && AddParts(zip, gathering) && PromoteFirst(zip, call);
    const ZRESULT code = zip ? CloseZipZ(zip) : GetLastZipResultZ();
    if (code != ZIP_SUCCESS && (isWhole || !zip))
    {
        TellFailure(path, ZipMadeWords(code));
        isWhole = false;
    }
    return isWhole;
}

} // namespace

int CreateZipArchive(const CCommandCall& call)
{
    const CString target = call.GetArgument(0);
    CGathering gathering(target);
    const std::vector<CString>& arguments = call.GetArguments();
    bool isGathered = true;
    for (std::size_t i = 1; i < arguments.size() && isGathered; ++i)
        isGathered = gathering.Gather(arguments[i]);

    CSafeFile safe;
    bool isMade = false;
    if (isGathered && !safe.Begin(target))
        TellFailure(target, CAppError::GetLastErrorString());
    else if (isGathered && WriteArchive(safe.GetWrittenPath(), gathering, call))
    {
        isMade = safe.Commit();
        if (!isMade)
            TellFailure(target, CAppError::GetLastErrorString());
    }
    if (IsInterrupted() && !isMade)
        PrintError(u"interrupted: no archive was made");
    if (!isMade)
        return RESULT_FAILURE;

    CString summary;
    const auto count = static_cast<int>(gathering.GetParts().size());
    summary.Format(u"%d %s, %I64u bytes", count, count == 1 ? u"entry" : u"entries",
                   gathering.GetSize());
    if (!call.WantsJson())
        PrintLine(summary);
    return RESULT_OK;
}

} // namespace utility
