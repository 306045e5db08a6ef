#include "settings/xml/XMLCoding.h"

#include "files/encoded/AnsiText.h"
#include "platform/base/UnitSearch.h"
#include "text/HtmlEntities.h"

namespace utility
{

namespace
{

constexpr int ENTITIES = XML_ENCODING_NAMED | XML_ENCODING_NUMERIC;

struct CEntity
{
    char16_t m_Unit;
    std::u16string_view m_Named;
    std::u16string_view m_Numeric;
};

// On purpose two of the numeric forms are coded twice and the quotes are exchanged: files in the
// field hold them so, and their readers undo just that.
constexpr CEntity ENTITY_TABLE[] = {
    {u'&', u"&amp;", u"&#x26;#x26;"}, //
    {u'<', u"&lt;", u"&#x26;#x3c;"},  //
    {u'>', u"&gt;", u"&#x3e;"},       //
    {u'"', u"&quot;", u"&#x27;"},     //
    {u'\'', u"&apos;", u"&#x22;"},    //
};

const CEntity* FindEntity(char16_t unit)
{
    for (const CEntity& entity : ENTITY_TABLE)
    {
        if (entity.m_Unit == unit)
            return &entity;
    }
    return nullptr;
}

/// Where the next unit stands that is written as an entity, from `start` on.
std::size_t FindCoded(std::u16string_view text, std::size_t start, bool onlyAmpersands)
{
    for (; start < text.size(); ++start)
    {
        const char16_t unit = text[start];
        // None of the five stands above ">", which passes most of a text in one comparison.
        if (unit > u'>' || !FindEntity(unit) || (onlyAmpersands && unit != u'&'))
            continue;
        const bool isReference = unit == u'&' && start + 1 < text.size() && text[start + 1] == u'#';
        if (!isReference)
            return start;
    }
    return text.size();
}

} // namespace

void AppendEncodedXML(std::u16string& out, int encodings, const CString& text)
{
    CString converted = text;
    if ((encodings & XML_ENCODING_UTF8) != 0)
        AnsiToUTF8(converted);
    const std::u16string_view units = converted.View();
    if ((encodings & ENTITIES) == 0)
    {
        out += units;
        return;
    }

    const bool onlyAmpersands = (encodings & XML_ENCODING_ATTRIBUTES) != 0;
    const bool isNumeric = (encodings & XML_ENCODING_NUMERIC) != 0;
    for (std::size_t start = 0; start < units.size();)
    {
        const std::size_t end = FindCoded(units, start, onlyAmpersands);
        out += units.substr(start, end - start);
        if (end < units.size())
        {
            const CEntity* entity = FindEntity(units[end]);
            out += isNumeric ? entity->m_Numeric : entity->m_Named;
        }
        start = end + 1;
    }
}

CString DecodeXML(int encodings, std::u16string_view text)
{
    CString decoded(text);
    if ((encodings & ENTITIES) != 0 && units::Find(text, u'&') != units::NOT_FOUND)
    {
        char16_t* buffer = decoded.GetBuffer();
        decoded.ReleaseBuffer(static_cast<int>(DecodeHtmlEntitiesUtf8(buffer, buffer)));
    }
    if ((encodings & XML_ENCODING_UTF8) != 0)
        UTF8ToAnsi(decoded);
    return decoded;
}

} // namespace utility
