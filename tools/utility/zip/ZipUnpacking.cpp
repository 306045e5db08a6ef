#include "utility/zip/ZipUnpacking.h"

#include "files/zip/ZipResult.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/SystemMessage.h"
#include "platform/system/file/ConfinedFolder.h"
#include "platform/system/file/FileHandle.h"
#include "platform/system/file/FileStatus.h"

#include "utility/command/Command.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"
#include "utility/zip/ZipArchive.h"
#include "utility/zip/ZipWords.h"

#include <algorithm>

namespace utility
{

namespace
{

bool HasControls(std::u16string_view name)
{
    return std::ranges::any_of(name, [](char16_t unit)
                               { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); });
}

} // namespace

CZipUnpacking::CZipUnpacking(const CZipArchive& archive, const CConfinedFolder& folder,
                             bool overwrites, std::uint64_t total)
    : m_Archive(archive),
      m_Folder(folder),
      m_Overwrites(overwrites),
      m_Progress(u"Unpacking", total)
{
}

void CZipUnpacking::Fail(const CString& name, const CString& reason)
{
    m_Progress.End();
    PrintError(Printable(name) + u": " + reason);
    ++m_Failed;
}

void CZipUnpacking::FailBySystem(const CString& name)
{
    // All folders on the way are made, so one that is not found is none.
    const DWORD code = GetLastError();
    Fail(name, code == ERROR_PATH_NOT_FOUND
                   ? CString(u"a file or a link stands where a folder is wanted")
                   : GetSystemMessage(code));
}

void CZipUnpacking::Keep(const CString& name, const CString& reason)
{
    m_Progress.End();
    PrintError(Printable(name) + u": " + reason);
    ++m_Kept;
}

void CZipUnpacking::Unpack(int index)
{
    const CString name = m_Archive.GetInfo(index).name;
    if (name.IsEmpty())
        Fail(u"(no name)", u"nothing is left of its name below the target folder");
    else if (HasControls(name.View()))
        Fail(name, u"its name has control characters");
    else if ((m_Archive.GetEntry(index).attr & CFileStatus::directory) != 0)
        UnpackFolder(index, name);
    else
        UnpackFile(index, name);
}

void CZipUnpacking::UnpackFolder(int index, const CString& name)
{
    if (m_Folder.MakeFolder(name.View()))
        m_Folders.push_back(index);
    else
        FailBySystem(name);
}

void CZipUnpacking::UnpackFile(int index, const CString& name)
{
    if (!m_Names.insert(name).second)
        Keep(name, u"passed over: an entry of the same name, but for case, came before");
    else if (!m_Overwrites && m_Folder.GetKind(name.View()) != EEntryKind::None)
        Keep(name, u"kept as it is; see --overwrite");
    else if (CConfinedFile file; !file.Begin(m_Folder, name.View()))
        FailBySystem(name);
    else if (Write(index, name, file))
        ++m_Files;
}

/// The content first, then its dates, then its place.
bool CZipUnpacking::Write(int index, const CString& name, CConfinedFile& file)
{
    bool isWritten = true;
    const auto write = [&](std::string_view piece)
    {
        DWORD done = 0;
        isWritten =
            WriteFile(file.GetHandle(), piece.data(), static_cast<DWORD>(piece.size()), done);
        m_Progress.Add(piece.size());
        return isWritten && !IsInterrupted();
    };
    const ZRESULT code = m_Archive.Read(index, write);
    const bool isReadOnly = (m_Archive.GetEntry(index).attr & CFileStatus::readOnly) != 0;
    if (isWritten && code == ZIP_MORE)
        return false; // interrupted
    if (isWritten && code != ZIP_SUCCESS)
        Fail(name, ZipEntryWords(code, m_Archive.GetInfo(index)));
    else if (!isWritten || !SetDates(index, file) || !file.Commit(m_Overwrites, isReadOnly))
        FailBySystem(name);
    else
        return true;
    return false;
}

bool CZipUnpacking::SetDates(int index, const CConfinedFile& file) const
{
    const ZIPENTRY entry = m_Archive.GetEntry(index);
    return SetFileTime(file.GetHandle(), nullptr, &entry.atime, &entry.mtime);
}

void CZipUnpacking::End()
{
    for (const int index : m_Folders)
    {
        const ZIPENTRY entry = m_Archive.GetEntry(index);
        const CString name = m_Archive.GetInfo(index).name;
        if (!m_Folder.SetFolderTimes(name.View(), entry.atime, entry.mtime))
            FailBySystem(name);
    }
    m_Progress.End();
}

CString CZipUnpacking::GetSummary() const
{
    const auto folders = static_cast<int>(m_Folders.size());
    CString summary;
    summary.Format(u"%d %s and %d %s unpacked", m_Files, m_Files == 1 ? u"file" : u"files", folders,
                   folders == 1 ? u"folder" : u"folders");
    if (m_Kept > 0)
        summary.AppendFormat(u", %d kept", m_Kept);
    if (m_Failed > 0)
        summary.AppendFormat(u", %d failed", m_Failed);
    return summary;
}

int CZipUnpacking::Tell(const CCommandCall& call) const
{
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Key(u"files");
        json.Number(m_Files);
        json.Key(u"folders");
        json.Number(static_cast<int>(m_Folders.size()));
        json.Key(u"kept");
        json.Number(m_Kept);
        json.Key(u"failed");
        json.Number(m_Failed);
        json.EndObject();
        PrintBytes(json.GetText() + "\n");
    }
    else if (!IsInterrupted())
        PrintLine(GetSummary());
    if (IsInterrupted())
        PrintError(u"interrupted: " + GetSummary());
    if (m_Failed > 0 || IsInterrupted())
        return RESULT_FAILURE;
    return m_Kept > 0 ? RESULT_NO : RESULT_OK;
}

} // namespace utility
