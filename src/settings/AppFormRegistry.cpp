#include "settings/AppFormRegistry.h"

namespace utility
{

CAppFormRegistry::CAppFormRegistry(const CString& tail) : CAppRegistry(tail) {}

CAppFormRegistry::CAppFormRegistry(const CString& tail, HKEY root) : CAppRegistry(tail, root) {}

bool CAppFormRegistry::OpenForm(const CString& name)
{
    return WriteString(u"(" + name);
}

bool CAppFormRegistry::CloseForm()
{
    return WriteString(u")");
}

bool CAppFormRegistry::WriteForm(const CString& name, const CString& value)
{
    return WriteString(name + u"=" + value);
}

bool CAppFormRegistry::WriteForm(const CString& name, int value)
{
    CString line;
    line.Format(u"%s=%d", name, value);
    return WriteString(line);
}

bool CAppFormRegistry::WriteForm(const CString& name, double value)
{
    CString line;
    line.Format(u"%s=%f", name, value);
    return WriteString(line);
}

bool CAppFormRegistry::WriteString(const CString& text)
{
    CString name;
    NextRegLine(name);
    return SetValue(name, text);
}

void CAppFormRegistry::NextRegLine(CString& name)
{
    name.Format(u"%05d", m_LineNumber++);
}

bool CAppFormRegistry::GetFormNext(EFormType& type, CString& name, CString& value)
{
    name.Empty();
    value.Empty();
    CString line;
    CString text;
    NextRegLine(line);
    if (!GetValue(line, text))
        return false;

    const std::u16string_view view = text.View();
    if (view.starts_with(u'('))
    {
        type = EFormType::FormStart;
        name = view.substr(1);
    }
    else if (view.starts_with(u')'))
        type = EFormType::FormEnd;
    else
    {
        type = EFormType::Value;
        const int equals = text.Find(u'=');
        name = equals < 0 ? text : text.Left(equals);
        value = equals < 0 ? CString() : text.Mid(equals + 1);
    }
    return true;
}

} // namespace utility
