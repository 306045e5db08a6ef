#include "settings/tree/TreeChecksum.h"

#include "frame/AppLog.h"
#include "settings/tree/PersTreeNodeKeyValuePair.h"
#include "settings/tree/PersistentTreeNode.h"

#include <vector>

namespace utility
{

namespace
{

/// Four characters give one word: the first two of them whole, or the low bytes of a rest of up to
/// three.
std::uint32_t WordAt(std::u16string_view text, std::size_t at)
{
    if (text.size() - at >= 4)
        return text[at] | static_cast<std::uint32_t>(text[at + 1]) << 16;
    std::uint32_t word = 0;
    for (std::size_t byte = 0; byte < 3 && at + byte < text.size(); ++byte)
        word |= static_cast<std::uint32_t>(text[at + byte] & 0xFF) << (8 * byte);
    return word;
}

std::uint32_t SumOf(std::u16string_view text)
{
    while (text.size() > 1 && text.back() == u' ')
        text.remove_suffix(1);
    std::uint32_t sum = 0;
    for (std::size_t at = 0; at < text.size(); at += 4)
        sum ^= WordAt(text, at);
    return sum;
}

bool HoldsControl(const CString& name)
{
    const std::u16string_view text = name.View();
    return std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit < 32; });
}

void SumNode(const SECPersistentTreeNode& node, const CAppLogContext& context, std::uint32_t& sum)
{
    CAppLog::Log(context, u"TreeNode:                          : %1\n", node.GetName());
    for (const auto& pair : node.GetPairs())
    {
        sum ^= SumOf(pair->GetValue().View());
        CAppLog::Log(context, u"TreeNode::CalcCheckSum:%1!12d!, %2\n", static_cast<int>(sum),
                     pair->GetKey());
    }
}

} // namespace

void TreeNode::CalcCheckSum(const SECPersistentTreeNode& node, std::uint32_t& sum)
{
    const CAppLogContext context(u"ConfigFile", 0);
    std::vector<const SECPersistentTreeNode*> open{&node};
    while (!open.empty())
    {
        const SECPersistentTreeNode& next = *open.back();
        open.pop_back();
        SumNode(next, context, sum);
        const auto& children = next.GetChildren();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
        {
            if (!HoldsControl((*child)->GetName()))
                open.push_back(*child);
        }
    }
}

} // namespace utility
