#pragma once

#include "platform/base/String.h"
#include "platform/base/object/Object.h"

namespace utility
{

/// One key of a tree node with its value as text.
class SECPersTreeNodeKeyValuePair : public CObject
{
public:
    SECPersTreeNodeKeyValuePair(const CString& key, const CString& value)
        : m_Key(key),
          m_Value(value)
    {
    }

    const CString& GetKey() const { return m_Key; }
    const CString& GetValue() const { return m_Value; }
    void SetValue(const CString& value) { m_Value = value; }

private:
    CString m_Key;
    CString m_Value;
};

} // namespace utility
