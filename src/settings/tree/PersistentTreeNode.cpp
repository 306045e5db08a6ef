#include "settings/tree/PersistentTreeNode.h"

#include "platform/base/NumberText.h"
#include "platform/base/collections/ByteArray.h"
#include "settings/tree/BinaryLetters.h"
#include "settings/tree/PTNFactory.h"
#include "settings/tree/PersTreeNodeKeyValuePair.h"

#include <atomic>

namespace utility
{

IMPLEMENT_DYNCREATE(SECPersistentTreeNode, CObject)
IMPLEMENT_DYNCREATE(SMCPersistentTreeNode, SECPersistentTreeNode)

namespace
{

constinit std::atomic<int> LongValueSplits = 0;

CString CountKey(const CString& key)
{
    return key + u"_BinCount";
}

CString ChunkKey(const CString& key, int index)
{
    CString name;
    name.Format(u"%s_BinVal%d", key, index);
    return name;
}

CString DecimalText(std::int32_t value)
{
    CString text;
    text.Format(u"%d", value);
    return text;
}

} // namespace

SECPersistentTreeNode::SECPersistentTreeNode() = default;
SECPersistentTreeNode::~SECPersistentTreeNode() = default;
SMCPersistentTreeNode::~SMCPersistentTreeNode() = default;

void SECPersistentTreeNode::SwitchLongValueSplit(bool on)
{
    LongValueSplits += on ? 1 : -1;
}

bool SECPersistentTreeNode::IsLongValueSplit()
{
    return LongValueSplits > 0;
}

int SECPersistentTreeNode::Create(const CString& name, SECPersistentTreeNode* parent)
{
    const int result =
        (m_Created ? PTN_ALREADY_CREATED : 0) | (name.IsEmpty() ? PTN_EMPTY_NAME : 0);
    if (result != 0)
        return result;
    m_Name = name;
    m_Parent = parent;
    m_Factory = std::make_unique<SECPTNFactory>(GetRuntimeClass());
    m_Created = true;
    return 0;
}

int SECPersistentTreeNode::CheckKey(const CString& key) const
{
    return (m_Created ? 0 : PTN_NOT_CREATED) | (key.IsEmpty() ? PTN_EMPTY_KEY : 0);
}

int SECPersistentTreeNode::CheckSet(const CString& key, const CString& stored, bool overwrite) const
{
    return CheckKey(key) | (!overwrite && m_PairIndex.contains(stored) ? PTN_KEY_EXISTS : 0);
}

int SECPersistentTreeNode::StorePair(const CString& key, const CString& value, bool overwrite)
{
    if (const int result = CheckSet(key, key, overwrite); result != 0)
        return result;
    const auto [place, isNew] = m_PairIndex.emplace(key, m_Pairs.size());
    if (isNew)
        m_Pairs.push_back(std::make_unique<SECPersTreeNodeKeyValuePair>(key, value));
    else
        m_Pairs[place->second]->SetValue(value);
    return 0;
}

int SECPersistentTreeNode::SplitString(const CString& key, const CString& value, bool overwrite)
{
    if (const int result = CheckSet(key, CountKey(key), overwrite); result != 0)
        return result;
    const int count = (value.GetLength() + CHUNK_LENGTH - 1) / CHUNK_LENGTH;
    StorePair(CountKey(key), DecimalText(count), true);
    for (int index = 0; index < count; ++index)
        StorePair(ChunkKey(key, index), value.Mid(index * CHUNK_LENGTH, CHUNK_LENGTH), true);
    return 0;
}

int SECPersistentTreeNode::SetInteger(const CString& key, std::int32_t value, bool overwrite)
{
    return SetString(key, DecimalText(value), overwrite);
}

int SECPersistentTreeNode::SetString(const CString& key, const CString& value, bool overwrite)
{
    if (IsLongValueSplit() && value.GetLength() > CHUNK_LENGTH)
        return SplitString(key, value, overwrite);
    return StorePair(key, value, overwrite);
}

int SECPersistentTreeNode::SetBoolean(const CString& key, bool value, bool overwrite)
{
    return SetString(key, value ? u"True" : u"False", overwrite);
}

int SECPersistentTreeNode::SetBinary(const CString& key, const BYTE* data, int length,
                                     bool overwrite)
{
    if (!data && length != 0)
        return CheckKey(key) | PTN_NULL_ARGUMENT;
    if (length < 0)
        return CheckKey(key) | PTN_ENCODE_FAILED;
    const CString letters = BytesToLetters({data, static_cast<std::size_t>(length)});
    if (letters.GetLength() <= CHUNK_LENGTH)
        return SetString(key, letters, overwrite);
    return SplitString(key, letters, overwrite); // whether or not texts are split at present
}

int SECPersistentTreeNode::GetString(const CString& key, CString& value) const
{
    if (const int result = CheckKey(key); result != 0)
        return result;
    const auto place = m_PairIndex.find(key);
    if (place == m_PairIndex.end())
        return PTN_KEY_MISSING;
    value = m_Pairs[place->second]->GetValue();
    return 0;
}

template <typename T, typename TRead>
int SECPersistentTreeNode::GetNumber(const CString& key, T& value, TRead read) const
{
    CString text;
    const int result = GetString(key, text);
    if (result == 0)
        value = static_cast<T>(read(text));
    return result;
}

int SECPersistentTreeNode::GetInteger(const CString& key, int& value) const
{
    return GetNumber(key, value, [](const CString& text) { return _wtol(text); });
}

int SECPersistentTreeNode::GetUnsigned(const CString& key, UINT& value) const
{
    return GetNumber(key, value, [](const CString& text) { return _wtoi64(text); });
}

int SECPersistentTreeNode::GetWord(const CString& key, WORD& value) const
{
    return GetNumber(key, value, [](const CString& text) { return _wtol(text); });
}

int SECPersistentTreeNode::GetInteger64(const CString& key, std::int64_t& value) const
{
    return GetNumber(key, value, [](const CString& text) { return _wtoi64(text); });
}

int SECPersistentTreeNode::GetBoolean(const CString& key, bool& value) const
{
    CString text;
    const int result = GetString(key, text);
    text.MakeUpper();
    if (result == 0)
        value = text == u"TRUE";
    return result;
}

bool SECPersistentTreeNode::JoinChunks(const CString& key, CString& value) const
{
    int count = 0;
    if (GetInteger(CountKey(key), count) != 0)
        return false;
    CString joined;
    CString chunk;
    for (int index = 0; index < count; ++index)
    {
        if (GetString(ChunkKey(key, index), chunk) != 0)
            return false;
        joined += chunk;
    }
    value = joined;
    return true;
}

int SECPersistentTreeNode::GetBinary(const CString& key, CByteArray& value) const
{
    if (const int result = CheckKey(key); result != 0)
        return result;
    CString letters;
    if (!JoinChunks(key, letters) && GetString(key, letters) != 0)
        return PTN_KEY_MISSING;
    const std::vector<BYTE> bytes = LettersToBytes(letters.View());
    value.SetSize(static_cast<int>(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), value.begin());
    return 0;
}

int SECPersistentTreeNode::AddChild(const CString& name, SECPersistentTreeNode** child)
{
    const int result = (m_Created ? 0 : PTN_NOT_CREATED) | (name.IsEmpty() ? PTN_EMPTY_NAME : 0) |
                       (m_ChildIndex.contains(name) ? PTN_CHILD_EXISTS : 0);
    if (result != 0)
        return result;
    SECPersistentTreeNode* node = m_Factory->Make();
    if (!node || node->Create(name, this) != 0)
        return PTN_FAILED;
    m_Children.push_back(node);
    m_ChildIndex.emplace(name, node);
    if (child)
        *child = node;
    return 0;
}

SECPersistentTreeNode* SECPersistentTreeNode::FindChild(const CString& name) const
{
    const auto found = m_ChildIndex.find(name);
    return found == m_ChildIndex.end() ? nullptr : found->second;
}

void SECPersistentTreeNode::RemoveKeys(const std::function<bool(const CString&)>& goes)
{
    std::erase_if(m_Pairs, [&goes](const auto& pair) { return goes(pair->GetKey()); });
    m_PairIndex.clear();
    for (std::size_t at = 0; at < m_Pairs.size(); ++at)
        m_PairIndex.emplace(m_Pairs[at]->GetKey(), at);
}

} // namespace utility
