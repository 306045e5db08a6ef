#include "platform/base/Encoding.h"

#include "platform/base/CodePageTables.h"
#include "platform/base/SystemPages.h"
#include "platform/base/UnitSearch.h"
#include "platform/base/Utf8.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <limits>

namespace utility
{

namespace
{

constinit std::atomic<UINT> overriddenPage{0};

// Texts up to here are converted on the stack and then stored at their exact size.
constexpr std::size_t SHORT_TEXT = 1024;

UINT ResolvePage(UINT page)
{
    return page == CP_ACP ? GetACP() : page;
}

std::string EncodeByTable(const CCodePage& page, std::u16string_view text,
                          std::string_view substitute, bool& usedDefault)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t unit : text)
    {
        const int byte = page.FindByte(unit);
        if (byte >= 0)
            bytes += static_cast<char>(byte);
        else
            bytes += substitute;
        usedDefault = usedDefault || byte < 0;
    }
    return bytes;
}

std::u16string DecodeByTable(const CCodePage& page, std::string_view bytes)
{
    std::u16string text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [&page](char byte) { return page.GetUnit(static_cast<unsigned char>(byte)); });
    return text;
}

// Every page but UTF-8; an unknown one gives no bytes.
std::string EncodePage(UINT page, std::u16string_view text, std::string_view substitute,
                       bool& usedDefault)
{
    if (const CCodePage* table = FindCodePage(page))
        return EncodeByTable(*table, text, substitute, usedDefault);
    if (systempages::IsKnown(page))
        return systempages::Encode(page, text, substitute, usedDefault);
    return std::string();
}

std::u16string DecodePage(UINT page, std::string_view bytes)
{
    if (const CCodePage* table = FindCodePage(page))
        return DecodeByTable(*table, bytes);
    if (systempages::IsKnown(page))
        return systempages::Decode(page, bytes);
    return std::u16string();
}

// The result of a call with a buffer: the whole conversion or nothing.
template <typename TCharacter>
int Deliver(std::basic_string_view<TCharacter> result, TCharacter* target, int capacity)
{
    if (result.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return 0;
    const auto needed = static_cast<int>(result.size());
    if (capacity == 0)
        return needed;
    if (needed > capacity || !target)
        return 0;
    std::copy(result.begin(), result.end(), target);
    return needed;
}

int CountResult(std::size_t needed)
{
    return needed > static_cast<std::size_t>(std::numeric_limits<int>::max())
               ? 0
               : static_cast<int>(needed);
}

} // namespace

int WideCharToMultiByte(UINT page, DWORD, const char16_t* text, int length, char* bytes,
                        int capacity, const char* defaultChar, BOOL* usedDefault)
{
    if (usedDefault)
        *usedDefault = FALSE;
    if (!text || capacity < 0)
        return 0;
    const std::u16string_view source(text, length < 0 ? units::Length(text) + 1
                                                      : static_cast<std::size_t>(length));
    page = ResolvePage(page);
    if (page == CP_UTF8)
    {
        const int needed = CountResult(utf8::CountBytes(source));
        if (capacity == 0)
            return needed;
        if (needed > capacity || !bytes)
            return 0;
        return static_cast<int>(utf8::Encode(source, bytes));
    }

    bool used = false;
    const std::string result = EncodePage(page, source, defaultChar ? defaultChar : "?", used);
    if (usedDefault)
        *usedDefault = used ? TRUE : FALSE;
    return Deliver(std::string_view(result), bytes, capacity);
}

int MultiByteToWideChar(UINT page, DWORD, const char* bytes, int length, char16_t* text,
                        int capacity)
{
    if (!bytes || capacity < 0)
        return 0;
    const std::string_view source(bytes, length < 0 ? std::strlen(bytes) + 1
                                                    : static_cast<std::size_t>(length));
    page = ResolvePage(page);
    if (page == CP_UTF8)
    {
        const int needed = CountResult(utf8::CountUnits(source));
        if (capacity == 0)
            return needed;
        if (needed > capacity || !text)
            return 0;
        return static_cast<int>(utf8::Decode(source, text));
    }
    return Deliver(std::u16string_view(DecodePage(page, source)), text, capacity);
}

UINT GetACP()
{
    static const UINT localePage = systempages::GetLocalePage();
    const UINT page = overriddenPage.load(std::memory_order_relaxed);
    return page != 0 ? page : localePage;
}

void SetACP(UINT page)
{
    overriddenPage.store(page, std::memory_order_relaxed);
}

std::string ToBytes(UINT page, std::u16string_view text)
{
    page = ResolvePage(page);
    if (page == CP_UTF8)
        return ToUtf8(text);
    bool usedDefault = false;
    return EncodePage(page, text, "?", usedDefault);
}

CString FromBytes(UINT page, std::string_view bytes)
{
    page = ResolvePage(page);
    if (page == CP_UTF8)
        return FromUtf8(bytes);
    return CString(DecodePage(page, bytes));
}

std::string ToUtf8(std::u16string_view text)
{
    if (text.size() <= SHORT_TEXT)
    {
        char bytes[SHORT_TEXT * utf8::BYTES_PER_UNIT];
        return std::string(bytes, utf8::Encode(text, bytes));
    }
    std::string bytes(utf8::CountBytes(text), '\0');
    utf8::Encode(text, bytes.data());
    return bytes;
}

CString FromUtf8(std::string_view bytes)
{
    if (bytes.size() <= SHORT_TEXT)
    {
        char16_t text[SHORT_TEXT];
        return CString(std::u16string_view(text, utf8::Decode(bytes, text)));
    }
    CString text;
    const std::size_t length = utf8::CountUnits(bytes);
    if (length >= static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw std::bad_alloc();
    utf8::Decode(bytes, text.GetBufferSetLength(static_cast<int>(length)));
    return text;
}

} // namespace utility
