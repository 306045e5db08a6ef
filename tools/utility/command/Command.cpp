#include "utility/command/Command.h"

#include "platform/base/NumberText.h"

namespace utility
{

CCommandOption NumberOption(const char* name, const char* valueName, const char* help,
                            CNumberBounds bounds)
{
    return {name, valueName, help, false, {}, bounds};
}

CString CCommandCall::Get(const char* option, const CString& preset) const
{
    const auto found = m_Options.find(option);
    return found == m_Options.end() || found->second.empty() ? preset : found->second.back();
}

int CCommandCall::GetNumber(const char* option, int preset) const
{
    return Has(option) ? _wtoi(Get(option)) : preset;
}

std::vector<CString> CCommandCall::GetAll(const char* option) const
{
    const auto found = m_Options.find(option);
    return found == m_Options.end() ? std::vector<CString>() : found->second;
}

CString CCommandCall::GetArgument(std::size_t index, const CString& preset) const
{
    return index < m_Arguments.size() ? m_Arguments[index] : preset;
}

void CCommandCall::AddValue(const std::string& option, const CString& value)
{
    m_Options[option].push_back(value);
}

} // namespace utility
