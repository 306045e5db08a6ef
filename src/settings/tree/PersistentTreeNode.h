#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace utility
{

class CByteArray;
class SECPersTreeNodeKeyValuePair;
class SECPTNFactory;
class SECPTNStrategy;

/// Results of the set and get operations of a tree node: 0 for success, else all bits that hold.
enum EPTNResult : int
{
    PTN_ALREADY_CREATED = 1,
    PTN_NOT_CREATED = 2,
    PTN_EMPTY_NAME = 4,
    PTN_EMPTY_KEY = 8,
    PTN_KEY_EXISTS = 16,
    PTN_CHILD_EXISTS = 32,
    PTN_KEY_MISSING = 64,
    PTN_NULL_ARGUMENT = 128,
    PTN_ENCODE_FAILED = 256,
    PTN_FAILED = 65535
};

/// A named node with key and value pairs and children, which a strategy loads and saves.
///
/// Keys and names are compared exactly; pairs and children keep their order. While a
/// `SMCPTNStrategyRegTyped` lives, a value of more than 250 characters is kept in chunks:
/// "key_BinCount", "key_BinVal0", "key_BinVal1" ...
class UTILITY_CORE_API SECPersistentTreeNode : public CObject
{
    DECLARE_DYNCREATE(SECPersistentTreeNode)

public:
    using CPairs = std::vector<std::unique_ptr<SECPersTreeNodeKeyValuePair>>;
    using CChildren = std::vector<SECPersistentTreeNode*>;

    /// The longest text of one value, and of each chunk of a longer one.
    static constexpr int CHUNK_LENGTH = 250;

    SECPersistentTreeNode();
    ~SECPersistentTreeNode() override;
    SECPersistentTreeNode(const SECPersistentTreeNode&) = delete;
    SECPersistentTreeNode& operator=(const SECPersistentTreeNode&) = delete;

    /// Gives the node its name and place; once only.
    virtual int Create(const CString& name, SECPersistentTreeNode* parent);

    virtual int SetInteger(const CString& key, std::int32_t value, bool overwrite);
    virtual int SetString(const CString& key, const CString& value, bool overwrite);
    /// "True" or "False".
    virtual int SetBoolean(const CString& key, bool value, bool overwrite);
    /// Two letters a byte, low nibble first.
    virtual int SetBinary(const CString& key, const BYTE* data, int length, bool overwrite);

    virtual int GetString(const CString& key, CString& value) const;
    virtual int GetInteger(const CString& key, int& value) const;
    virtual int GetUnsigned(const CString& key, UINT& value) const;
    virtual int GetWord(const CString& key, WORD& value) const;
    virtual int GetInteger64(const CString& key, std::int64_t& value) const;
    virtual int GetBoolean(const CString& key, bool& value) const;
    virtual int GetBinary(const CString& key, CByteArray& value) const;

    /// Fills this node and all below it. False if a node cannot be read.
    virtual bool Load(SECPTNStrategy& strategy);
    /// Writes this node and all below it, parents first.
    virtual bool Save(SECPTNStrategy& strategy) const;

    /// Makes a child through the factory; `child`, where given, receives it. The tree owns it.
    virtual int AddChild(const CString& name, SECPersistentTreeNode** child);

    const CString& GetName() const { return m_Name; }
    void SetName(const CString& name) { m_Name = name; }
    SECPersistentTreeNode* GetParent() const { return m_Parent; }
    const CPairs& GetPairs() const { return m_Pairs; }
    const CChildren& GetChildren() const { return m_Children; }
    SECPersistentTreeNode* FindChild(const CString& name) const;

    /// Drops the pairs whose key `goes` says so of.
    void RemoveKeys(const std::function<bool(const CString&)>& goes);

    /// Counted: each `true` wants a `false`.
    static void SwitchLongValueSplit(bool on);
    static bool IsLongValueSplit();

private:
    int CheckKey(const CString& key) const;
    int StorePair(const CString& key, const CString& value, bool overwrite);
    int CheckSet(const CString& key, const CString& stored, bool overwrite) const;
    int SplitString(const CString& key, const CString& value, bool overwrite);
    template <typename T, typename TRead>
    int GetNumber(const CString& key, T& value, TRead read) const;
    bool JoinChunks(const CString& key, CString& value) const;
    bool LoadOwn(SECPTNStrategy& strategy);
    bool SaveOwn(SECPTNStrategy& strategy) const;

    friend class SECPTNFactory;

    CString m_Name;
    SECPersistentTreeNode* m_Parent = nullptr;
    std::unique_ptr<SECPTNFactory> m_Factory;
    CChildren m_Children;
    CPairs m_Pairs;
    bool m_Created = false;
    std::unordered_map<CString, std::size_t> m_PairIndex;
    std::unordered_map<CString, SECPersistentTreeNode*> m_ChildIndex;
};

/// The node of configuration files.
class UTILITY_CORE_API SMCPersistentTreeNode : public SECPersistentTreeNode
{
    DECLARE_DYNCREATE(SMCPersistentTreeNode)

public:
    ~SMCPersistentTreeNode() override;
};

} // namespace utility
