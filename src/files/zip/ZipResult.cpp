#include "files/zip/ZipResult.h"

#include <algorithm>
#include <atomic>
#include <string_view>

namespace utility
{

namespace
{

constinit std::atomic<ZRESULT> g_LastU{ZIP_SUCCESS};
constinit std::atomic<ZRESULT> g_LastZ{ZIP_SUCCESS};

struct CResultText
{
    ZRESULT m_Code;
    std::u16string_view m_Text;
};

// What both sides share
constexpr CResultText TEXTS[] = {
    {ZIP_SUCCESS, u"Success"},
    {ZIP_NO_FILE, u"Couldn't create/open file"},
    {ZIP_NO_MEMORY, u"Failed to allocate memory"},
    {ZIP_WRITE_FAILED, u"Error writing to file"},
    {ZIP_NOT_FOUND, u"File not found in the zipfile"},
    {ZIP_MORE, u"Still more data to unzip"},
    {ZIP_CORRUPT, u"Zipfile is corrupt or not a zipfile"},
    {ZIP_READ_FAILED, u"Error reading file"},
    {ZIP_ARGUMENTS, u"Caller: faulty arguments"},
    {ZIP_NOT_MEMORY, u"Caller: can only get memory of a memory zipfile"},
    {ZIP_MEMORY_SIZE, u"Caller: not enough space allocated for memory zipfile"},
    {ZIP_FAILED_BEFORE, u"Caller: there was a previous error"},
    {ZIP_ENDED, u"Caller: additions to the zip have already been ended"},
    {ZIP_SIZE_WRONG, u"Zip-bug: the anticipated size turned out wrong"},
    {ZIP_PARTLY_UNZIPPED, u"Caller: the file had already been partially unzipped"},
    {ZIP_WRONG_KIND, u"Caller: mixing creation and opening of zip"},
    {ZIP_NOT_INITIALISED, u"Zip-bug: internal initialisation not completed"},
    {ZIP_UNSEEKABLE, u"Zip-bug: trying to seek the unseekable"},
    {ZIP_NO_CHANGE, u"Zip-bug: tried to change mind, but not allowed"},
    {ZIP_FLATION, u"Zip-bug: an internal error during flation"},
};

// The first spelling is that of programs in the field, which compare with it.
constexpr CResultText TEXTS_U[] = {{ZIP_NO_DUPLICATE, u"Culdn't duplicate handle"},
                                   {ZIP_PASSWORD, u"Correct password required"}};
constexpr CResultText TEXTS_Z[] = {{ZIP_NO_DUPLICATE, u"Couldn't duplicate handle"}};
constexpr std::u16string_view UNKNOWN_TEXT = u"unknown zip result code";

template <std::size_t COUNT>
std::u16string_view FindText(const CResultText (&own)[COUNT], ZRESULT code)
{
    const auto isWanted = [code](const CResultText& each)
    {
        return each.m_Code == code;
    };
    if (const auto* found = std::ranges::find_if(own, isWanted); found != std::end(own))
        return found->m_Text;
    const auto* shared = std::ranges::find_if(TEXTS, isWanted);
    return shared != std::end(TEXTS) ? shared->m_Text : UNKNOWN_TEXT;
}

unsigned CopyText(std::u16string_view text, char16_t* buffer, unsigned length)
{
    if (buffer && length > 0)
        buffer[text.copy(buffer, length - 1)] = 0;
    return static_cast<unsigned>(text.size());
}

} // namespace

unsigned FormatZipMessageU(ZRESULT code, char16_t* buffer, unsigned length)
{
    return CopyText(FindText(TEXTS_U, code == ZIP_RECENT ? g_LastU.load() : code), buffer, length);
}

unsigned FormatZipMessageZ(ZRESULT code, char16_t* buffer, unsigned length)
{
    return CopyText(FindText(TEXTS_Z, code == ZIP_RECENT ? g_LastZ.load() : code), buffer, length);
}

ZRESULT GetLastZipResultU()
{
    return g_LastU;
}

ZRESULT GetLastZipResultZ()
{
    return g_LastZ;
}

ZRESULT SetLastZipResultU(ZRESULT code)
{
    g_LastU = code;
    return code;
}

ZRESULT SetLastZipResultZ(ZRESULT code)
{
    g_LastZ = code;
    return code;
}

} // namespace utility
