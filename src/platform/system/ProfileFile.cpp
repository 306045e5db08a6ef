#include "platform/system/ProfileFile.h"

#include "platform/base/CaseFold.h"
#include "platform/base/Encoding.h"
#include "platform/base/LastError.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/WholeFile.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr UINT WINDOWS_1252 = 1252;
constexpr std::string_view UTF8_MARK = "\xEF\xBB\xBF";
constexpr std::string_view UTF16_MARK = "\xFF\xFE";

CString Folded(const CString& name)
{
    CString folded = name;
    folded.MakeLower();
    return folded;
}

CString DecodeUtf16(std::string_view bytes)
{
    std::u16string units(bytes.size() / 2, u'\0');
    if (!units.empty())
        std::memcpy(units.data(), bytes.data(), units.size() * 2);
    return CString(std::u16string_view(units));
}

CString Decode(std::string_view bytes)
{
    if (bytes.starts_with(UTF16_MARK))
        return DecodeUtf16(bytes.substr(UTF16_MARK.size()));
    if (bytes.starts_with(UTF8_MARK))
        return FromUtf8(bytes.substr(UTF8_MARK.size()));
    const CString text = FromUtf8(bytes);
    return ToUtf8(text.View()) == bytes ? text : FromBytes(WINDOWS_1252, bytes);
}

std::string Encode(const std::u16string& text)
{
    if (std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; }))
        return std::string(text.begin(), text.end());
    std::string bytes(UTF16_MARK);
    bytes.append(reinterpret_cast<const char*>(text.data()), text.size() * 2);
    return bytes;
}

bool IsBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t';
}

std::u16string_view TrimBlanks(std::u16string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool HoldsLineEnd(std::u16string_view text)
{
    constexpr char16_t ENDS[] = {u'\r', u'\n', u'\0'};
    return text.find_first_of(std::u16string_view(ENDS, 3)) != std::u16string_view::npos;
}

bool WriteFile(const CString& path, const std::string& bytes)
{
    CFile file;
    if (!file.Open(path, CFile::modeWrite | CFile::shareExclusive))
        return false;
    try
    {
        if (!bytes.empty())
            file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
        file.Close();
        return true;
    }
    catch (CFileException* exception)
    {
        exception->Delete();
        file.Abort();
        return false;
    }
}

} // namespace

bool CProfileFile::Load(const CString& path)
{
    const CLastErrorKeeper keeper;
    std::string bytes;
    const bool read = ReadWholeFile(path, bytes);
    Parse(read ? std::string_view(bytes) : std::string_view());
    return read;
}

bool CProfileFile::Save(const CString& path) const
{
    const CLastErrorKeeper keeper;
    CString beside;
    CString target;
    if (!MakeReplacement(path, beside, target))
        return false;
    if (WriteFile(beside, Format()) && ReplaceWholeFile(beside, target))
        return true;
    DeleteFileW(beside);
    return false;
}

void CProfileFile::Parse(std::string_view bytes)
{
    m_Sections.clear();
    m_Index.clear();
    m_FirstLine.Empty();
    const CString text = Decode(bytes);
    ParseText(text.View());
}

void CProfileFile::ParseText(std::u16string_view text)
{
    m_FirstLine = CString(text.substr(0, text.find_first_of(u"\r\n")));
    CSection* section = nullptr;
    while (!text.empty())
    {
        const std::size_t end = text.find(u'\n');
        std::u16string_view line = text.substr(0, end);
        text.remove_prefix(end == std::u16string_view::npos ? text.size() : end + 1);
        if (line.ends_with(u'\r'))
            line.remove_suffix(1);
        while (!line.empty() && IsBlank(line.front()))
            line.remove_prefix(1);
        if (line.starts_with(u'['))
            section = &ProvideSection(CString(line.substr(1, line.find(u']') - 1)));
        else if (section && !line.starts_with(u';') && line.find(u'=') != std::u16string_view::npos)
        {
            const std::size_t cut = line.find(u'=');
            Append(*section, CString(TrimBlanks(line.substr(0, cut))),
                   CString(line.substr(cut + 1)));
        }
    }
}

void CProfileFile::Append(CSection& section, const CString& key, const CString& value)
{
    section.m_Index.emplace(Folded(key), section.m_Entries.size());
    section.m_Entries.emplace_back(key, value);
}

std::string CProfileFile::Format() const
{
    std::u16string text;
    for (const CSection& section : m_Sections)
    {
        text.append(u"[").append(section.m_Name.View()).append(u"]\r\n");
        for (const auto& [key, value] : section.m_Entries)
            text.append(key.View()).append(u"=").append(value.View()).append(u"\r\n");
    }
    return Encode(text);
}

const CProfileFile::CSection* CProfileFile::LookUpSection(const CString& name) const
{
    const auto found = m_Index.find(Folded(name));
    return found == m_Index.end() ? nullptr : &m_Sections[found->second];
}

CProfileFile::CSection& CProfileFile::ProvideSection(const CString& name)
{
    const auto [place, isNew] = m_Index.emplace(Folded(name), m_Sections.size());
    if (isNew)
        m_Sections.emplace_back().m_Name = name;
    return m_Sections[place->second];
}

void CProfileFile::AddSection(const CString& section)
{
    ProvideSection(section);
}

const CProfileFile::CEntries* CProfileFile::FindSection(const CString& section) const
{
    const CSection* found = LookUpSection(section);
    return found ? &found->m_Entries : nullptr;
}

const CString* CProfileFile::FindValue(const CString& section, const CString& key) const
{
    const CSection* found = LookUpSection(section);
    if (!found)
        return nullptr;
    const auto place = found->m_Index.find(Folded(key));
    return place == found->m_Index.end() ? nullptr : &found->m_Entries[place->second].second;
}

std::vector<CString> CProfileFile::GetSectionNames() const
{
    std::vector<CString> names;
    for (const CSection& section : m_Sections)
        names.push_back(section.m_Name);
    return names;
}

void CProfileFile::SetValue(const CString& section, const CString& key, const CString& value)
{
    CSection& target = ProvideSection(section);
    const auto place = target.m_Index.find(Folded(key));
    if (place != target.m_Index.end())
        target.m_Entries[place->second].second = value;
    else
        Append(target, key, value);
}

void CProfileFile::DeleteValue(const CString& section, const CString& key)
{
    const auto found = m_Index.find(Folded(section));
    if (found == m_Index.end())
        return;
    CSection& target = m_Sections[found->second];
    const CEntries entries = std::exchange(target.m_Entries, {});
    target.m_Index.clear();
    for (const auto& [name, value] : entries)
    {
        if (!EqualNoCase(name.View(), key.View()))
            Append(target, name, value);
    }
}

void CProfileFile::DeleteSection(const CString& section)
{
    const auto found = m_Index.find(Folded(section));
    if (found == m_Index.end())
        return;
    const std::size_t place = found->second;
    m_Sections.erase(m_Sections.begin() + static_cast<std::ptrdiff_t>(place));
    m_Index.erase(found);
    for (auto& [name, other] : m_Index)
        other -= other > place ? 1 : 0;
}

bool CProfileFile::CanHold(std::u16string_view section, std::u16string_view key,
                           std::u16string_view value)
{
    if (HoldsLineEnd(section) || HoldsLineEnd(key) || HoldsLineEnd(value))
        return false;
    if (section.find(u']') != std::u16string_view::npos)
        return false;
    return !key.empty() && TrimBlanks(key) == key && key.find(u'=') == std::u16string_view::npos &&
           key.front() != u';' && key.front() != u'[';
}

namespace
{

/// Names with a zero behind each and one more at the end, cut so that both zeros fit.
DWORD DeliverList(const std::vector<CString>& names, char16_t* buffer, DWORD size)
{
    std::u16string list;
    for (const CString& name : names)
        list.append(name.View()).push_back(u'\0');
    if (size < 2)
    {
        std::fill_n(buffer, size, u'\0');
        return 0;
    }
    const std::size_t count = std::min<std::size_t>(list.size(), size - 2);
    std::copy_n(list.data(), count, buffer);
    std::fill(buffer + count, buffer + std::min<std::size_t>(count + 2, size), u'\0');
    return static_cast<DWORD>(count);
}

DWORD DeliverValue(std::u16string_view value, char16_t* buffer, DWORD size)
{
    if (size == 0)
        return 0;
    const std::size_t count = std::min<std::size_t>(value.size(), size - 1);
    std::copy_n(value.data(), count, buffer);
    buffer[count] = u'\0';
    return static_cast<DWORD>(count);
}

} // namespace

DWORD GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR preset, char16_t* buffer,
                               DWORD size, LPCWSTR file)
{
    CProfileFile profile;
    const bool loaded = profile.Load(file);
    if (!section)
        return DeliverList(profile.GetSectionNames(), buffer, size);
    if (!key)
    {
        std::vector<CString> keys;
        if (const CProfileFile::CEntries* entries = profile.FindSection(section))
        {
            for (const auto& entry : *entries)
                keys.push_back(entry.first);
        }
        return DeliverList(keys, buffer, size);
    }
    const CString* value = loaded ? profile.FindValue(section, key) : nullptr;
    const CString shown = value ? *value : CString(preset);
    return DeliverValue(shown.View(), buffer, size);
}

BOOL WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR file)
{
    const CLastErrorKeeper keeper;
    CProfileFile profile;
    if (!profile.Load(file) && GetEntryKind(file) != EEntryKind::None)
        return FALSE; // what cannot be read must not be replaced by one value
    const CString name(section);
    const CString entry(key);
    const CString text(value);
    if (!key)
        profile.DeleteSection(name);
    else if (!value)
        profile.DeleteValue(name, entry);
    else if (CProfileFile::CanHold(name.View(), entry.View(), text.View()))
        profile.SetValue(name, entry, text);
    else
        return FALSE;
    return profile.Save(file) ? TRUE : FALSE;
}

} // namespace utility
