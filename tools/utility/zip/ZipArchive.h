#pragma once

#include "files/zip/ZipOpen.h"

#include <functional>
#include <string_view>
#include <vector>

namespace utility
{

class CCommandCall;

/// An archive that a command reads, open as long as this is.
class CZipArchive
{
public:
    CZipArchive() = default;
    ~CZipArchive() { CloseZipU(m_Zip); }
    CZipArchive(const CZipArchive&) = delete;
    CZipArchive& operator=(const CZipArchive&) = delete;

    /// Opens the command's first argument with the password that its options tell; the code, told
    /// on the error output if it is a failure.
    ZRESULT Open(const CCommandCall& call);

    HZIP GetHandle() const { return m_Zip; }

    /// The entries whose names fit one of the patterns behind the first argument, all without any;
    /// in the archive's order. False, and it is told, if there are patterns and nothing fits.
    [[nodiscard]] bool Select(const CCommandCall& call, std::vector<int>& entries) const;
    /// What they have when unpacked; the greatest number if that is more.
    std::uint64_t SumSizes(const std::vector<int>& entries) const;

    ZIPENTRYINFO GetInfo(int index) const;
    ZIPENTRY GetEntry(int index) const;

    /// The content of an entry in pieces; `use` takes each and may stop by false, which gives
    /// ZIP_MORE.
    ZRESULT Read(int index, const std::function<bool(std::string_view piece)>& use) const;

private:
    HZIP m_Zip = nullptr;
};

} // namespace utility
