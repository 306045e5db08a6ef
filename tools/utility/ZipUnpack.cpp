#include "ZipUnpack.h"

#include "files/FilePath.h"
#include "files/zip/ZipResult.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/StringHash.h"
#include "platform/system/SystemMessage.h"
#include "platform/system/file/ConfinedFolder.h"
#include "platform/system/file/FileHandle.h"
#include "platform/system/file/FileStatus.h"
#include "platform/system/file/NativePath.h"

#include "ByteProgress.h"
#include "Command.h"
#include "Interrupt.h"
#include "ToolOutput.h"
#include "ZipArchive.h"
#include "ZipWords.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace utility
{

namespace
{

constexpr std::uint64_t KILO = 1024;
constexpr std::uint64_t DEFAULT_LIMIT = 10 * KILO * KILO * KILO; // bytes, if so many are free

/// A count of bytes with K, M or G behind it, or none for what is no such.
std::optional<std::uint64_t> ReadByteCount(const CString& text)
{
    std::uint64_t factor = 1;
    std::u16string_view digits = text.View();
    constexpr std::u16string_view SUFFIXES = u"KMG";
    const std::size_t power = digits.empty() ? SUFFIXES.npos : SUFFIXES.find(digits.back());
    if (power != SUFFIXES.npos)
    {
        digits.remove_suffix(1);
        factor = std::uint64_t{1} << 10U * (power + 1);
    }
    constexpr std::size_t DIGIT_LIMIT = 9;
    std::uint64_t count = 0;
    for (const char16_t unit : digits)
    {
        if (unit < u'0' || unit > u'9')
            return std::nullopt;
        count = count * 10 + (unit - u'0');
    }
    if (digits.empty() || digits.size() > (factor == 1 ? 2 * DIGIT_LIMIT : DIGIT_LIMIT))
        return std::nullopt;
    return count * factor;
}

bool HasControls(std::u16string_view name)
{
    return std::ranges::any_of(name, [](char16_t unit)
                               { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); });
}

/// Unpacks one entry after the other below a folder, and counts.
class CUnpacking
{
public:
    CUnpacking(const CZipArchive& archive, CConfinedFolder& folder, bool overwrites,
               std::uint64_t total)
        : m_Archive(archive),
          m_Folder(folder),
          m_Overwrites(overwrites),
          m_Progress(u"Unpacking", total)
    {
    }

    void Unpack(int index);
    int Tell(const CCommandCall& call) const;

private:
    void UnpackFile(int index, const CString& name);
    bool Write(int index, CConfinedFile& file);
    void Fail(const CString& name, const CString& reason);
    void FailBySystem(const CString& name);
    void Keep(const CString& name, const CString& reason);
    CString GetSummary() const;

    const CZipArchive& m_Archive;
    CConfinedFolder& m_Folder;
    bool m_Overwrites;
    CByteProgress m_Progress;
    std::unordered_set<CString, CNoCaseHash, CNoCaseEqual>
        m_Names; // of files, those of others apart
    int m_Files = 0;
    int m_Folders = 0;
    int m_Kept = 0;
    int m_Failed = 0;
};

void CUnpacking::Fail(const CString& name, const CString& reason)
{
    m_Progress.End();
    PrintError(Printable(name) + u": " + reason);
    ++m_Failed;
}

void CUnpacking::FailBySystem(const CString& name)
{
    // All folders on the way are made, so one that is not found is none.
    const DWORD code = GetLastError();
    Fail(name, code == ERROR_PATH_NOT_FOUND
                   ? CString(u"a file or a link stands where a folder is wanted")
                   : GetSystemMessage(code));
}

void CUnpacking::Keep(const CString& name, const CString& reason)
{
    m_Progress.End();
    PrintError(Printable(name) + u": " + reason);
    ++m_Kept;
}

void CUnpacking::Unpack(int index)
{
    const CString name = m_Archive.GetInfo(index).name;
    if (name.IsEmpty())
        Fail(u"(no name)", u"nothing is left of its name below the target folder");
    else if (HasControls(name.View()))
        Fail(name, u"its name has control characters");
    else if ((m_Archive.GetEntry(index).attr & CFileStatus::directory) == 0)
        UnpackFile(index, name);
    else if (m_Folder.MakeFolder(name.View()))
        ++m_Folders;
    else
        FailBySystem(name);
}

void CUnpacking::UnpackFile(int index, const CString& name)
{
    if (!m_Names.insert(name).second)
        Keep(name, u"passed over: an entry of the same name, but for case, came before");
    else if (!m_Overwrites && m_Folder.GetKind(name.View()) != EEntryKind::None)
        Keep(name, u"kept as it is; see --overwrite");
    else if (CConfinedFile file; !file.Begin(m_Folder, name.View()))
        FailBySystem(name);
    else if (Write(index, file))
        ++m_Files;
}

/// The content first, then its times, then its place.
bool CUnpacking::Write(int index, CConfinedFile& file)
{
    const ZIPENTRY entry = m_Archive.GetEntry(index);
    const CString name = m_Archive.GetInfo(index).name;
    bool isWritten = true;
    const ZRESULT code = m_Archive.Read(index,
                                        [&](std::string_view piece)
                                        {
                                            DWORD done = 0;
                                            isWritten =
                                                WriteFile(file.GetHandle(), piece.data(),
                                                          static_cast<DWORD>(piece.size()), done);
                                            m_Progress.Add(piece.size());
                                            return isWritten && !IsInterrupted();
                                        });
    if (isWritten && code == ZIP_MORE)
        return false; // interrupted
    if (isWritten && code != ZIP_SUCCESS)
        Fail(name, ZipReadWords(code));
    else if (!isWritten || !SetFileTime(file.GetHandle(), nullptr, &entry.atime, &entry.mtime) ||
             !file.Commit(m_Overwrites, (entry.attr & CFileStatus::readOnly) != 0))
        FailBySystem(name);
    else
        return true;
    return false;
}

CString CUnpacking::GetSummary() const
{
    CString summary;
    summary.Format(u"%d %s and %d %s unpacked", m_Files, m_Files == 1 ? u"file" : u"files",
                   m_Folders, m_Folders == 1 ? u"folder" : u"folders");
    if (m_Kept > 0)
        summary.AppendFormat(u", %d kept", m_Kept);
    if (m_Failed > 0)
        summary.AppendFormat(u", %d failed", m_Failed);
    return summary;
}

int CUnpacking::Tell(const CCommandCall& call) const
{
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginObject();
        json.Key(u"files");
        json.Number(m_Files);
        json.Key(u"folders");
        json.Number(m_Folders);
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

/// The folder that entries go to, made if it is not there.
bool OpenTarget(const CCommandCall& call, CConfinedFolder& folder)
{
    const CString path = CFilePath::FullPath(call.Get("into", u"."));
    if ((GetEntryKind(path) != EEntryKind::None || CFilePath::CreateDirectoryW(path)) &&
        folder.Open(path))
        return true;
    PrintError(NativePath(path) + u": " + GetSystemMessage(GetLastError()));
    return false;
}

/// False, and the reason is told, if that is more than the limit.
bool IsWithinLimit(const CCommandCall& call, const CConfinedFolder& folder, std::uint64_t size,
                   int& result)
{
    std::optional<std::uint64_t> limit = std::min(folder.GetFreeSpace(), DEFAULT_LIMIT);
    if (call.Has("max-size"))
        limit = ReadByteCount(call.Get("max-size"));
    result = limit ? RESULT_FAILURE : RESULT_USAGE;
    if (!limit)
    {
        PrintError(u"--max-size: a count of bytes is wanted, such as 500M");
        return false;
    }
    if (size <= *limit)
        return true;
    CString words;
    words.Format(u"%s: nothing is unpacked: it would be %I64u bytes, and --max-size is %I64u",
                 NativePath(call.GetArgument(0)), size, *limit);
    PrintError(words);
    return false;
}

} // namespace

int ExtractZip(const CCommandCall& call)
{
    CZipArchive archive;
    if (archive.Open(call) != ZIP_SUCCESS)
        return RESULT_FAILURE;
    const std::vector<int> entries = archive.Select(call);
    const std::uint64_t size = archive.SumSizes(entries);
    CConfinedFolder folder;
    int result = RESULT_FAILURE;
    if (!OpenTarget(call, folder) || !IsWithinLimit(call, folder, size, result))
        return result;
    CUnpacking unpacking(archive, folder, call.Has("overwrite"), size);
    for (const int index : entries)
    {
        if (IsInterrupted())
            break;
        unpacking.Unpack(index);
    }
    return unpacking.Tell(call);
}

int TestZip(const CCommandCall& call)
{
    CZipArchive archive;
    if (const ZRESULT code = archive.Open(call); code != ZIP_SUCCESS)
        return code == ZIP_CORRUPT ? RESULT_NO : RESULT_FAILURE;
    const std::vector<int> entries = archive.Select(call);
    CByteProgress progress(u"Testing", archive.SumSizes(entries));
    int damaged = 0;
    for (const int index : entries)
    {
        const ZRESULT code = archive.Read(index,
                                          [&](std::string_view piece)
                                          {
                                              progress.Add(piece.size());
                                              return !IsInterrupted();
                                          });
        if (IsInterrupted())
            return RESULT_FAILURE;
        if (code == ZIP_SUCCESS)
            continue;
        progress.End();
        const ZIPENTRYINFO info = archive.GetInfo(index);
        const bool isUnknown =
            info.encryption == EZipEncryption::Unknown || (info.method != 0 && info.method != 8);
        PrintError(Printable(info.name) + u": " + ZipReadWords(code) +
                   (isUnknown ? CString(u": ") + ZipMethodWords(info) : CString()));
        ++damaged;
    }
    progress.End();
    CString summary;
    summary.Format(u"%d of %d %s sound", static_cast<int>(entries.size()) - damaged,
                   static_cast<int>(entries.size()),
                   entries.size() == 1 ? u"entry is" : u"entries are");
    PrintLine(summary);
    return damaged == 0 ? RESULT_OK : RESULT_NO;
}

} // namespace utility
