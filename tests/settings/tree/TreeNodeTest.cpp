#include "settings/tree/TreeNode.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

std::vector<int> DataOf(const CTreeNode& node)
{
    std::vector<int> data;
    POSITION position = nullptr;
    for (CTreeNode* child = node.FirstNode(position); child; child = node.NextNode(position))
        data.push_back(*static_cast<int*>(child->Data()));
    return data;
}

class CCountedNode : public CTreeNode
{
public:
    explicit CCountedNode(int& living) : m_Living(living) { ++m_Living; }
    ~CCountedNode() override { --m_Living; }

private:
    int& m_Living;
};

} // namespace

TEST(TreeNodeTest, NodesGoWhereTheyAreTold)
{
    int data[] = {0, 1, 2, 3, 4};
    CTreeNode root;
    POSITION two = root.InsertAfter(&data[2], nullptr);
    root.InsertBefore(&data[0], nullptr);
    root.InsertAfter(&data[4], nullptr);
    root.InsertBefore(&data[1], two);
    root.InsertAfter(&data[3], two);

    EXPECT_EQ(DataOf(root), (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(root.ThisNode(two)->Data(), &data[2]);
    EXPECT_EQ(root.ThisNode(two)->Parent(), &root);
    EXPECT_EQ(root.ThisNode(nullptr), nullptr);
}

TEST(TreeNodeTest, AWalkStepsPastEmptyEntries)
{
    int data = 5;
    CTreeNode root;
    root.InsertAfter(static_cast<CTreeNode*>(nullptr), nullptr);
    root.InsertAfter(&data, nullptr);
    root.InsertAfter(static_cast<CTreeNode*>(nullptr), nullptr);

    EXPECT_EQ(DataOf(root), std::vector<int>{5});
    EXPECT_NE(root.Find(&data), nullptr);
}

TEST(TreeNodeTest, FindLooksAtChildrenAndTreeFindAtAll)
{
    int data[] = {0, 1, 2};
    CTreeNode root(&data[0], nullptr);
    CTreeNode* child = root.ThisNode(root.InsertAfter(&data[1], nullptr));
    CTreeNode* below = child->ThisNode(child->InsertAfter(&data[2], nullptr));

    EXPECT_EQ(root.Find(&data[0]), nullptr);
    EXPECT_EQ(root.Find(&data[1]), child);
    EXPECT_EQ(root.Find(&data[2]), nullptr);
    EXPECT_EQ(root.TreeFind(&data[0]), &root);
    EXPECT_EQ(root.TreeFind(&data[2]), below);
    int stranger = 0;
    EXPECT_EQ(root.TreeFind(&stranger), nullptr);
}

TEST(TreeNodeTest, RemovedNodesAreTheCallersAndTheRestGoWithTheTree)
{
    int living = 0;
    std::unique_ptr<CTreeNode> removed;
    {
        CTreeNode root;
        POSITION first = root.InsertAfter(new CCountedNode(living), nullptr);
        POSITION second = root.InsertAfter(new CCountedNode(living), nullptr);
        CTreeNode* node = new CCountedNode(living);
        root.InsertAfter(node, nullptr);
        node->InsertAfter(new CCountedNode(living), nullptr);
        removed.reset(root.RemoveNode(first));
        EXPECT_EQ(removed->Parent(), nullptr);
        root.DeleteNode(second);
        EXPECT_EQ(living, 3);
    }
    EXPECT_EQ(living, 1);
}

TEST(TreeNodeTest, AVeryDeepTreeIsSearchedAndDeleted)
{
    int data = 0;
    CTreeNode root;
    CTreeNode* node = &root;
    for (int depth = 0; depth < 200000; ++depth)
        node = node->ThisNode(node->InsertAfter(static_cast<void*>(nullptr), nullptr));
    node->Data(&data);

    EXPECT_EQ(root.TreeFind(&data), node);
}

} // namespace utility
