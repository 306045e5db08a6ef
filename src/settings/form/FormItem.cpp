#include "settings/form/FormItem.h"

#include "platform/base/CaseFold.h"
#include "settings/form/FormQuoting.h"

namespace utility
{

CFormItem::CFormItem(CFormImportReader* reader) : CFormItem(reader, CString()) {}

CFormItem::CFormItem(CFormImportReader* reader, CString name)
    : m_Name(std::move(name)),
      m_Level(reader->GetLevel()),
      m_Reader(reader)
{
}

CFormItem::~CFormItem() = default;

bool operator==(const CFormItem& left, const CString& name)
{
    return EqualNoCase(left.m_Name.View(), name.View());
}

CFormItem* CFormItem::Open(const CString& name, int limit)
{
    if (!m_Reader || !m_Reader->FindForm(name, limit))
        return nullptr;
    return new CFormItem(m_Reader, name);
}

CFormItem* CFormItem::OpenNext()
{
    CString name = m_Reader ? m_Reader->NextForm() : CString();
    return name.IsEmpty() ? nullptr : new CFormItem(m_Reader, std::move(name));
}

void CFormItem::Close()
{
    if (m_Closed || !m_Reader)
        return;
    m_Closed = true;
    m_Reader->CloseToLevel(m_Level);
}

void CFormItem::End()
{
    Close();
    delete this;
}

void CFormItem::MarkPosition()
{
    if (m_Reader)
        m_Reader->MarkPosition();
}

void CFormItem::ReturnToMark()
{
    if (m_Reader)
        m_Reader->ReturnToMark();
}

bool CFormItem::Read()
{
    CString dropped;
    return Read(dropped);
}

bool CFormItem::Read(unsigned char*& data, unsigned int& size)
{
    return m_Reader && m_Reader->Read(data, size);
}

void CFormItem::RestOfLine(CString& text) const
{
    if (m_Reader)
        m_Reader->RestOfLine(text);
}

void CFormItem::StartChecksum()
{
    if (m_Reader)
        m_Reader->StartChecksum();
}

void CFormItem::StopChecksum()
{
    if (m_Reader)
        m_Reader->StopChecksum();
}

bool CFormItem::ReadBool(bool& value)
{
    int number = 0;
    const bool read = Read(number);
    value = number != 0;
    return read;
}

bool CFormItem::ReadBinary(unsigned char*& data, unsigned int& size)
{
    data = nullptr;
    size = 0;
    bool found = false;
    while (CFormItem* child = OpenNext())
    {
        bool good = true;
        if (!found && *child == u"binary")
        {
            good = m_Reader->Read(data, size);
            found = true;
        }
        child->End();
        if (!good)
            return false;
    }
    return true;
}

bool CFormItem::ReadMultiLine(CString& text)
{
    if (!Read(text))
        return false;
    text = ResolveFormLineEnds(text);
    return true;
}

} // namespace utility
