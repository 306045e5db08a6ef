#pragma once

#include "database/DBField.h"

namespace utility
{

/// The typed values of a recordset's fields and parameters, each by index or by name.
///
/// Stands apart from `CODBCRecordset`, its only user, because it is long and says one thing:
/// `GetInt(key)` is `Field(key).AsInt()`, `SetInt(key, value)` assigns to `Field(key)`,
/// `SetIntParam` to `Param(key)`.
template <typename TSet>
class CODBCRecordsetValues
{
public:
    // clang-format off
    template <typename TKey> bool IsNull(TKey key) { return Column(key).IsNull(); }

    template <typename TKey> bool GetBool(TKey key) { return Column(key).AsBool(); }
    template <typename TKey> unsigned char GetChar(TKey key) { return Column(key).AsChar(); }
    template <typename TKey> short GetShort(TKey key) { return Column(key).AsShort(); }
    template <typename TKey> int GetInt(TKey key) { return Column(key).AsInt(); }
    template <typename TKey> std::int32_t GetLong(TKey key) { return Column(key).AsLong(); }
    template <typename TKey> std::int64_t GetInt64(TKey key) { return Column(key).AsInt64(); }
    template <typename TKey> float GetFloat(TKey key) { return Column(key).AsFloat(); }
    template <typename TKey> double GetDouble(TKey key) { return Column(key).AsDouble(); }
    template <typename TKey> COleDateTime GetDate(TKey key) { return Column(key).AsDate(); }
    template <typename TKey> TIMESTAMP_STRUCT GetTimeStamp(TKey key) { return Column(key).AsTimeStamp(); }
    template <typename TKey> CString GetString(TKey key) { return Column(key).AsString(); }
    template <typename TKey> CLongBinary* GetBinary(TKey key) { return Column(key).AsBinary(); }

    template <typename TKey> void SetBool(TKey key, bool value) { Column(key) = value; }
    template <typename TKey> void SetChar(TKey key, unsigned char value) { Column(key) = value; }
    template <typename TKey> void SetShort(TKey key, short value) { Column(key) = value; }
    template <typename TKey> void SetInt(TKey key, int value) { Column(key) = value; }
    template <typename TKey> void SetLong(TKey key, std::int32_t value) { Column(key) = value; }
    template <typename TKey> void SetInt64(TKey key, std::int64_t value) { Column(key) = value; }
    template <typename TKey> void SetFloat(TKey key, float value) { Column(key) = value; }
    template <typename TKey> void SetDouble(TKey key, double value) { Column(key) = value; }
    template <typename TKey> void SetDate(TKey key, const COleDateTime& value) { Column(key) = value; }
    template <typename TKey> void SetTimeStamp(TKey key, const TIMESTAMP_STRUCT& value) { Column(key) = value; }
    template <typename TKey> void SetString(TKey key, const CString& value) { Column(key) = value; }

    template <typename TKey> void SetBoolParam(TKey key, bool value) { Parameter(key) = value; }
    template <typename TKey> void SetCharParam(TKey key, unsigned char value) { Parameter(key) = value; }
    template <typename TKey> void SetShortParam(TKey key, short value) { Parameter(key) = value; }
    template <typename TKey> void SetIntParam(TKey key, int value) { Parameter(key) = value; }
    template <typename TKey> void SetLongParam(TKey key, std::int32_t value) { Parameter(key) = value; }
    template <typename TKey> void SetInt64Param(TKey key, std::int64_t value) { Parameter(key) = value; }
    template <typename TKey> void SetFloatParam(TKey key, float value) { Parameter(key) = value; }
    template <typename TKey> void SetDoubleParam(TKey key, double value) { Parameter(key) = value; }
    template <typename TKey> void SetDateParam(TKey key, const COleDateTime& value) { Parameter(key) = value; }
    template <typename TKey> void SetTimeStampParam(TKey key, const TIMESTAMP_STRUCT& value) { Parameter(key) = value; }
    template <typename TKey> void SetStringParam(TKey key, const CString& value) { Parameter(key) = value; }
    // clang-format on

private:
    friend TSet;
    CODBCRecordsetValues() = default;

    template <typename TKey>
    CDBField& Column(TKey key)
    {
        return static_cast<TSet*>(this)->Field(key);
    }
    template <typename TKey>
    CDBField& Parameter(TKey key)
    {
        return static_cast<TSet*>(this)->Param(key);
    }
};

} // namespace utility
