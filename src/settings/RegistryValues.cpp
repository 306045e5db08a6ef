#include "platform/base/ErrorCodes.h"
#include "platform/base/NumberText.h"
#include "platform/base/Point.h"
#include "platform/base/collections/ByteArray.h"
#include "platform/base/collections/StringArray.h"
#include "platform/base/object/OleException.h"
#include "platform/base/time/OleDateTime.h"
#include "platform/base/time/Time.h"
#include "platform/system/Locale.h"
#include "settings/Registry.h"

#include <array>

namespace utility
{

namespace
{

// The buffers that other programs of the suite read with: what is longer reads as a failure there
// too.
constexpr DWORD TEXT_READ_LIMIT = 2048; // bytes
constexpr int TEXT_WRITE_LIMIT = 2048;  // units
constexpr DWORD FIRST_BINARY_SIZE = 512;

constexpr char16_t TIME_FORMAT[] = u"%H:%M:%S %d-%b-%Y";

CString RowName(int row)
{
    CString name;
    name.Format(u"String%d", row);
    return name;
}

/// The text up to its first zero; an odd last byte is dropped.
CString TextOf(const char16_t* units, DWORD size)
{
    const std::u16string_view text(units, size / sizeof(char16_t));
    return CString(text.substr(0, text.find(u'\0')));
}

} // namespace

bool CRegistry::QueryValue(const char16_t* name, DWORD& type, unsigned char* data,
                           DWORD& length) const
{
    if (!name || !Open(true))
        return false;
    const LONG code = RegQueryValueExW(m_OpenKey, name, nullptr, &type, data, &length);
    Close();
    return code == ERROR_SUCCESS;
}

bool CRegistry::WriteValue(const CString& name, DWORD type, const void* data, std::size_t size)
{
    if (!Open(false))
        return false;
    const LONG code = RegSetValueExW(m_OpenKey, name, 0, type, static_cast<const BYTE*>(data),
                                     static_cast<DWORD>(size));
    Close();
    return code == ERROR_SUCCESS;
}

bool CRegistry::ReadText(const CString& name, CString& value) const
{
    std::array<char16_t, TEXT_READ_LIMIT / sizeof(char16_t)> units;
    DWORD type = 0;
    DWORD size = TEXT_READ_LIMIT;
    const LONG code = RegQueryValueExW(m_OpenKey, name, nullptr, &type,
                                       reinterpret_cast<BYTE*>(units.data()), &size);
    if (code != ERROR_SUCCESS)
        return false;
    value = TextOf(units.data(), size);
    return true;
}

bool CRegistry::ReadNumber(const CString& name, DWORD type, void* value, DWORD size) const
{
    std::array<BYTE, sizeof(std::int64_t)> bytes{};
    DWORD foundType = 0;
    DWORD foundSize = size;
    if (!QueryValue(name, foundType, bytes.data(), foundSize))
        return false;
    if (foundType != type || foundSize != size)
        return false;
    std::memcpy(value, bytes.data(), size);
    return true;
}

bool CRegistry::ReadBytes(const CString& name, std::vector<unsigned char>& bytes) const
{
    bytes.resize(FIRST_BINARY_SIZE);
    if (!Open(true))
        return false;
    DWORD type = 0;
    DWORD size = FIRST_BINARY_SIZE;
    LONG code = RegQueryValueExW(m_OpenKey, name, nullptr, &type, bytes.data(), &size);
    if (code == ERROR_MORE_DATA)
    {
        bytes.resize(size);
        code = RegQueryValueExW(m_OpenKey, name, nullptr, &type, bytes.data(), &size);
    }
    Close();
    if (code != ERROR_SUCCESS || type != REG_BINARY)
        return false;
    bytes.resize(size);
    return true;
}

bool CRegistry::GetValue(const CString& name, CString& value) const
{
    if (!Open(true))
        return false;
    const bool read = ReadText(name, value);
    Close();
    return read;
}

bool CRegistry::SetValue(const CString& name, const CString& value)
{
    if (value.GetLength() >= TEXT_WRITE_LIMIT)
        return false;
    const auto units = static_cast<std::size_t>(value.GetLength()) + 1;
    return WriteValue(name, REG_SZ, value.GetString(), units * sizeof(char16_t));
}

bool CRegistry::SetValue(const CString& name, const char16_t* value)
{
    return SetValue(name, CString(value));
}

bool CRegistry::GetValue(const CString& name, DWORD& value) const
{
    return ReadNumber(name, REG_DWORD, &value, sizeof(value));
}

bool CRegistry::SetValue(const CString& name, DWORD value)
{
    return WriteValue(name, REG_DWORD, &value, sizeof(value));
}

bool CRegistry::GetValue(const CString& name, int& value) const
{
    return ReadNumber(name, REG_DWORD, &value, sizeof(value));
}

bool CRegistry::SetValue(const CString& name, int value)
{
    return SetValue(name, static_cast<DWORD>(value));
}

bool CRegistry::GetValue(const CString& name, bool& value) const
{
    DWORD number = 0;
    if (!GetValue(name, number))
        return false;
    value = number != 0;
    return true;
}

bool CRegistry::SetValue(const CString& name, bool value)
{
    return SetValue(name, static_cast<DWORD>(value ? 1 : 0));
}

bool CRegistry::GetValue(const CString& name, std::int64_t& value) const
{
    return ReadNumber(name, REG_QWORD, &value, sizeof(value));
}

bool CRegistry::SetValue(const CString& name, std::int64_t value)
{
    return WriteValue(name, REG_QWORD, &value, sizeof(value));
}

bool CRegistry::GetValue(const CString& name, double& value) const
{
    CString text;
    if (!GetValue(name, text))
        return false;
    value = wcstod(text, nullptr);
    return true;
}

bool CRegistry::SetValue(const CString& name, double value)
{
    CString text;
    text.Format(u"%f", value);
    return SetValue(name, text);
}

bool CRegistry::GetValue(const CString& name, CByteArray& value) const
{
    std::vector<unsigned char> bytes;
    if (!ReadBytes(name, bytes))
        return false;
    value.SetSize(static_cast<int>(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), value.begin());
    return true;
}

bool CRegistry::SetValue(const CString& name, const CByteArray& value)
{
    return SetValue(name, value.GetData(), static_cast<DWORD>(value.GetSize()));
}

bool CRegistry::GetValue(const CString& name, unsigned char* value, DWORD& length) const
{
    std::vector<unsigned char> bytes;
    if (!ReadBytes(name, bytes) || bytes.size() > length)
        return false;
    std::copy(bytes.begin(), bytes.end(), value);
    length = static_cast<DWORD>(bytes.size());
    return true;
}

bool CRegistry::SetValue(const CString& name, const unsigned char* value, DWORD length)
{
    return WriteValue(name, REG_BINARY, value, length);
}

bool CRegistry::GetValue(const CString& name, CPoint& value) const
{
    CRegistry key(*this);
    key.AddTailToKey(name);
    CPoint point = value;
    const bool readX = key.GetValue(u"x", point.x);
    const bool readY = key.GetValue(u"y", point.y);
    if (readX || readY)
        value = point;
    return readX || readY;
}

bool CRegistry::SetValue(const CString& name, const CPoint& value)
{
    CRegistry key(*this);
    key.AddTailToKey(name);
    const bool wroteX = key.SetValue(u"x", value.x);
    const bool wroteY = key.SetValue(u"y", value.y);
    return wroteX || wroteY;
}

bool CRegistry::GetValue(const CString& name, CStringArray& value) const
{
    CRegistry key(*this);
    key.AddTailToKey(name);
    value.RemoveAll();
    int count = 0;
    if (!key.GetValue(u"Count", count))
        return false;
    for (int row = 0; row < count; ++row)
    {
        CString text;
        const bool read = key.GetValue(RowName(row), text);
        value.Add(text);
        if (!read)
            return false;
    }
    return true;
}

bool CRegistry::SetValue(const CString& name, const CStringArray& value)
{
    // One step, so that no reader meets a list without its end.
    CRegistryTransaction transaction(m_Root);
    CRegistry key(*this);
    key.AddTailToKey(name);
    if (key.KeyExists() && !DeleteKey(name))
        return false;
    if (!key.SetValue(u"Count", value.GetSize()))
        return false;
    for (int row = 0; row < value.GetSize(); ++row)
    {
        if (!key.SetValue(RowName(row), value[row]))
            return false;
    }
    return transaction.Commit();
}

bool CRegistry::GetValue(const CString& name, CTime& value) const
{
    CString text;
    if (!GetValue(name, text))
        return false;
    DATE date = 0;
    SYSTEMTIME fields = {};
    if (VarDateFromStr(text, date) != S_OK || !VariantTimeToSystemTime(date, fields))
        AfxThrowOleException(E_FAIL);
    value = CTime(fields);
    return true;
}

bool CRegistry::SetValue(const CString& name, const CTime& value)
{
    return SetValue(name, value.Format(TIME_FORMAT));
}

bool CRegistry::DeleteValue(const CString& name)
{
    if (!Open(false))
        return false;
    const LONG code = RegDeleteValueW(m_OpenKey, name);
    Close();
    return code == ERROR_SUCCESS;
}

bool CRegistry::GetValue_64BFlag(const CString& name, CString& value) const
{
    if (!Open_64BFlag(true))
        return false;
    const bool read = ReadText(name, value);
    Close();
    return read;
}

bool CRegistry::GetMultiValues_64BFlag(const CString& name, CStringArray& values) const
{
    if (!Open_64BFlag(true))
        return false;
    DWORD size = 0;
    LONG code = RegQueryValueExW(m_OpenKey, name, nullptr, nullptr, nullptr, &size);
    // Twice the size: zeros stand behind whatever was stored without an end.
    std::vector<char16_t> units(size + 2, u'\0');
    if (code == ERROR_SUCCESS)
        code = RegQueryValueExW(m_OpenKey, name, nullptr, nullptr,
                                reinterpret_cast<BYTE*>(units.data()), &size);
    Close();
    if (code != ERROR_SUCCESS)
        return false;
    for (const char16_t* text = units.data(); *text != u'\0';)
    {
        const CString value(text);
        values.Add(value);
        text += value.GetLength() + 1;
    }
    return true;
}

} // namespace utility
