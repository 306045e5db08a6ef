#include "files/zip/ZipFault.h"
#include "files/zip/ZipNames.h"
#include "files/zip/ZipOpen.h"
#include "files/zip/ZipResult.h"
#include "platform/base/String.h"

#include "Require.h"

#include <cstdint>

using namespace utility;

namespace
{

constexpr std::size_t RECORD_SIZE = 46; // at least, of each entry in the directory

/// What the two calls tell of an entry fits together, and its name stays below any folder.
void CheckEntry(HZIP zip, int index)
{
    ZIPENTRY entry;
    ZIPENTRYINFO info;
    Require(GetZipItem(zip, index, &entry) == ZIP_SUCCESS);
    Require(GetZipItemInfo(zip, index, &info) == ZIP_SUCCESS);
    Require(entry.index == index);
    Require(CleanZipName(info.name.View()) == info.name.View());
    Require(info.name.View().starts_with(CString(entry.name).View()));
    Require(entry.unc_size == -1 || static_cast<std::uint64_t>(entry.unc_size) == info.unc_size);
}

/// It is found by its name, or one of the same name in front of it is.
void CheckName(HZIP zip, int index)
{
    ZIPENTRYINFO info;
    Require(GetZipItemInfo(zip, index, &info) == ZIP_SUCCESS);
    if (info.name.View().find(u'\0') != std::u16string_view::npos)
        return; // the text of a call ends there
    for (const bool ignoresCase : {false, true})
    {
        int found = -1;
        Require(FindZipItem(zip, info.name, ignoresCase, &found, nullptr) == ZIP_SUCCESS);
        Require(found >= 0 && found <= index);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const HZIP zip = OpenZip(data, static_cast<unsigned>(size), nullptr);
    if (!zip)
    {
        Require(size == 0 || GetLastZipResultU() == ZIP_CORRUPT);
        Require(GetLastZipResultU() != ZIP_CORRUPT || GetZipFault() != EZipFault::None);
        return 0;
    }
    ZIPENTRY total;
    Require(GetZipItem(zip, -1, &total) == ZIP_SUCCESS);
    Require(static_cast<std::size_t>(total.index) * RECORD_SIZE <= size);
    for (int index = 0; index < total.index; ++index)
    {
        CheckEntry(zip, index);
        CheckName(zip, index);
    }
    Require(GetZipItem(zip, total.index, &total) == ZIP_ARGUMENTS);
    Require(CloseZipU(zip) == ZIP_SUCCESS);
    return 0;
}
