#pragma once

#include "settings/export/SettingsBuilder.h"

#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// Reads settings exported as XML, strictly: what is not of this format is refused at its place.
///
/// Taken besides what the writer writes: comments between elements, other white space there, single
/// quotes, an element closed by a tag where the writer closes it in itself, and references (&#65;).
/// One pass, without recursion.
class CSettingsXmlReader
{
public:
    CSettingsXmlReader(std::string_view bytes, CSettingsBuilder& builder)
        : m_Bytes(bytes),
          m_Builder(builder)
    {
    }

    /// False, with the builder stopped; `name` is that of the key the settings are for.
    [[nodiscard]] bool Read(const CString& name);

private:
    struct CAttribute
    {
        std::string_view m_Name;
        CString m_Value;
    };
    enum class ETag
    {
        Open,
        Close,
        Empty
    };
    struct CTag
    {
        ETag m_Kind = ETag::Open;
        std::string_view m_Name;
        std::vector<CAttribute> m_Attributes;
        std::size_t m_Offset = 0;
    };
    struct COpenElement
    {
        std::string_view m_Name;
        std::size_t m_Offset;
    };

    bool Stop(ESettingsFault kind, std::size_t offset, const CString& name = CString())
    {
        return m_Builder.Stop(kind, offset, name);
    }

    bool SkipBetween();
    bool SkipDeclaration();
    bool ReadTag(CTag& tag);
    bool ReadName(std::string_view& name);
    bool ReadAttribute(CAttribute& attribute);
    bool ReadText(char end, CString& text);
    bool ReadReference(std::string& text);
    void SkipSpace();

    bool OpenTop(const CTag& tag, const CString& name);
    bool TakeTag(const CTag& tag);
    bool ReadValue(const CTag& tag);
    bool ReadContent(const CTag& tag, bool isList, std::vector<CString>& texts);
    bool ReadItem(const CTag& tag, std::vector<CString>& texts);
    bool ConfirmClose(const CTag& tag, std::string_view name);

    std::string_view m_Bytes;
    CSettingsBuilder& m_Builder;
    std::size_t m_Place = 0;
    std::vector<COpenElement> m_Open;
};

} // namespace utility
