#include "platform/base/collections/StringArray.h"
#include "settings/xml/XMLSettings.h"

#include "FuzzFile.h"
#include "Require.h"

#include <cstdint>

using namespace utility;

namespace
{

CString Written(CXMLSettings& settings)
{
    CString text;
    settings.WriteXMLtoString(text);
    return text;
}

/// Every element by handle, with a look-up of an attribute; gives their count.
std::size_t WalkAll(CXMLSettings& settings)
{
    std::size_t count = 0;
    void* handle = settings.FindElementHandle(CString());
    while (handle)
    {
        ++count;
        settings.GetAttributeValueByHandle(handle, u"a");
        void* next = settings.GetChildByHandle(handle, 0);
        while (handle && !next)
        {
            next = settings.GetNextElementByHandle(handle, false);
            handle = settings.GetParentByHandle(handle);
        }
        handle = next;
    }
    return count;
}

/// Leaf values come back under named entities, but for those known not to.
void CheckPlainTree(CXMLSettings& settings)
{
    CXMLSettings plain;
    plain.SetEncodings(2);
    plain.SetAllowDuplicates(true);
    void* root = settings.FindElementHandle(CString());
    void* child = settings.GetChildByHandle(root, 0);
    for (; child; child = settings.GetNextElementByHandle(child, false))
    {
        CString value = settings.GetElementValueByHandle(child);
        value.Replace(u"&#", u"#");
        if (value.View().find_first_of(std::u16string_view(u"\r\n\0", 3)) == std::u16string::npos)
            plain.SetValue(u"top", u"v", value.Trim());
    }
    CString text;
    plain.WriteXMLtoString(text);
    CStringArray lines;
    plain.SaveXML(&lines, -1);
    for (CString& line : lines)
        line.TrimRight(u'\n');
    CXMLSettings back;
    back.SetEncodings(2);
    back.LoadXML(&lines);
    Require(!back.HasParseError() && Written(back) == text);
}

} // namespace

// The first byte sets the encodings, the rest is a file. Whatever it holds: it loads into no more
// elements than it has bytes, and its values come back from a tree of plain names.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    CXMLSettings settings;
    settings.SetEncodings(data[0] & 31);
    Require(settings.LoadXML(MakeFuzzFile("xml", bytes)));
    Require(WalkAll(settings) <= size + 1);

    CXMLSettings copy;
    copy.SetEncodings(data[0] & 31);
    void* first = settings.GetChildByHandle(settings.FindElementHandle(CString()), 0);
    const CString name = settings.GetElementNameByHandle(first);
    if (!name.IsEmpty() && name.Find(u'\\') < 0)
        Require(copy.CopyKey(settings, name, false));

    const CString saved = MakeFuzzFile("xml-saved", {});
    const CString written = Written(settings);
    Require(settings.SaveXML(saved));
    Require(Written(settings) == written);
    Require(copy.LoadXML(saved));
    CheckPlainTree(settings);
    RemoveFuzzFile("xml");
    RemoveFuzzFile("xml-saved");
    return 0;
}
