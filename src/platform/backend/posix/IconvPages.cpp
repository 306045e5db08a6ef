#include "platform/base/CodePageTables.h"
#include "platform/base/SystemPages.h"

#include <bit>
#include <cerrno>
#include <iconv.h>
#include <langinfo.h>
#include <locale.h>
#include <strings.h>

namespace utility::systempages
{

namespace
{

struct CPageName
{
    UINT m_Page;
    const char* m_Name;
};

constexpr UINT UTF8_PAGE = 65001;

// Page numbers and the converter's names for them, without the pages that do not hold ASCII. Of
// several numbers of one name, the first is the locale's.
constexpr CPageName PAGE_NAMES[] = {
    {708, "ISO-8859-6"},   {737, "CP737"},         {775, "CP775"},          {852, "CP852"},
    {855, "CP855"},        {857, "CP857"},         {858, "CP858"},          {860, "CP860"},
    {861, "CP861"},        {862, "CP862"},         {863, "CP863"},          {864, "CP864"},
    {865, "CP865"},        {866, "CP866"},         {869, "CP869"},          {874, "CP874"},
    {932, "CP932"},        {936, "CP936"},         {949, "CP949"},          {950, "CP950"},
    {1361, "JOHAB"},       {10000, "MACINTOSH"},   {10007, "MAC-CYRILLIC"}, {20866, "KOI8-R"},
    {21866, "KOI8-U"},     {28592, "ISO-8859-2"},  {28593, "ISO-8859-3"},   {28594, "ISO-8859-4"},
    {28595, "ISO-8859-5"}, {28596, "ISO-8859-6"},  {28597, "ISO-8859-7"},   {28598, "ISO-8859-8"},
    {28599, "ISO-8859-9"}, {28603, "ISO-8859-13"}, {50220, "ISO-2022-JP"},  {50225, "ISO-2022-KR"},
    {51932, "EUC-JP"},     {51936, "GB2312"},      {51949, "EUC-KR"},       {51950, "EUC-TW"},
    {54936, "GB18030"},
};

// Code sets that a locale may have under another name than the converter's.
constexpr CPageName LOCALE_NAMES[] = {
    {28591, "ISO-8859-1"}, {28605, "ISO-8859-15"}, {1250, "CP1250"}, {1251, "CP1251"},
    {1252, "CP1252"},      {1253, "CP1253"},       {1254, "CP1254"}, {1255, "CP1255"},
    {1256, "CP1256"},      {1257, "CP1257"},       {1258, "CP1258"}, {437, "CP437"},
    {850, "CP850"},        {936, "GBK"},           {950, "BIG5"},    {932, "SHIFT_JIS"},
    {932, "SJIS"},         {874, "TIS-620"},
};

constexpr const char* UNIT_ENCODING =
    std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

const char* FindName(UINT page)
{
    for (const CPageName& entry : PAGE_NAMES)
        if (entry.m_Page == page)
            return entry.m_Name;
    return nullptr;
}

template <std::size_t COUNT>
UINT FindPage(const CPageName (&names)[COUNT], const char* name)
{
    for (const CPageName& entry : names)
        if (strcasecmp(entry.m_Name, name) == 0)
            return entry.m_Page;
    return 0;
}

/// One conversion in one direction, piece by piece.
class CConverter
{
public:
    CConverter(const char* to, const char* from) : m_Descriptor(iconv_open(to, from)) {}
    ~CConverter()
    {
        if (IsOpen())
            iconv_close(m_Descriptor);
    }
    CConverter(const CConverter&) = delete;
    CConverter& operator=(const CConverter&) = delete;

    bool IsOpen() const { return m_Descriptor != reinterpret_cast<iconv_t>(-1); }

    /// Converts as far as it goes and takes that off the source; what is left begins with a piece
    /// that has no equal or is incomplete.
    void Convert(std::string_view& source, std::string& result)
    {
        char* place = const_cast<char*>(source.data());
        std::size_t left = source.size();
        Run(&place, &left, result);
        source.remove_prefix(source.size() - left);
    }

    /// Puts what brings the result back to the converter's first state.
    void Finish(std::string& result) { Run(nullptr, nullptr, result); }

private:
    void Run(char** place, std::size_t* left, std::string& result)
    {
        for (;;)
        {
            char piece[4096];
            char* out = piece;
            std::size_t room = sizeof(piece);
            const std::size_t status = iconv(m_Descriptor, place, left, &out, &room);
            const int failure = errno;
            result.append(piece, static_cast<std::size_t>(out - piece));
            if (status != static_cast<std::size_t>(-1) || failure != E2BIG)
                return;
        }
    }

    iconv_t m_Descriptor;
};

} // namespace

bool IsKnown(UINT page)
{
    const char* name = FindName(page);
    return name && CConverter(UNIT_ENCODING, name).IsOpen();
}

std::u16string Decode(UINT page, std::string_view bytes)
{
    constexpr char16_t REPLACEMENT = 0xFFFD;
    CConverter converter(UNIT_ENCODING, FindName(page));
    std::string result;
    for (;;)
    {
        converter.Convert(bytes, result);
        if (bytes.empty())
            break;
        result.append(reinterpret_cast<const char*>(&REPLACEMENT), sizeof(REPLACEMENT));
        bytes.remove_prefix(1);
    }
    converter.Finish(result);

    std::u16string text(result.size() / sizeof(char16_t), u'\0');
    result.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(char16_t));
    return text;
}

std::string Encode(UINT page, std::u16string_view text, std::string_view substitute,
                   bool& usedDefault)
{
    CConverter converter(FindName(page), UNIT_ENCODING);
    std::string_view source(reinterpret_cast<const char*>(text.data()),
                            text.size() * sizeof(char16_t));
    std::string result;
    for (;;)
    {
        converter.Convert(source, result);
        if (source.empty())
            break;
        converter.Finish(result); // the substitute is ASCII, so it stands in the first state
        result += substitute;
        source.remove_prefix(sizeof(char16_t));
        usedDefault = true;
    }
    converter.Finish(result);
    return result;
}

UINT GetLocalePage()
{
    const locale_t userLocale = newlocale(LC_CTYPE_MASK, "", locale_t());
    if (userLocale == locale_t())
        return UTF8_PAGE;
    UINT page = FindPage(LOCALE_NAMES, nl_langinfo_l(CODESET, userLocale));
    if (page == 0)
        page = FindPage(PAGE_NAMES, nl_langinfo_l(CODESET, userLocale));
    freelocale(userLocale);
    return page != 0 ? page : UTF8_PAGE;
}

} // namespace utility::systempages
