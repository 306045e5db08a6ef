#pragma once

#include "platform/base/String.h"

#include <functional>
#include <string_view>
#include <vector>

namespace utility
{

class CXMLNode;

/// The names of a key path up to its first empty one.
std::vector<std::u16string_view> SplitXMLPath(std::u16string_view path);

/// What an element has to be, by the number of its name in a path, the first being 0.
using CXMLPathTest = std::function<bool(CXMLNode& element, std::size_t place)>;

/// The first element that a chain of `count` elements below `start` leads to, each passing the
/// test; `start` itself for a count of 0. Looks at no element twice.
CXMLNode* FindXMLChain(CXMLNode& start, std::size_t count, const CXMLPathTest& test);

/// The first element at a path, in any case of letters: found if any chain of such names holds it.
CXMLNode* FindXMLPath(CXMLNode& start, const CString& path);

/// Makes the last element of the path anew, and those before it where they are missing.
CXMLNode* CreateXMLPath(CXMLNode& start, const CString& path);

/// Takes the first element of each name on the path or adds one; empty names are skipped.
CXMLNode* ProvideXMLPath(CXMLNode& start, const CString& path);

/// Adds a new branch of all names of the path, empty ones skipped; gives its end.
CXMLNode* AddXMLBranch(CXMLNode& start, const CString& path);

/// The key and the name below it; the name alone for an empty key.
CString ComposeXMLPath(const CString& key, const CString& name);

} // namespace utility
