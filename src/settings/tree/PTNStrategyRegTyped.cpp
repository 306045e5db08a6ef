#include "settings/tree/PTNStrategyRegTyped.h"

#include "platform/base/NumberText.h"
#include "settings/ConfigurationFault.h"
#include "settings/tree/BinaryLetters.h"
#include "settings/tree/PersistentTreeNode.h"

#include <unordered_set>

namespace utility
{

namespace
{

constexpr std::u16string_view COUNT_TAIL = u"_BinCount";

/// "[name]" could pass for a section header and is kept as "@[name]@".
bool LooksLikeSection(std::u16string_view name)
{
    return name.size() > 1 && name.starts_with(u'[') && name.ends_with(u']');
}

bool IsMarked(std::u16string_view name)
{
    return name.size() > 3 && LooksLikeSection(name.substr(1, name.size() - 2)) &&
           name.starts_with(u'@') && name.ends_with(u'@');
}

CString Folded(const CString& name)
{
    CString folded = name;
    folded.MakeLower();
    return folded;
}

bool IsNumber(std::u16string_view text)
{
    return !text.empty() && text.size() < 10 &&
           text.find_first_not_of(u"0123456789") == std::u16string_view::npos;
}

} // namespace

SMCPTNStrategyRegTyped::SMCPTNStrategyRegTyped(const CString& base, HKEY root)
    : SECPTNStrategyRegistry(base, root),
      m_ChunkFormat(u"%s_BinVal%d")
{
    SECPersistentTreeNode::SwitchLongValueSplit(true);
}

SMCPTNStrategyRegTyped::~SMCPTNStrategyRegTyped()
{
    SECPersistentTreeNode::SwitchLongValueSplit(false);
}

bool SMCPTNStrategyRegTyped::ReadAll(const SECPersistentTreeNode& node,
                                     std::vector<CString>& children, CKeyValues& values)
{
    if (!SECPTNStrategyRegistry::ReadAll(node, children, values))
        return false;
    for (auto& [name, text] : values)
    {
        CString trimmed = name;
        if (IsMarked(name.View()) || trimmed.Trim() != name)
            return FailConfiguration(EConfigurationFault::CannotStand, name);
        if (LooksLikeSection(name.View()))
            name = u"@" + name + u"@";
    }
    return AreLinesUnique(values);
}

/// False, noted as a fault, if the parts of a long value would stand under the name of another
/// value.
bool SMCPTNStrategyRegTyped::AreLinesUnique(const CKeyValues& values) const
{
    std::unordered_set<CString> taken;
    for (const auto& [name, text] : values)
        taken.insert(Folded(name));
    for (const auto& [name, text] : values)
    {
        const int length = text.GetLength();
        if (length <= SECPersistentTreeNode::CHUNK_LENGTH)
            continue;
        bool free = !taken.contains(Folded(name + COUNT_TAIL.data()));
        CString part;
        for (int index = 0; free && index * SECPersistentTreeNode::CHUNK_LENGTH < length; ++index)
        {
            part.Format(m_ChunkFormat, name, index);
            free = !taken.contains(Folded(part));
        }
        if (!free)
            return FailConfiguration(EConfigurationFault::CannotStand, name);
    }
    return true;
}

bool SMCPTNStrategyRegTyped::TextOf(DWORD type, const BYTE* data, DWORD size, CString& text) const
{
    switch (type)
    {
    case REG_SZ:
        SECPTNStrategyRegistry::TextOf(type, data, size, text);
        text.Insert(0, u"1:");
        return true;
    case REG_BINARY:
        text = u"3:" + BytesToLetters({data, size});
        return true;
    case REG_DWORD:
    {
        std::int32_t number = 0;
        if (size != sizeof(number))
            return false;
        std::memcpy(&number, data, sizeof(number));
        text.Format(u"4:%d", number);
        return true;
    }
    default:
        return false;
    }
}

bool SMCPTNStrategyRegTyped::DeleteSection(const SECPersistentTreeNode& node)
{
    ForgetChunks();
    return SECPTNStrategyRegistry::DeleteSection(node);
}

void SMCPTNStrategyRegTyped::ForgetChunks()
{
    m_ChunkName.Empty();
    m_ChunkText.Empty();
    m_ChunkCount = 0;
    m_ChunkIndex = 0;
}

/// A bare number alone announces chunks: a stored value has its type before it.
bool SMCPTNStrategyRegTyped::BeginChunks(const CString& key, const CString& value)
{
    if (!key.View().ends_with(COUNT_TAIL) || !IsNumber(value.View()))
        return false;
    m_ChunkName = key.Left(key.GetLength() - static_cast<int>(COUNT_TAIL.size()));
    m_ChunkCount = _wtoi(value);
    return true;
}

bool SMCPTNStrategyRegTyped::IsNextChunk(const CString& key) const
{
    if (m_ChunkName.IsEmpty() || m_ChunkIndex == m_ChunkCount)
        return false;
    CString expected;
    expected.Format(m_ChunkFormat, m_ChunkName, m_ChunkIndex);
    return key == expected;
}

bool SMCPTNStrategyRegTyped::WriteValue(const SECPersistentTreeNode& node, const CString& key,
                                        const CString& value)
{
    if (IsNextChunk(key))
    {
        m_ChunkText += value;
        if (++m_ChunkIndex < m_ChunkCount)
            return true;
        const CString name = m_ChunkName;
        const CString text = m_ChunkText;
        ForgetChunks();
        return StoreTyped(node, name, text);
    }
    ForgetChunks();
    return BeginChunks(key, value) || StoreTyped(node, key, value);
}

bool SMCPTNStrategyRegTyped::StoreTyped(const SECPersistentTreeNode& node, const CString& key,
                                        const CString& value) const
{
    const int mark = value.Find(u':');
    if (mark < 0)
        return true;
    const CString name = IsMarked(key.View()) ? key.Mid(1, key.GetLength() - 2) : key;
    const CString text = value.Mid(mark + 1);
    switch (static_cast<DWORD>(_wtoi(value.Left(mark))))
    {
    case REG_SZ:
        return StoreText(node, name, text);
    case REG_BINARY:
    {
        const std::vector<BYTE> bytes = LettersToBytes(text.View());
        return Store(node, name, REG_BINARY, bytes.data(), bytes.size());
    }
    case REG_DWORD:
    {
        const std::uint32_t number = ReadUnsignedWrapped(text);
        return Store(node, name, REG_DWORD, &number, sizeof(number));
    }
    default:
        return true;
    }
}

} // namespace utility
