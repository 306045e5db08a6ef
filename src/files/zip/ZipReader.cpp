#include "files/zip/ZipReader.h"

#include "files/FilePath.h"
#include "files/zip/ZipAttributes.h"
#include "files/zip/ZipFormat.h"
#include "files/zip/ZipNames.h"
#include "files/zip/ZipResult.h"
#include "platform/system/file/ConfinedFolder.h"
#include "platform/system/file/FileHandle.h"
#include "platform/system/file/FileStatus.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace utility
{

namespace
{

constexpr std::size_t PIECE = 64 * 1024;

std::int32_t ShortSize(std::uint64_t size)
{
    return size <= std::numeric_limits<std::int32_t>::max() ? static_cast<std::int32_t>(size) : -1;
}

/// As much of a name as there is room for, no character cut in two.
void CopyName(std::u16string_view name, char16_t (&place)[260])
{
    std::size_t length = std::min(name.size(), std::size(place) - 1);
    const bool cutsPair = length < name.size() && length > 0 && name[length - 1] >= 0xD800 &&
                          name[length - 1] <= 0xDBFF;
    place[name.copy(place, cutsPair ? length - 1 : length)] = 0;
}

bool IsAbsolute(std::u16string_view path)
{
    return (!path.empty() && IsZipSeparator(path.front())) || (path.size() > 1 && path[1] == u':');
}

bool EndsInSeparator(std::u16string_view path)
{
    return !path.empty() && IsZipSeparator(path.back());
}

EZipEncryption EncryptionOf(const CZipRecord& record)
{
    if (record.m_Method == ZIP_AES || (record.m_Flags & ZIP_FLAG_STRONG) != 0)
        return EZipEncryption::Unknown;
    return (record.m_Flags & ZIP_FLAG_ENCRYPTED) != 0 ? EZipEncryption::Traditional
                                                      : EZipEncryption::None;
}

/// Moves what is left of an entry to a handle.
std::uint32_t Pump(CZipEntryReader& entry, HANDLE handle)
{
    std::vector<char> buffer(PIECE);
    for (;;)
    {
        std::size_t count = 0;
        const std::uint32_t code = entry.Read(buffer.data(), buffer.size(), count);
        if (code != ZIP_SUCCESS && code != ZIP_MORE)
            return code;
        DWORD done = 0;
        if (count > 0 && !WriteFile(handle, buffer.data(), static_cast<DWORD>(count), done))
            return ZIP_WRITE_FAILED;
        if (code == ZIP_SUCCESS)
            return code;
    }
}

} // namespace

CZipReader::CZipReader(const char* password)
    : m_Password(password ? password : ""),
      m_Entry(m_Input)
{
    m_Base = GetCurrentDirectoryW();
    if (!m_Base.IsEmpty()) // without a current folder nothing relative can be unpacked
        CFilePath::AddDirectorySeparator(m_Base);
}

std::uint32_t CZipReader::OpenFile(const char16_t* path)
{
    const std::uint32_t code = m_Input.OpenFile(path);
    return code == ZIP_SUCCESS ? m_Directory.Read(m_Input) : code;
}

std::uint32_t CZipReader::OpenHandle(HANDLE handle)
{
    const std::uint32_t code = m_Input.OpenHandle(handle);
    return code == ZIP_SUCCESS ? m_Directory.Read(m_Input) : code;
}

std::uint32_t CZipReader::OpenMemory(const void* memory, std::size_t length)
{
    m_Input.OpenMemory(memory, length);
    return m_Directory.Read(m_Input);
}

bool CZipReader::IsFolder(int index) const
{
    return (GetAttributes(index) & CFileStatus::directory) != 0;
}

DWORD CZipReader::GetAttributes(int index) const
{
    const CZipRecord& record = m_Directory.GetRecord(index);
    return ZipAttributesOf(record.m_Host, record.m_Attributes,
                           EndsInSeparator(m_Directory.GetName(index)));
}

std::uint32_t CZipReader::GetItem(int index, ZIPENTRY* entry)
{
    if (!entry || (index != -1 && !HasIndex(index)))
        return ZIP_ARGUMENTS;
    *entry = ZIPENTRY();
    if (index == -1)
    {
        entry->index = m_Directory.GetCount();
        entry->comp_size = entry->unc_size = -1;
        return ZIP_SUCCESS;
    }
    const CZipRecord& record = m_Directory.GetRecord(index);
    const CZipTimes times = ReadZipTimes(m_Input, record);
    entry->index = index;
    CopyName(m_Directory.GetName(index), entry->name);
    entry->attr = GetAttributes(index);
    entry->atime = times.m_Accessed;
    entry->ctime = times.m_Created;
    entry->mtime = times.m_Modified;
    entry->comp_size = ShortSize(record.m_PackedSize);
    entry->unc_size = ShortSize(record.m_Size);
    return ZIP_SUCCESS;
}

std::uint32_t CZipReader::GetInfo(int index, ZIPENTRYINFO* info)
{
    if (!info || !HasIndex(index))
        return ZIP_ARGUMENTS;
    const CZipRecord& record = m_Directory.GetRecord(index);
    info->name = m_Directory.GetName(index);
    info->comp_size = record.m_PackedSize;
    info->unc_size = record.m_Size;
    info->crc = record.m_Crc;
    info->method = record.m_Method;
    info->encryption = EncryptionOf(record);
    info->is_link = IsZipLink(record.m_Host, record.m_Attributes);
    return ZIP_SUCCESS;
}

std::uint32_t CZipReader::Find(const char16_t* name, bool ignoreCase, int* index, ZIPENTRY* entry)
{
    if (!name)
        return ZIP_ARGUMENTS;
    const int found = m_Directory.Find(name, ignoreCase);
    if (index)
        *index = found;
    if (found < 0)
        return ZIP_NOT_FOUND;
    return entry ? GetItem(found, entry) : ZIP_SUCCESS;
}

std::uint32_t CZipReader::SetBase(const char16_t* folder)
{
    if (!folder || *folder == 0)
        return ZIP_ARGUMENTS;
    m_Base = CFilePath::FullPath(folder);
    CFilePath::AddDirectorySeparator(m_Base);
    return ZIP_SUCCESS;
}

/// No other entry may be begun while one goes to memory.
std::uint32_t CZipReader::BeginEntry(int index)
{
    if (!HasIndex(index))
        return ZIP_ARGUMENTS;
    if (m_EntryIndex != -1)
        return ZIP_PARTLY_UNZIPPED;
    return m_Entry.Begin(m_Directory.GetRecord(index), m_Password);
}

std::uint32_t CZipReader::UnzipToMemory(int index, void* memory, std::size_t length)
{
    if (!memory && length > 0)
        return ZIP_ARGUMENTS;
    if (m_EntryIndex == -1 || m_EntryIndex != index)
    {
        if (const std::uint32_t code = BeginEntry(index); code != ZIP_SUCCESS)
            return code;
    }
    std::size_t done = 0;
    const std::uint32_t code = m_Entry.Read(static_cast<char*>(memory), length, done);
    m_EntryIndex = code == ZIP_MORE ? index : -1;
    return code;
}

std::uint32_t CZipReader::UnzipToHandle(int index, HANDLE handle)
{
    if (!handle)
        return ZIP_ARGUMENTS;
    const std::uint32_t code = BeginEntry(index);
    return code == ZIP_SUCCESS ? Pump(m_Entry, handle) : code;
}

std::uint32_t CZipReader::UnzipToPath(int index, const char16_t* path)
{
    const std::u16string_view wanted(path ? path : u"");
    if (!HasIndex(index) || wanted.empty())
        return ZIP_ARGUMENTS;
    if (m_EntryIndex != -1)
        return ZIP_PARTLY_UNZIPPED;
    if (!IsAbsolute(wanted))
        return UnzipToFile(index, m_Base, wanted);
    // The caller's own folder: links on the way to it are his.
    const std::size_t last = EndsInSeparator(wanted) ? wanted.size() : wanted.find_last_of(u"\\/:");
    return UnzipToFile(index, wanted.substr(0, last + 1),
                       wanted.substr(std::min(last + 1, wanted.size())));
}

std::uint32_t CZipReader::UnzipToFile(int index, const CString& base, std::u16string_view path)
{
    CConfinedFolder folder;
    if ((GetEntryKind(base) == EEntryKind::None && !CFilePath::CreateDirectoryW(base)) ||
        !folder.Open(base))
        return ZIP_NO_FILE;
    if (path.empty() || EndsInSeparator(path) || IsFolder(index))
        return folder.MakeFolder(path) ? ZIP_SUCCESS : ZIP_NO_FILE;

    // The entry is looked at first: what cannot be unpacked makes no folder.
    const CZipRecord& record = m_Directory.GetRecord(index);
    if (const std::uint32_t code = BeginEntry(index); code != ZIP_SUCCESS)
        return code;
    CConfinedFile file;
    if (!file.Begin(folder, path))
        return ZIP_NO_FILE;
    if (const std::uint32_t code = Pump(m_Entry, file.GetHandle()); code != ZIP_SUCCESS)
        return code;
    const CZipTimes times = ReadZipTimes(m_Input, record);
    if (!SetFileTime(file.GetHandle(), &times.m_Created, &times.m_Accessed, &times.m_Modified))
        return ZIP_WRITE_FAILED;
    return file.Commit(true, (GetAttributes(index) & CFileStatus::readOnly) != 0) ? ZIP_SUCCESS
                                                                                  : ZIP_NO_FILE;
}

} // namespace utility
