#pragma once

#include "platform/base/Export.h"

#include <cstdint>

namespace utility
{

class SECPersistentTreeNode;

namespace TreeNode
{

/// Adds the values of a tree to a sum, traced in context "ConfigFile".
///
/// Keys and order do not count, and of every four characters of a value only the first two; the sum
/// of a configuration file is exactly this. Children whose name holds a control character are left
/// out.
UTILITY_CORE_API void CalcCheckSum(const SECPersistentTreeNode& node, std::uint32_t& sum);

} // namespace TreeNode

} // namespace utility
