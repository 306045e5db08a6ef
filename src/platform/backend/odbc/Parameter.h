#pragma once

#include "platform/base/Types.h"
#include "platform/db/DbValue.h"
#include "platform/db/ODBCFieldInfo.h"

#include <cstdint>
#include <string>

namespace utility
{

/// The value of one mark of a statement, kept where the driver reads it at each execution.
class CParameter
{
public:
    CParameter() = default;
    CParameter(const CParameter&) = delete;
    CParameter& operator=(const CParameter&) = delete;

    /// Takes a copy, and binds anew only if the driver would look at another place or for another
    /// type.
    RETCODE Set(void* statement, std::size_t index, const CDbValue& value,
                const CODBCFieldInfo& column, bool takesDatesAsText);

    /// Gives the value to another statement too; it stays here.
    RETCODE Bind(void* statement, std::size_t index);

private:
    struct CBinding
    {
        const void* Data = nullptr;
        short Carrier = 0;
        short SqlType = 0;
        std::size_t Size = 0;
        short Scale = 0;
    };

    CBinding Store(const CDbValue& value, const CODBCFieldInfo& column, bool takesDatesAsText);
    CBinding StoreDate(const CDbValue& value, const CODBCFieldInfo& column);
    CBinding StoreDateText(const CDbValue& value, const CODBCFieldInfo& column);
    CBinding StoreBytes(const CDbValue& value, const CODBCFieldInfo& column);

    CBinding m_Binding;
    std::int64_t m_Length = 0;
    union
    {
        std::int64_t m_Integer = 0;
        double m_Real;
        float m_Single;
        unsigned char m_Bit;
        TIMESTAMP_STRUCT m_Date;
    };
    std::string m_Bytes;
};

} // namespace utility
