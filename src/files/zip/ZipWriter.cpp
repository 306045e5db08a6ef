#include "files/zip/ZipWriter.h"

#include "files/zip/ZipAttributes.h"
#include "files/zip/ZipNames.h"
#include "files/zip/ZipResult.h"
#include "platform/base/CaseFold.h"
#include "platform/base/Encoding.h"

#include <algorithm>
#include <limits>

namespace utility
{

namespace
{

constexpr std::size_t NAME_LIMIT = 0xFFFF; // bytes

CString Separated(const char16_t* name)
{
    CString separated(name);
    separated.Replace(u'\\', u'/');
    return separated;
}

} // namespace

CZipWriter::CZipWriter(const char16_t* password, const CZipLimits& limits)
    : m_Limits(limits),
      m_Data(ToUtf8(password ? password : u""), limits.m_Size)
{
}

CZipWriter::~CZipWriter() = default;

std::uint32_t CZipWriter::OpenFile(const char16_t* path)
{
    return m_Target.OpenFile(path);
}

std::uint32_t CZipWriter::OpenHandle(HANDLE handle)
{
    return m_Target.OpenHandle(handle);
}

std::uint32_t CZipWriter::OpenMemory(void* memory, std::size_t length)
{
    return m_Target.OpenMemory(memory, length);
}

std::uint64_t CZipWriter::GetLength() const
{
    return m_Target.GetLength();
}

std::uint32_t CZipWriter::CheckState() const
{
    if (m_HasFailed)
        return ZIP_FAILED_BEFORE;
    return m_HasEnded ? ZIP_ENDED : ZIP_SUCCESS;
}

std::uint32_t CZipWriter::Fail(std::uint32_t code)
{
    m_HasFailed = true;
    return code;
}

std::uint32_t CZipWriter::AddFile(const char16_t* name, const char16_t* path)
{
    if (const std::uint32_t code = CheckState(); code != ZIP_SUCCESS)
        return code;
    CZipSource source;
    const std::uint32_t code = path && *path ? source.OpenFile(path) : ZIP_ARGUMENTS;
    return code == ZIP_SUCCESS ? Add(name, source) : Fail(code);
}

std::uint32_t CZipWriter::AddHandle(const char16_t* name, HANDLE handle,
                                    std::optional<std::uint64_t> length)
{
    if (const std::uint32_t code = CheckState(); code != ZIP_SUCCESS)
        return code;
    CZipSource source;
    const std::uint32_t code = handle ? source.OpenHandle(handle, length) : ZIP_ARGUMENTS;
    return code == ZIP_SUCCESS ? Add(name, source) : Fail(code);
}

std::uint32_t CZipWriter::AddMemory(const char16_t* name, const void* memory, std::size_t length)
{
    if (const std::uint32_t code = CheckState(); code != ZIP_SUCCESS)
        return code;
    if (!memory && length > 0)
        return Fail(ZIP_ARGUMENTS);
    CZipSource source;
    source.OpenMemory(memory, length);
    return Add(name, source);
}

std::uint32_t CZipWriter::AddFolder(const char16_t* name, const char16_t* path)
{
    if (const std::uint32_t code = CheckState(); code != ZIP_SUCCESS)
        return code;
    CZipSource source;
    const std::uint32_t code = source.OpenFolder(path);
    return code == ZIP_SUCCESS ? Add(name, source) : Fail(code);
}

std::uint32_t CZipWriter::Add(const char16_t* name, CZipSource& source)
{
    if (const std::uint32_t code = CheckState(); code != ZIP_SUCCESS)
        return code;
    const std::uint64_t start = m_Target.GetLength();
    m_HasFailed = true; // until it has succeeded: memory may end anywhere in between
    std::uint32_t code = DescribeEntry(name, source);
    if (code == ZIP_SUCCESS)
        code = WriteEntry(source);
    m_HasFailed = code != ZIP_SUCCESS;
    if (m_HasFailed)
        m_Target.GoBack(start);
    return code;
}

/// All of the header that is known before the data.
std::uint32_t CZipWriter::DescribeEntry(const char16_t* name, const CZipSource& source)
{
    CString stored = Separated(name);
    if (stored.IsEmpty())
        return ZIP_ARGUMENTS;
    if (source.IsFolder() && !stored.View().ends_with(u'/'))
        stored += u'/';

    m_Header = CZipHeader();
    m_Header.m_Name = ToUtf8(stored.View());
    if (m_Header.m_Name.size() > NAME_LIMIT)
        return ZIP_ARGUMENTS;
    if (source.IsFolder() || IsStoredZipName(m_Header.m_Name))
        m_Header.m_Method = ZIP_STORED;
    if (!source.IsFolder() && m_Data.IsEncrypting())
        m_Header.m_Flags |= ZIP_FLAG_ENCRYPTED;
    const CZipTimes& times = source.GetTimes();
    m_Header.m_DosTime = DosTimeOf(times.m_Modified);
    m_Header.m_Modified = UnixTimeOf(times.m_Modified);
    m_Header.m_Accessed = UnixTimeOf(times.m_Accessed);
    m_Header.m_Created = UnixTimeOf(times.m_Created);
    m_Header.m_Attributes = ExternalZipAttributes(source.IsFolder(), source.IsReadOnly());
    m_Header.m_Offset = m_Target.GetLength();
    m_Header.m_IsLarge =
        CZipEntryWriter::GetBound(m_Header, source.GetSize().value_or(0)) >= m_Limits.m_Size;
    return ZIP_SUCCESS;
}

std::uint32_t CZipWriter::WriteEntry(CZipSource& source)
{
    std::uint32_t code = Put(MakeZipLocalHeader(m_Header));
    if (code == ZIP_SUCCESS && !source.IsFolder())
        code = m_Data.Write(source, m_Header, *this);
    return code == ZIP_SUCCESS ? FinishEntry() : code;
}

/// In memory, room stays for the directory of the entries that are complete.
std::uint32_t CZipWriter::Put(std::string_view bytes)
{
    const std::uint64_t end = m_Target.GetLength() + bytes.size();
    return m_Target.Put(bytes, m_DirectorySize +
                                   GetZipEndSize(m_Entries.size(), m_DirectorySize, end, m_Limits));
}

std::uint32_t CZipWriter::FinishEntry()
{
    m_Entries.push_back({FromUtf8(m_Header.m_Name), MakeZipCentralRecord(m_Header, m_Limits)});
    m_DirectorySize += m_Entries.back().m_Record.size();
    const std::uint32_t code = Put(MakeZipDescriptor(m_Header));
    if (code != ZIP_SUCCESS)
    {
        m_DirectorySize -= m_Entries.back().m_Record.size();
        m_Entries.pop_back();
    }
    return code;
}

std::uint32_t CZipWriter::Promote(const CString& name)
{
    if (m_HasEnded)
        return ZIP_ENDED;
    const CString wanted = Separated(name);
    const auto found =
        std::ranges::find_if(m_Entries, [&](const CEntry& entry)
                             { return EqualNoCase(entry.m_Name.View(), wanted.View()); });
    if (found == m_Entries.end())
        return ZIP_NOT_FOUND;
    std::rotate(m_Entries.begin(), found, found + 1);
    return ZIP_SUCCESS;
}

std::uint32_t CZipWriter::GetMemory(void** memory, std::uint32_t* length)
{
    if (!memory || !length)
        return ZIP_ARGUMENTS;
    if (!m_Target.IsMemory())
        return ZIP_NOT_MEMORY;
    if (const std::uint32_t code = End(); code != ZIP_SUCCESS)
        return code;
    *memory = m_Target.GetMemory();
    *length = static_cast<std::uint32_t>(m_Target.GetLength());
    return ZIP_SUCCESS;
}

std::uint32_t CZipWriter::End()
{
    if (m_HasEnded)
        return ZIP_SUCCESS;
    const std::uint64_t start = m_Target.GetLength();
    constexpr std::size_t PIECE = 64 * 1024;
    std::string bytes;
    const auto write = [&](std::size_t least)
    {
        const std::uint32_t code = bytes.size() < least ? ZIP_SUCCESS : m_Target.Put(bytes);
        if (bytes.size() >= least)
            bytes.clear();
        return code;
    };
    for (const CEntry& entry : m_Entries)
    {
        bytes += entry.m_Record;
        if (const std::uint32_t code = write(PIECE); code != ZIP_SUCCESS)
            return code;
    }
    bytes += MakeZipEnd(m_Entries.size(), m_DirectorySize, start, m_Limits);
    if (const std::uint32_t code = write(0); code != ZIP_SUCCESS)
        return code;
    m_HasEnded = true;
    return ZIP_SUCCESS;
}

} // namespace utility
