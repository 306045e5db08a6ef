#pragma once

#include "files/zip/ZipCreate.h"
#include "files/zip/ZipEntryWriter.h"
#include "files/zip/ZipTarget.h"
#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <optional>
#include <string>
#include <vector>

namespace utility
{

/// The worker behind an archive that is made: entries go out one by one, the directory last. Each
/// operation gives a result code.
class UTILITY_CORE_API CZipWriter : private IZipSink
{
public:
    explicit CZipWriter(const char16_t* password, const CZipLimits& limits = CZipLimits());
    ~CZipWriter() override;
    CZipWriter(const CZipWriter&) = delete;
    CZipWriter& operator=(const CZipWriter&) = delete;

    std::uint32_t OpenFile(const char16_t* path);
    std::uint32_t OpenHandle(HANDLE handle);
    /// Null takes a block of that length of its own.
    std::uint32_t OpenMemory(void* memory, std::size_t length);

    /// Bytes written so far.
    std::uint64_t GetLength() const;

    /// After a failure what is complete stays, and nothing more is taken.
    std::uint32_t Add(const char16_t* name, CZipSource& source);
    std::uint32_t AddFile(const char16_t* name, const char16_t* path);
    std::uint32_t AddHandle(const char16_t* name, HANDLE handle,
                            std::optional<std::uint64_t> length);
    std::uint32_t AddMemory(const char16_t* name, const void* memory, std::size_t length);
    std::uint32_t AddFolder(const char16_t* name, const char16_t* path);

    void SetProgress(CZipProgress progress) { m_Data.SetProgress(std::move(progress)); }

    std::uint32_t Promote(const CString& name);
    std::uint32_t GetMemory(void** memory, std::uint32_t* length);

    /// Writes the directory, once.
    std::uint32_t End();

private:
    struct CEntry
    {
        CString m_Name;
        std::string m_Record; // of the directory
    };

    /// Whether an entry may come; else the archive takes none from now on.
    std::uint32_t CheckState() const;
    std::uint32_t Fail(std::uint32_t code);
    std::uint32_t DescribeEntry(const char16_t* name, const CZipSource& source);
    std::uint32_t WriteEntry(CZipSource& source);
    std::uint32_t FinishEntry();
    std::uint32_t Put(std::string_view bytes) override;

    CZipLimits m_Limits;
    CZipTarget m_Target;
    CZipEntryWriter m_Data;
    CZipHeader m_Header; // of the entry under way
    std::vector<CEntry> m_Entries;
    std::uint64_t m_DirectorySize = 0;
    bool m_HasFailed = false;
    bool m_HasEnded = false;
};

} // namespace utility
