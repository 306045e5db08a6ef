#include "settings/export/SettingsExport.h"

#include "files/SafeFile.h"
#include "platform/base/Encoding.h"
#include "platform/system/file/WholeFile.h"
#include "settings/export/SettingsBuilder.h"
#include "settings/export/SettingsFormReader.h"
#include "settings/export/SettingsFormWriter.h"
#include "settings/export/SettingsXmlReader.h"
#include "settings/export/SettingsXmlWriter.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::uint64_t LARGEST_FILE = 1U << 30;

CString LastName(const CString& key)
{
    return key.Mid(key.ReverseFind(u'\\') + 1);
}

bool Fail(CSettingsFault& fault, ESettingsFault kind)
{
    fault = {kind, CString()};
    return false;
}

/// Where the bytes cease to be UTF-8; their number if they do not.
std::size_t FindNoText(std::string_view bytes)
{
    const std::string again = ToUtf8(FromUtf8(bytes).View());
    const auto differing = std::mismatch(bytes.begin(), bytes.end(), again.begin(), again.end());
    return static_cast<std::size_t>(differing.first - bytes.begin());
}

void Locate(std::string_view bytes, const CSettingsStop& stop, CSettingsFault& fault)
{
    const std::string_view before = bytes.substr(0, stop.m_Offset);
    const std::size_t line = before.rfind('\n') + 1; // 0 where there is none
    fault.m_Kind = stop.m_Kind;
    fault.m_Name = stop.m_Name;
    fault.m_Line = 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
    fault.m_Column = 1 + static_cast<int>(std::count_if(
                             before.begin() + static_cast<std::ptrdiff_t>(line), before.end(),
                             [](char byte) { return (byte & 0xC0) != 0x80; }));
}

} // namespace

bool FormatSettings(const CSettingsTree& tree, const CString& name, ESettingsFormat format,
                    std::string& bytes, CSettingsFault& fault)
{
    CSettingsXmlWriter xml;
    CSettingsFormWriter form;
    CSettingsWriter& writer = format == ESettingsFormat::Xml ? static_cast<CSettingsWriter&>(xml)
                                                             : static_cast<CSettingsWriter&>(form);
    if (!writer.Write(tree, name, fault))
        return false;
    bytes = writer.GetBytes();
    return true;
}

bool ParseSettings(std::string_view bytes, const CString& name, ESettingsFormat format,
                   CSettingsTree& tree, CSettingsFault& fault)
{
    CSettingsTree read;
    CSettingsBuilder builder(read);
    const std::size_t noText = FindNoText(bytes);
    const bool isRead = noText < bytes.size() ? builder.Stop(ESettingsFault::NoText, noText)
                        : format == ESettingsFormat::Xml
                            ? CSettingsXmlReader(bytes, builder).Read(name)
                            : CSettingsFormReader(bytes, builder).Read(name);
    if (isRead)
        tree = std::move(read);
    else
        Locate(bytes, builder.GetStop(), fault);
    return isRead;
}

bool SaveSettings(const CSettingsTree& tree, const CString& name, ESettingsFormat format,
                  const CString& file, CSettingsFault& fault)
{
    std::string bytes;
    if (!FormatSettings(tree, name, format, bytes, fault))
        return false;
    return CSafeFile::Write(file, bytes) || Fail(fault, ESettingsFault::FileUnwritable);
}

bool ExportSettings(HKEY root, const CString& key, ESettingsFormat format, const CString& file,
                    CSettingsFault& fault)
{
    CSettingsTree tree;
    if (!tree.Read(root, key))
        return Fail(fault, ESettingsFault::KeyUnreadable);
    return SaveSettings(tree, LastName(key), format, file, fault);
}

bool ImportSettings(HKEY root, const CString& key, ESettingsFormat format, const CString& file,
                    CSettingsFault& fault)
{
    CSettingsTree tree;
    std::string bytes;
    if (!ReadWholeFile(file, bytes, CFile::shareDenyWrite, LARGEST_FILE))
        return Fail(fault, ESettingsFault::FileUnreadable);
    if (!ParseSettings(bytes, LastName(key), format, tree, fault))
        return false;
    return tree.Store(root, key) || Fail(fault, ESettingsFault::KeyUnwritable);
}

} // namespace utility
