#include "settings/xml/XMLPath.h"

#include "platform/base/CaseFold.h"
#include "platform/base/UnitSearch.h"
#include "settings/xml/XMLNode.h"

namespace utility
{

namespace
{

constexpr char16_t SEPARATOR = u'\\';

/// Cuts the first name off a path.
std::u16string_view CutHead(std::u16string_view& path)
{
    const std::size_t end = std::min(units::Find(path, SEPARATOR), path.size());
    const std::u16string_view head = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    return head;
}

/// The next among `element` and its later neighbours that passes.
CXMLNode* FindPassing(CXMLNode* element, std::size_t place, const CXMLPathTest& test)
{
    while (element && !test(*element, place))
        element = element->GetNextSibling();
    return element;
}

} // namespace

std::vector<std::u16string_view> SplitXMLPath(std::u16string_view path)
{
    std::vector<std::u16string_view> names;
    for (auto name = CutHead(path); !name.empty(); name = CutHead(path))
        names.push_back(name);
    return names;
}

CXMLNode* FindXMLChain(CXMLNode& start, std::size_t count, const CXMLPathTest& test)
{
    if (count == 0)
        return &start;
    CXMLNode* parent = &start;
    CXMLNode* element = start.GetFirstChild();
    for (std::size_t place = 0;;)
    {
        element = FindPassing(element, place, test);
        if (element && place + 1 == count)
            return element;
        if (element)
        {
            parent = element;
            element = element->GetFirstChild();
            ++place;
            continue;
        }
        if (place == 0)
            return nullptr;
        element = parent->GetNextSibling(); // another chain may lead on
        parent = parent->GetParent();
        --place;
    }
}

CXMLNode* FindXMLPath(CXMLNode& start, const CString& path)
{
    const auto names = SplitXMLPath(path.View());
    return FindXMLChain(start, names.size(),
                        [&names](const CXMLNode& element, std::size_t place)
                        { return EqualNoCase(element.GetName().View(), names[place]); });
}

CXMLNode* CreateXMLPath(CXMLNode& start, const CString& path)
{
    const auto names = SplitXMLPath(path.View());
    CXMLNode* element = &start;
    for (std::size_t place = 0; place < names.size(); ++place)
    {
        CXMLNode* const shared =
            place + 1 < names.size() ? element->FindChild(names[place]) : nullptr;
        element = shared ? shared : element->AddChild(CString(names[place]));
    }
    return element;
}

CXMLNode* ProvideXMLPath(CXMLNode& start, const CString& path)
{
    CXMLNode* element = &start;
    for (std::u16string_view rest = path.View(); !rest.empty();)
    {
        const std::u16string_view name = CutHead(rest);
        if (name.empty())
            continue;
        CXMLNode* const present = element->FindChild(name);
        element = present ? present : element->AddChild(CString(name));
    }
    return element;
}

CXMLNode* AddXMLBranch(CXMLNode& start, const CString& path)
{
    CXMLNode* element = &start;
    for (std::u16string_view rest = path.View(); !rest.empty();)
    {
        const std::u16string_view name = CutHead(rest);
        if (!name.empty())
            element = element->AddChild(CString(name));
    }
    return element;
}

CString ComposeXMLPath(const CString& key, const CString& name)
{
    return key.IsEmpty() ? name : key + SEPARATOR + name;
}

} // namespace utility
