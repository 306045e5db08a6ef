#include "utility/xml/XmlGeneral.h"

#include <algorithm>
#include <expat.h>
#include <limits>
#include <memory>

namespace utility
{

namespace
{

constexpr std::string_view WHITE_SPACE = " \t\r\n";
constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();
constexpr std::size_t PIECE =
    1U << 24; // bytes handed over at once: the library counts them in an int

struct CParserDeleter
{
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

/// Gathers what the library calls back with.
class CGatherer
{
public:
    CGatherer(std::string_view text) : m_Text(text), m_Parser(XML_ParserCreate("UTF-8"))
    {
        XML_Parser parser = m_Parser.get();
        XML_SetUserData(parser, this);
        XML_SetElementHandler(parser, &OnStart, &OnEnd);
        XML_SetCharacterDataHandler(parser, &OnText);
        XML_SetCommentHandler(parser, [](void* self, const char*)
                              { Of(self).AddMark(EXmlFinding::Comment); });
        XML_SetProcessingInstructionHandler(parser, [](void* self, const char*, const char*)
                                            { Of(self).AddMark(EXmlFinding::Instruction); });
        XML_SetStartDoctypeDeclHandler(parser, &OnDocumentType);
        XML_SetStartCdataSectionHandler(parser,
                                        [](void* self) { Of(self).AddMark(EXmlFinding::RawText); });
        XML_SetXmlDeclHandler(parser, &OnDeclaration);
        XML_SetDefaultHandler(parser,
                              [](void*, const char*, int) {}); // which keeps entities as they are
    }

    CXmlFindings Read()
    {
        XML_Status status = XML_STATUS_OK;
        for (std::size_t at = 0; status == XML_STATUS_OK; at += PIECE)
        {
            const std::string_view piece = m_Text.substr(at, PIECE);
            const bool isLast = at + piece.size() == m_Text.size();
            status =
                XML_Parse(m_Parser.get(), piece.data(), static_cast<int>(piece.size()), isLast);
            if (isLast)
                break;
        }
        m_Found.m_End = m_Text.size();
        if (status != XML_STATUS_OK)
        {
            m_Found.m_Refusal = XML_ErrorString(XML_GetErrorCode(m_Parser.get()));
            m_Found.m_End = std::min(Offset(), m_Text.size());
        }
        return std::move(m_Found);
    }

private:
    struct COpen
    {
        bool m_IsLeaf = true; // nothing but text stands in it
        std::size_t m_LastText = NONE;
    };

    static CGatherer& Of(void* self) { return *static_cast<CGatherer*>(self); }

    std::size_t Offset() const
    {
        return static_cast<std::size_t>(
            std::max<XML_Index>(XML_GetCurrentByteIndex(m_Parser.get()), 0));
    }

    static void OnStart(void* self, const char* name, const char** attributes)
    {
        CGatherer& gatherer = Of(self);
        CXmlFinding& element = gatherer.AddMark(EXmlFinding::Element);
        element.m_Text = name;
        for (; *attributes; attributes += 2)
            element.m_Attributes.emplace_back(attributes[0], attributes[1]);
        gatherer.m_Open.emplace_back();
    }

    static void OnEnd(void* self, const char*)
    {
        CGatherer& gatherer = Of(self);
        gatherer.EndText(gatherer.m_Open.back().m_IsLeaf);
        gatherer.m_Open.pop_back();
        const std::size_t offset = gatherer.Offset();
        if (gatherer.m_Text.substr(offset).starts_with("</")) // else the element is empty
            gatherer.m_Found.m_List.push_back({EXmlFinding::Close, offset, {}, {}, false});
    }

    static void OnText(void* self, const char* text, int length)
    {
        CGatherer& gatherer = Of(self);
        if (gatherer.m_Run.empty())
            gatherer.m_RunOffset = gatherer.Offset();
        gatherer.m_Run.append(text, static_cast<std::size_t>(length));
    }

    static void OnDeclaration(void* self, const char*, const char* encoding, int)
    {
        if (encoding)
            Of(self).m_Found.m_Encoding = encoding;
    }

    /// Told of when its name was read.
    static void OnDocumentType(void* self, const char*, const char*, const char*, int)
    {
        CXmlFinding& mark = Of(self).AddMark(EXmlFinding::DocumentType);
        mark.m_Offset = Of(self).m_Text.rfind("<!DOCTYPE", mark.m_Offset);
    }

    CXmlFinding& AddMark(EXmlFinding kind)
    {
        EndText(false);
        if (!m_Open.empty())
            m_Open.back().m_IsLeaf = false;
        return m_Found.m_List.emplace_back(CXmlFinding{kind, Offset(), {}, {}, false});
    }

    /// Notes the text that ended here; an earlier one of the same element is replaced by it.
    void EndText(bool isLeaf)
    {
        const std::string run = std::exchange(m_Run, {});
        if (run.empty() || m_Open.empty())
            return;
        const bool isBlank = run.find_first_not_of(WHITE_SPACE) == std::string::npos;
        if (isBlank && !isLeaf)
            return;
        std::size_t& last = m_Open.back().m_LastText;
        if (!isBlank && last != NONE)
            m_Found.m_List[last].m_IsReplaced = true;
        last = m_Found.m_List.size();
        // The place is that of the first character that is seen.
        const std::size_t seen = m_Text.find_first_not_of(WHITE_SPACE, m_RunOffset);
        m_Found.m_List.push_back({isBlank ? EXmlFinding::LeafBlank : EXmlFinding::Text,
                                  isBlank ? m_RunOffset : seen,
                                  run,
                                  {},
                                  false});
    }

    std::string_view m_Text;
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, CParserDeleter> m_Parser;
    std::vector<COpen> m_Open;
    std::string m_Run; // the text that is under way
    std::size_t m_RunOffset = 0;
    CXmlFindings m_Found;
};

} // namespace

CXmlFindings ReadByGeneralReader(std::string_view text)
{
    return CGatherer(text).Read();
}

} // namespace utility
