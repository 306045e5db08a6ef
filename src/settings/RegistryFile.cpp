#include "frame/AppMessageBox.h"
#include "frame/Application.h"
#include "platform/base/CaseFold.h"
#include "platform/base/NumberText.h"
#include "platform/base/collections/StringArray.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "settings/AppRegistry.h"
#include "settings/ConfigurationFault.h"
#include "settings/Registry.h"
#include "settings/tree/PTNStrategyProfile.h"
#include "settings/tree/PTNStrategyRegTyped.h"
#include "settings/tree/PersTreeNodeKeyValuePair.h"
#include "settings/tree/PersistentTreeNode.h"
#include "settings/tree/TreeChecksum.h"
#include "text/Clipboard.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr char16_t CHECKSUM[] = u"cs";
constexpr char16_t VERSION[] = u"cv";
constexpr int CONFIG_VERSION = 1;
constexpr char16_t CHECKSUM_OVERRIDE[] = u"cfncsOver"; // of the application's key, for support
constexpr int BRACKET_OFFSET = 9; // "]" is sought this far behind the find of the product's name

CString NumberText(std::uint32_t number)
{
    CString text;
    text.Format(u"%u", number);
    return text;
}

/// Whether a pair's key is that of a value's count or of one of its chunks.
bool IsPartOf(std::u16string_view key, std::u16string_view name)
{
    if (!EqualNoCase(key.substr(0, name.size()), name))
        return false;
    std::u16string_view tail = key.substr(name.size());
    if (tail == std::u16string_view(u"_BinCount"))
        return true;
    constexpr std::u16string_view CHUNK = u"_BinVal";
    if (!tail.starts_with(CHUNK))
        return false;
    tail.remove_prefix(CHUNK.size());
    return !tail.empty() && tail.find_first_not_of(u"0123456789") == std::u16string_view::npos;
}

/// Whether the count of a value's chunks is there: a bare number, as no stored value is.
bool IsSplit(const SECPersistentTreeNode& node, const CString& name)
{
    const CString count = name + u"_BinCount";
    const auto& pairs = node.GetPairs();
    return std::any_of(pairs.begin(), pairs.end(),
                       [&count](const auto& pair) {
                           return EqualNoCase(pair->GetKey().View(), count.View()) &&
                                  pair->GetValue().Find(u':') < 0;
                       });
}

/// A value stands whole or in parts; where it is whole, what looks like its parts is other values.
void RemoveValue(SECPersistentTreeNode& node, const CString& name)
{
    const auto isName = [&name](const CString& key)
    {
        return EqualNoCase(key.View(), name.View());
    };
    const auto isPart = [&name](const CString& key)
    {
        return IsPartOf(key.View(), name.View());
    };
    const std::size_t before = node.GetPairs().size();
    node.RemoveKeys(isName);
    if (node.GetPairs().size() == before && IsSplit(node, name))
        node.RemoveKeys(isPart);
}

/// Takes out what the caller does not want saved: "child\value", of children of the root alone.
void RemoveExcluded(const SECPersistentTreeNode& root, const CStringArray& exclude)
{
    for (const CString& entry : exclude)
    {
        const int cut = entry.ReverseFind(u'\\');
        SECPersistentTreeNode* child = cut > 0 ? root.FindChild(entry.Left(cut)) : nullptr;
        if (child)
            RemoveValue(*child, entry.Mid(cut + 1));
    }
}

/// The root section of a file of the whole application, by its first line: named as the program, or
/// beginning with the product's name. Empty if it is another's.
CString RootSectionOf(const CString& firstLine, const CString& name)
{
    CString line = firstLine;
    line.Trim();
    if (EqualNoCase(line.View(), (u"[" + name + u"]").View()))
        return name;

    line.MakeLower();
    CString sought = u"[" + CApplication::GetProductName();
    sought.MakeLower();
    const int first = line.Find(sought);
    const int last = first < 0 ? -1 : line.Find(u']', first + BRACKET_OFFSET);
    return last > first ? line.Mid(first + 1, last - first - 1) : CString();
}

/// A configuration file is never loaded outside the application's own key.
bool IsBelowApplication(const CString& base, const CString& registryName)
{
    int start = 0;
    for (CString part = base.Tokenize(u"\\", start); start >= 0; part = base.Tokenize(u"\\", start))
    {
        if (part == registryName)
            return true;
    }
    return false;
}

/// The file's sum, taken out of the tree; false if there is none.
bool TakeChecksum(SECPersistentTreeNode& root, std::uint32_t& sum)
{
    CString text;
    for (const auto& pair : root.GetPairs())
    {
        if (EqualNoCase(pair->GetKey().View(), CHECKSUM) && text.IsEmpty())
            text = pair->GetValue() + u" "; // so that an empty sum is one
    }
    if (text.IsEmpty())
        return false;
    sum = ReadUnsignedWrapped(text);
    root.RemoveKeys([](const CString& key) { return EqualNoCase(key.View(), CHECKSUM); });
    return true;
}

std::uint32_t ExpectedChecksum(const SECPersistentTreeNode& root)
{
    DWORD sum = 0;
    if (!CAppRegistry().GetValue(CHECKSUM_OVERRIDE, sum))
        TreeNode::CalcCheckSum(root, sum);
    return sum;
}

void ShowChecksums(std::uint32_t inFile, std::uint32_t calculated)
{
    bool show = false;
    CAppRegistry(u"Support").GetValue(u"ShowConfigChecksum", show);
    if (!show)
        return;
    CString text;
    text.Format(u"Checksum in file is %u but calculated as %u", inFile, calculated);
    CAppMessageBox::Show(text, MB_OK, 0);
    static_cast<void>(StringToClipboard(NumberText(calculated)));
}

/// Takes the sum out of the tree and compares it.
bool ConfirmChecksum(SECPersistentTreeNode& root)
{
    std::uint32_t sum = 0;
    if (!TakeChecksum(root, sum))
        return FailConfiguration(EConfigurationFault::NoChecksum, root.GetName());
    const std::uint32_t expected = ExpectedChecksum(root);
    if (sum == expected)
        return true;
    ShowChecksums(sum, expected);
    return FailConfiguration(EConfigurationFault::WrongChecksum, root.GetName());
}

} // namespace

bool CRegistry::SaveToFile(const CString& file, const CString& keyName, CStringArray* exclude)
{
    ClearConfigurationFault();
    CString base = m_Key;
    CString name = keyName;
    if (name.IsEmpty())
        SplitKey(base, name);
    if (name.IsEmpty())
        return FailConfiguration(EConfigurationFault::NoKey);

    SMCPTNStrategyRegTyped keys(base, m_Root);
    SMCPersistentTreeNode root;
    if (root.Create(name, nullptr) != 0 || !root.Load(keys))
        return FailConfiguration(EConfigurationFault::KeyUnreadable, name);
    RemoveValue(root, CHECKSUM);
    RemoveValue(root, VERSION);
    root.SetInteger(VERSION, CONFIG_VERSION, true);
    if (exclude)
        RemoveExcluded(root, *exclude);

    std::uint32_t sum = 0;
    TreeNode::CalcCheckSum(root, sum);
    SECPTNStrategyProfile content(file);
    const bool written = root.Save(content) &&
                         content.WriteValue(root, CHECKSUM, NumberText(sum)) && content.Flush();
    return written || FailConfiguration(EConfigurationFault::FileUnwritable, file);
}

bool CRegistry::LoadFromFile(const CString& file, const CString& keyName)
{
    ClearConfigurationFault();
    SECPTNStrategyProfile content(file);
    if (!content.Load())
        return FailConfiguration(EConfigurationFault::FileUnreadable, file);
    return LoadFromContent(content, keyName);
}

bool CRegistry::LoadFromContent(SECPTNStrategyProfile& content, const CString& keyName)
{
    CString base = m_Key;
    CString name = keyName;
    if (name.IsEmpty())
        SplitKey(base, name);
    const CString registryName = CApplication::GetRegistryName();
    const bool whole = EqualNoCase(name.View(), registryName.View());
    const CString section = whole ? RootSectionOf(content.GetContent().GetFirstLine(), name) : name;
    if (section.IsEmpty() || (!whole && !IsBelowApplication(base, registryName)))
        return FailConfiguration(EConfigurationFault::OtherProgram, name);

    SMCPersistentTreeNode root;
    if (root.Create(section, nullptr) != 0 || !root.Load(content))
        return FailConfiguration(EConfigurationFault::UnsoundSections, section);
    if (!ConfirmChecksum(root))
        return false;
    root.RemoveKeys([](const CString& key) { return EqualNoCase(key.View(), VERSION); });
    if (section != name)
        root.SetName(registryName);

    CRegistryTransaction transaction(m_Root);
    SMCPTNStrategyRegTyped keys(base, m_Root);
    const bool stored = root.Save(keys) && transaction.Commit();
    return stored || FailConfiguration(EConfigurationFault::KeyUnwritable, name);
}

} // namespace utility
