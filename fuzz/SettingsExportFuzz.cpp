#include "settings/export/SettingsExport.h"

#include "Require.h"

#include <cstdint>

using namespace utility;

namespace
{

bool AreEqual(const CSettingsTree& left, const CSettingsTree& right)
{
    if (left.GetKeys().size() != right.GetKeys().size())
        return false;
    for (std::size_t index = 0; index < left.GetKeys().size(); ++index)
    {
        const CSettingsKey& one = left.GetKeys()[index];
        const CSettingsKey& other = right.GetKeys()[index];
        if (one.m_Level != other.m_Level || one.m_Name != other.m_Name ||
            one.m_Values != other.m_Values)
            return false;
    }
    return true;
}

/// Settings that no file could hold are none of those that a file gave.
void CheckWritten(const CSettingsTree& tree, ESettingsFormat format)
{
    CSettingsFault fault;
    std::string bytes;
    CSettingsTree back;
    Require(FormatSettings(tree, u"B", format, bytes, fault));
    Require(ParseSettings(bytes, u"B", format, back, fault));
    std::string again;
    Require(FormatSettings(back, u"B", format, again, fault) && again == bytes);
    Require(AreEqual(tree, back));
}

} // namespace

// Whatever the bytes hold, they are refused at a place of theirs, or give settings that both
// formats give back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const ESettingsFormat format : {ESettingsFormat::Xml, ESettingsFormat::Form})
    {
        CSettingsTree tree;
        CSettingsFault fault;
        if (ParseSettings(bytes, u"B", format, tree, fault))
        {
            CheckWritten(tree, ESettingsFormat::Xml);
            CheckWritten(tree, ESettingsFormat::Form);
        }
        else
            Require(fault.m_Kind != ESettingsFault::None && fault.m_Line > 0 &&
                    fault.m_Column > 0 && fault.m_Line <= static_cast<int>(size) + 1);
    }
    return 0;
}
