#pragma once

#include "files/zip/ZipEntryReader.h"
#include "files/zip/ZipOpen.h"

#include <string>

namespace utility
{

/// The worker behind an archive that is read. Each operation gives a result code.
class CZipReader
{
public:
    explicit CZipReader(const char* password);

    std::uint32_t OpenFile(const char16_t* path);
    std::uint32_t OpenHandle(HANDLE handle);
    std::uint32_t OpenMemory(const void* memory, std::size_t length);

    std::uint32_t GetItem(int index, ZIPENTRY* entry);
    std::uint32_t GetInfo(int index, ZIPENTRYINFO* info);
    std::uint32_t Find(const char16_t* name, bool ignoreCase, int* index, ZIPENTRY* entry);
    std::uint32_t SetBase(const char16_t* folder);

    std::uint32_t UnzipToPath(int index, const char16_t* path);
    std::uint32_t UnzipToMemory(int index, void* memory, std::size_t length);
    std::uint32_t UnzipToHandle(int index, HANDLE handle);

private:
    bool HasIndex(int index) const { return index >= 0 && index < m_Directory.GetCount(); }
    bool IsFolder(int index) const;
    DWORD GetAttributes(int index) const;
    std::uint32_t BeginEntry(int index);
    std::uint32_t UnzipToFile(int index, const CString& base, std::u16string_view path);

    std::string m_Password;
    CString m_Base; // with a closing separator
    CZipInput m_Input;
    CZipDirectory m_Directory;
    CZipEntryReader m_Entry;
    int m_EntryIndex = -1; // of what goes to memory piece by piece, while it is under way
};

} // namespace utility
