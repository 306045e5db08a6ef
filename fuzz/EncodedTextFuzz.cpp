#include "files/encoded/StdioFileEx.h"
#include "platform/base/Encoding.h"

#include "Require.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

using namespace utility;

namespace
{

constexpr UINT MODES[] = {0, CStdioFileEx::modeReadUTF8, CStdioFileEx::modeWriteUnicode,
                          CStdioFileEx::modeRtf};

std::vector<CString> ReadLines(const CString& path, UINT flags)
{
    std::vector<CString> lines;
    CStdioFileEx file(path, CFile::modeRead | flags);
    for (CString line; file.ReadString(line);)
        lines.push_back(line);
    return lines;
}

/// The lines of the short form put together again.
CString ReadInPieces(const CString& path, UINT flags)
{
    CString text;
    CStdioFileEx file(path, CFile::modeRead | flags);
    char16_t piece[5];
    while (file.ReadString(piece, 5) != nullptr)
        text += piece;
    return text;
}

/// Line by line, for two halves of a pair may stand on both sides of a line end.
bool CanHoldAsUtf8(const std::vector<CString>& lines)
{
    return std::ranges::all_of(lines, [](const CString& line)
                               { return FromUtf8(ToUtf8(line.View())) == line; });
}

} // namespace

/// The first byte chooses how the rest is read. What was read as lines is written in two encodings
/// and comes back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string native = "/dev/shm/encoded-text-fuzz-" + std::to_string(getpid());
    const CString path = FromUtf8(native);
    const UINT flags = size == 0 ? 0 : MODES[data[0] % std::size(MODES)];
    std::ofstream(native, std::ios::binary)
        .write(reinterpret_cast<const char*>(data) + (size == 0 ? 0 : 1),
               static_cast<std::streamsize>(size - (size != 0)));

    const std::vector<CString> lines = ReadLines(path, flags);
    std::size_t units = 0;
    bool isPlain = true; // no unit that a text cannot hold, or that writing makes a line end of
    CString joined;
    for (const CString& line : lines)
    {
        units += line.View().size();
        joined += line;
        isPlain = isPlain && line.View().find_first_of(std::u16string_view(u"\0\r\n", 3)) ==
                                 std::u16string_view::npos;
    }
    Require(units <= size);
    if (isPlain)
        Require(ReadInPieces(path, flags) == joined);

    for (const UINT written : {CStdioFileEx::modeWriteUnicode, CStdioFileEx::modeWriteUtf8})
    {
        const bool holdsAll = written == CStdioFileEx::modeWriteUnicode || CanHoldAsUtf8(lines);
        if (!isPlain || !holdsAll)
            continue;
        CStdioFileEx file(path, CFile::modeCreate | CFile::modeWrite | written);
        for (const CString& line : lines)
            file.WriteString(line + u"\n");
        file.Close();
        Require(ReadLines(path, 0) == lines);
    }
    unlink(native.c_str());
    return 0;
}
