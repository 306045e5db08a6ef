#include "utility/xml/XmlChange.h"

#include "platform/system/file/NativePath.h"

#include "utility/command/Command.h"
#include "utility/output/ToolOutput.h"
#include "utility/xml/XmlCheck.h"
#include "utility/xml/XmlFile.h"

namespace utility
{

CXmlChange::CXmlChange(const CCommandCall& call, std::size_t argument)
    : m_Path(XmlFileArgument(call, argument)),
      m_IsForced(call.Has("force"))
{
    PrepareXml(call, m_Settings);
}

bool CXmlChange::IsThere() const
{
    CFileStamp stamp;
    return GetFileStamp(m_Path, stamp);
}

bool CXmlChange::Load()
{
    if (!m_Settings.LoadXML(m_Path))
        return FailOnXmlFile(m_Path, u"the file cannot be read");
    return m_IsForced || WouldLoseNothing();
}

bool CXmlChange::LoadOrMake()
{
    m_IsMade = !IsThere();
    return m_IsMade || Load();
}

/// The file is read a second time for this; whoever changes it in between is met by `Save`.
bool CXmlChange::WouldLoseNothing() const
{
    std::vector<CString> lines;
    if (!ReadXmlLines(m_Path, lines))
        return FailOnXmlFile(m_Path, u"the file cannot be read");
    const CXmlLook look = LookThroughXml(lines);
    if (!look.m_Faults.empty())
    {
        PrintError(DescribeXmlFault(m_Path, look.m_Faults.front()) +
                   u"; nothing is changed without --force");
        return false;
    }
    return !look.m_HasComments ||
           FailOnXmlFile(m_Path, u"saving drops its comments; nothing is changed without --force");
}

bool CXmlChange::Save()
{
    const bool isChanged = m_IsMade ? IsThere() : m_Settings.IsFileChanged();
    if (isChanged && !m_IsForced)
    {
        m_Settings.Reset(true); // else the object's end would save what was set
        return FailOnXmlFile(m_Path,
                             u"somebody else changed the file meanwhile; nothing is changed "
                             u"without --force");
    }
    return m_Settings.SaveXML(m_Path) || FailOnXmlFile(m_Path, u"the file cannot be written");
}

} // namespace utility
