#pragma once

#include "settings/export/SettingsBuilder.h"

#include <string_view>
#include <vector>

namespace utility
{

/// Reads settings exported as form text, strictly: what is not of this format is refused at its
/// place. White space may stand between all tokens. One pass, without recursion.
class CSettingsFormReader
{
public:
    CSettingsFormReader(std::string_view bytes, CSettingsBuilder& builder)
        : m_Bytes(bytes),
          m_Builder(builder)
    {
    }

    /// False, with the builder stopped; `name` is that of the key the settings are for.
    [[nodiscard]] bool Read(const CString& name);

private:
    enum class EToken
    {
        End,
        Open,
        Close,
        Word,
        Quoted
    };
    struct CToken
    {
        EToken m_Kind = EToken::End;
        std::string_view m_Word;
        CString m_Text; // of a quoted one
        std::size_t m_Offset = 0;
    };

    bool Stop(ESettingsFault kind, const CString& name = CString())
    {
        return m_Builder.Stop(kind, m_Token.m_Offset, name);
    }

    bool Next();
    bool ReadQuoted();
    void ReadWord();

    bool OpenTop(const CString& name);
    bool TakeToken();
    bool TakeForm();
    bool ReadValue(std::string_view name, std::size_t offset);

    std::string_view m_Bytes;
    CSettingsBuilder& m_Builder;
    std::size_t m_Place = 0;
    CToken m_Token;                  // the one read last
    std::vector<std::size_t> m_Open; // where the brackets of the keys stand
};

} // namespace utility
