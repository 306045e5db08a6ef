#include "settings/tree/PersistentTreeNode.h"

#include "platform/base/collections/ByteArray.h"
#include "settings/tree/PersTreeNodeKeyValuePair.h"
#include "settings/tree/TreeChecksum.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

/// Turns the split of long values on, as a typed settings strategy does.
class CSplit
{
public:
    CSplit() { SECPersistentTreeNode::SwitchLongValueSplit(true); }
    ~CSplit() { SECPersistentTreeNode::SwitchLongValueSplit(false); }
    CSplit(const CSplit&) = delete;
    CSplit& operator=(const CSplit&) = delete;
};

std::vector<CString> KeysOf(const SECPersistentTreeNode& node)
{
    std::vector<CString> keys;
    for (const auto& pair : node.GetPairs())
        keys.push_back(pair->GetKey());
    return keys;
}

std::uint32_t SumOf(const SECPersistentTreeNode& node)
{
    std::uint32_t sum = 0;
    TreeNode::CalcCheckSum(node, sum);
    return sum;
}

class PersistentTreeNodeTest : public testing::Test
{
protected:
    PersistentTreeNodeTest() { m_Node.Create(u"Root", nullptr); }

    SMCPersistentTreeNode m_Node;
};

} // namespace

TEST_F(PersistentTreeNodeTest, ResultsTellAllThatIsWrong)
{
    SMCPersistentTreeNode fresh;
    CString text = u"preset";
    EXPECT_EQ(fresh.SetString(u"", u"v", true), PTN_NOT_CREATED | PTN_EMPTY_KEY);
    EXPECT_EQ(fresh.GetString(u"k", text), PTN_NOT_CREATED);
    EXPECT_EQ(fresh.AddChild(u"", nullptr), PTN_NOT_CREATED | PTN_EMPTY_NAME);
    EXPECT_EQ(fresh.Create(u"", nullptr), PTN_EMPTY_NAME);
    EXPECT_EQ(m_Node.Create(u"", nullptr), PTN_ALREADY_CREATED | PTN_EMPTY_NAME);

    EXPECT_EQ(m_Node.SetString(u"k", u"v", false), 0);
    EXPECT_EQ(m_Node.SetString(u"k", u"w", false), PTN_KEY_EXISTS);
    EXPECT_EQ(m_Node.SetString(u"k", u"w", true), 0);
    EXPECT_EQ(m_Node.GetString(u"none", text), PTN_KEY_MISSING);
    EXPECT_EQ(text, u"preset");
    EXPECT_EQ(m_Node.GetString(u"k", text), 0);
    EXPECT_EQ(text, u"w");
    EXPECT_EQ(m_Node.SetBinary(u"b", nullptr, 1, true), PTN_NULL_ARGUMENT);
    EXPECT_EQ(m_Node.SetBinary(u"b", reinterpret_cast<const BYTE*>("x"), -1, true),
              PTN_ENCODE_FAILED);

    SECPersistentTreeNode* child = nullptr;
    EXPECT_EQ(m_Node.AddChild(u"c", &child), 0);
    EXPECT_EQ(m_Node.AddChild(u"c", nullptr), PTN_CHILD_EXISTS);
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(child->GetParent(), &m_Node);
    EXPECT_TRUE(child->IsKindOf(RUNTIME_CLASS(SMCPersistentTreeNode)));
}

TEST_F(PersistentTreeNodeTest, NumbersTruthsAndBytesComeBack)
{
    EXPECT_EQ(m_Node.SetInteger(u"n", -70000, false), 0);
    EXPECT_EQ(m_Node.SetBoolean(u"yes", true, false), 0);
    EXPECT_EQ(m_Node.SetString(u"upper", u"TRUE", false), 0);
    EXPECT_EQ(m_Node.SetString(u"one", u"1", false), 0);
    const BYTE bytes[] = {0x01, 0x1F};
    EXPECT_EQ(m_Node.SetBinary(u"b", bytes, 2, false), 0);

    int number = 0;
    UINT natural = 0;
    WORD word = 0;
    std::int64_t wide = 0;
    EXPECT_EQ(m_Node.GetInteger(u"n", number), 0);
    EXPECT_EQ(m_Node.GetUnsigned(u"n", natural), 0);
    EXPECT_EQ(m_Node.GetWord(u"n", word), 0);
    EXPECT_EQ(m_Node.GetInteger64(u"n", wide), 0);
    EXPECT_EQ(number, -70000);
    EXPECT_EQ(natural, 4294897296U);
    EXPECT_EQ(word, 61072);
    EXPECT_EQ(wide, -70000);

    for (const auto& [key, expected] :
         {std::pair(u"yes", true), std::pair(u"upper", true), std::pair(u"one", false)})
    {
        bool truth = !expected;
        EXPECT_EQ(m_Node.GetBoolean(key, truth), 0);
        EXPECT_EQ(truth, expected);
    }
    CString letters;
    m_Node.GetString(u"b", letters);
    EXPECT_EQ(letters, u"BAPB");
    CByteArray back;
    EXPECT_EQ(m_Node.GetBinary(u"b", back), 0);
    ASSERT_EQ(back.GetSize(), 2);
    EXPECT_EQ(back[1], 0x1F);
}

TEST_F(PersistentTreeNodeTest, LongTextsAreSplitWhileTheSwitchIsOn)
{
    m_Node.SetString(u"before", CString(u'q', 251), false);
    {
        const CSplit split;
        m_Node.SetString(u"whole", CString(u'q', 250), false);
        m_Node.SetString(u"split", CString(u'q', 251), false);
        EXPECT_EQ(m_Node.SetString(u"split", CString(u'r', 251), false), PTN_KEY_EXISTS);
    }
    const std::vector<BYTE> bytes(126, 0x10);
    m_Node.SetBinary(u"bytes", bytes.data(), 125, false);
    m_Node.SetBinary(u"more", bytes.data(), 126, false);

    EXPECT_EQ(KeysOf(m_Node),
              (std::vector<CString>{u"before", u"whole", u"split_BinCount", u"split_BinVal0",
                                    u"split_BinVal1", u"bytes", u"more_BinCount", u"more_BinVal0",
                                    u"more_BinVal1"}));
    CByteArray back;
    EXPECT_EQ(m_Node.GetBinary(u"more", back), 0);
    ASSERT_EQ(back.GetSize(), 126);
    EXPECT_EQ(back[125], 0x10);
}

TEST_F(PersistentTreeNodeTest, TheSumIsExact)
{
    struct CCase
    {
        const char16_t* m_Value;
        std::uint32_t m_Sum;
    };
    for (const CCase& test :
         {CCase{u"", 0}, CCase{u"a", 0x61}, CCase{u"abc", 0x636261}, CCase{u"abcd", 0x620061},
          CCase{u"abcde", 0x620061 ^ 0x65}, CCase{u"abcd  ", 0x620061}, CCase{u"   ", 0x20},
          CCase{u"ab\t", 0x096261}, CCase{u"\x0178", 0x78},
          CCase{u"\x0178"
                u"bcd",
                0x620178}})
    {
        m_Node.SetString(u"v", test.m_Value, true);
        EXPECT_EQ(SumOf(m_Node), test.m_Sum) << testing::PrintToString(test.m_Value);
    }
}

TEST_F(PersistentTreeNodeTest, ChildrenOfControlNamesDoNotCountInTheSum)
{
    for (const char16_t* name : {u"plain", u"tab\there", u"\x1f", u"\x20"})
    {
        SECPersistentTreeNode* child = nullptr;
        ASSERT_EQ(m_Node.AddChild(name, &child), 0);
        child->SetString(u"v", name, false);
    }
    // "plai" and "n" of the first, " " of the last
    EXPECT_EQ(SumOf(m_Node), 0x6C0070U ^ 0x6EU ^ 0x20U);
}

} // namespace utility
