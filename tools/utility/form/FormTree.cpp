#include "utility/form/FormTree.h"

#include "settings/form/FormItem.h"

#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr UINT READ_AS_UTF8 = 0x4000000; // whatever the locale's page is

// What a walk over the forms tells.
class IFormVisitor
{
public:
    virtual ~IFormVisitor() = default;
    virtual void Enter(const CString& name) = 0;
    virtual void Value(const CString& text) = 0;
    virtual void Leave() = 0;
};

class CJsonVisitor : public IFormVisitor
{
public:
    CJsonVisitor() { m_Json.BeginArray(); }
    ~CJsonVisitor() override
    {
        m_Json.EndArray();
        m_Json.Flush();
        PrintLine(CString());
    }

    void Enter(const CString& name) override
    {
        m_Json.BeginObject();
        m_Json.Field(u"name", name);
        m_Json.Key(u"items");
        m_Json.BeginArray();
    }
    void Value(const CString& text) override { m_Json.Text(text); }
    void Leave() override
    {
        m_Json.EndArray();
        m_Json.EndObject();
        m_Json.Flush();
    }

private:
    CJsonWriter m_Json;
};

class CLineVisitor : public IFormVisitor
{
public:
    ~CLineVisitor() override { EndLine(); }

    void Enter(const CString& name) override
    {
        EndLine();
        m_Line = CString(u' ', 2 * m_Level++) + name;
        m_Open = true;
    }
    void Value(const CString& text) override
    {
        if (!m_Open)
            m_Line = CString(u' ', 2 * m_Level - 2);
        m_Line += u"  " + text;
        m_Open = true;
    }
    void Leave() override
    {
        EndLine();
        --m_Level;
    }

private:
    void EndLine()
    {
        if (m_Open)
            PrintLine(m_Line);
        m_Open = false;
    }

    CString m_Line;
    bool m_Open = false;
    int m_Level = 0;
};

// Values and children in their order, with a stack of our own: a file decides how deep it goes.
void WalkForms(CFormImportReader& reader, IFormVisitor& visitor)
{
    std::vector<CFormItem*> open;
    CFormItem root(&reader);
    for (;;)
    {
        CFormItem& item = open.empty() ? root : *open.back();
        CString text;
        while (item.Read(text))
            if (!open.empty())
                visitor.Value(text);
        if (CFormItem* child = item.OpenNext())
        {
            visitor.Enter(child->Name());
            open.push_back(child);
            continue;
        }
        if (open.empty())
            return;
        open.back()->End();
        open.pop_back();
        visitor.Leave();
    }
}

} // namespace

bool PrintFormTree(const CString& path, bool json)
{
    CFormImportReader reader;
    reader.AddFlags(READ_AS_UTF8);
    if (!reader.Open(path))
        return false;
    const std::unique_ptr<IFormVisitor> visitor =
        json ? std::unique_ptr<IFormVisitor>(new CJsonVisitor)
             : std::unique_ptr<IFormVisitor>(new CLineVisitor);
    WalkForms(reader, *visitor);
    return true;
}

} // namespace utility
