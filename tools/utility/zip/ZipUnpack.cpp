#include "utility/zip/ZipUnpack.h"

#include "files/FilePath.h"
#include "files/zip/ZipResult.h"
#include "platform/base/LastError.h"
#include "platform/system/SystemMessage.h"
#include "platform/system/file/ConfinedFolder.h"
#include "platform/system/file/NativePath.h"

#include "utility/command/Command.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ByteCount.h"
#include "utility/output/ToolOutput.h"
#include "utility/zip/ZipArchive.h"
#include "utility/zip/ZipUnpacking.h"

namespace utility
{

namespace
{

constexpr std::uint64_t DEFAULT_LIMIT = std::uint64_t{10} << 30U; // bytes, if so many are free

bool ReadLimit(const CCommandCall& call, std::uint64_t& limit)
{
    const std::optional<std::uint64_t> wanted =
        call.Has("max-size") ? ReadByteCount(call.Get("max-size")) : DEFAULT_LIMIT;
    limit = wanted.value_or(0);
    if (!wanted)
        PrintError(u"--max-size: a count of bytes is wanted, such as 500M");
    return wanted.has_value();
}

/// False, and it is told, if there is more to unpack than there may be.
bool IsWithin(std::uint64_t limit, std::uint64_t size, const CCommandCall& call,
              const char16_t* limitWords)
{
    if (size <= limit)
        return true;
    CString words;
    words.Format(u"%s: nothing is unpacked: it would be %I64u bytes, and ",
                 NativePath(call.GetArgument(0)), size);
    words.AppendFormat(limitWords, limit);
    PrintError(words);
    return false;
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

} // namespace

int ExtractZip(const CCommandCall& call)
{
    std::uint64_t limit = 0;
    if (!ReadLimit(call, limit))
        return RESULT_USAGE;
    CZipArchive archive;
    if (archive.Open(call) != ZIP_SUCCESS)
        return RESULT_FAILURE;
    std::vector<int> entries;
    if (!archive.Select(call, entries))
        return RESULT_NO;
    const std::uint64_t size = archive.SumSizes(entries);
    CConfinedFolder folder;
    if (!IsWithin(limit, size, call, u"--max-size is %I64u") || !OpenTarget(call, folder) ||
        !IsWithin(folder.GetFreeSpace(), size, call, u"%I64u are free"))
        return RESULT_FAILURE;

    CZipUnpacking unpacking(archive, folder, call.Has("overwrite"), size);
    for (const int index : entries)
    {
        if (IsInterrupted())
            break;
        unpacking.Unpack(index);
    }
    unpacking.End();
    return unpacking.Tell(call);
}

} // namespace utility
