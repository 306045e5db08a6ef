#include "files/SafeFile.h"
#include "files/encoded/StdioFileEx.h"
#include "frame/AppError.h"
#include "platform/base/Encoding.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"

#include "utility/command/CommandTable.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr int INTERRUPT_STEP = 1000; // lines between two looks for Ctrl-C

struct CNamedMode
{
    const char* m_Name;
    UINT m_Flags;
};
constexpr CNamedMode READ_MODES[] = {{"auto", 0},
                                     {"utf8", CStdioFileEx::modeReadUTF8},
                                     {"utf16", CStdioFileEx::modeWriteUnicode},
                                     {"rtf", CStdioFileEx::modeRtf}};
constexpr CNamedMode WRITE_MODES[] = {
    {"utf8", CStdioFileEx::modeReadUTF8},      {"utf8-mark", CStdioFileEx::modeWriteUtf8},
    {"utf16", CStdioFileEx::modeWriteUnicode}, {"page", 0},
    {"ascii", CStdioFileEx::modeAscii},        {"rtf", CStdioFileEx::modeRtf}};

/// Names are held to the list by the command line.
UINT FlagsOf(std::span<const CNamedMode> modes, const CString& name)
{
    for (const CNamedMode& mode : modes)
    {
        if (name == FromUtf8(mode.m_Name))
            return mode.m_Flags;
    }
    return 0;
}

std::vector<const char*> NamesOf(std::span<const CNamedMode> modes)
{
    std::vector<const char*> names;
    for (const CNamedMode& mode : modes)
        names.push_back(mode.m_Name);
    return names;
}

CString PathOf(const CString& argument)
{
    return argument == u"-" ? CString(u"\\dev\\stdin") : argument;
}

int TellFailure(const CString& path, const CString& reason)
{
    PrintError(path + u": " + reason);
    return RESULT_FAILURE;
}

/// The page that counts as the code page while one command runs.
class CPageScope
{
public:
    explicit CPageScope(const CCommandCall& call)
    {
        if (call.Has("page"))
            SetACP(static_cast<UINT>(call.GetNumber("page", 0)));
    }
    ~CPageScope() { SetACP(0); }
    CPageScope(const CPageScope&) = delete;
    CPageScope& operator=(const CPageScope&) = delete;
};

bool OpenForReading(CStdioFileEx& file, const CCommandCall& call)
{
    const CString path = PathOf(call.GetArgument(0));
    if (file.Open(path, CFile::modeRead | CFile::shareDenyNone |
                            FlagsOf(READ_MODES, call.Get("from", u"auto"))))
        return true;
    TellFailure(call.GetArgument(0), CAppError::GetLastErrorString());
    return false;
}

void PrintAsJson(CStdioFileEx& file)
{
    CJsonWriter json;
    json.BeginArray();
    for (CString line; !IsInterrupted() && file.ReadString(line);)
    {
        json.Text(line);
        json.Flush();
    }
    json.EndArray();
    json.Flush();
    PrintLine(u"");
}

int Read(const CCommandCall& call)
{
    const CPageScope page(call);
    CStdioFileEx file;
    if (!OpenForReading(file, call))
        return RESULT_FAILURE;
    if (call.WantsJson())
    {
        PrintAsJson(file);
        return RESULT_OK;
    }
    for (CString line; !IsInterrupted() && file.ReadString(line);)
        PrintLine(line);
    return RESULT_OK;
}

/// False if the user broke it off.
bool CopyLines(CStdioFileEx& from, CStdioFileEx& to)
{
    CString line;
    for (int count = 1; from.ReadString(line); ++count)
    {
        to.WriteString(line + u"\n");
        if (count % INTERRUPT_STEP == 0 && IsInterrupted())
            return false;
    }
    return true;
}

int Convert(const CCommandCall& call)
{
    const CPageScope page(call);
    const CString target = call.GetArgument(1);
    CStdioFileEx from;
    if (!OpenForReading(from, call))
        return RESULT_FAILURE;
    CSafeFile safe;
    if (!safe.Begin(target))
        return TellFailure(target, CAppError::GetLastErrorString());

    CStdioFileEx to(safe.GetWrittenPath(),
                    CFile::modeWrite | FlagsOf(WRITE_MODES, call.Get("to", u"utf8")));
    if (!CopyLines(from, to))
        return TellFailure(target, u"left as it was");
    to.Close();
    from.Close();
    return safe.Commit() ? RESULT_OK : TellFailure(target, CAppError::GetLastErrorString());
}

/// What fails while lines are moved comes as an exception.
template <int (*Run)(const CCommandCall& call)>
int Guarded(const CCommandCall& call)
{
    try
    {
        return Run(call);
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return TellFailure(exception->m_strFileName, exception->GetErrorText());
    }
}

CCommandOption FromOption()
{
    return {"from", "ENCODING", "what the file is in; auto by its first bytes, else the code page",
            false, NamesOf(READ_MODES)};
}

CCommandOption PageOption()
{
    return NumberOption("page", "NUMBER",
                        "the code page, such as 1252; that of the locale if it is not given",
                        {0, 65535});
}

} // namespace

std::vector<CCommand> TextCommands()
{
    return {
        {"text",
         "read",
         "Print a text file of any encoding as UTF-8",
         "A mark at the start tells the encoding. \"-\" reads the standard input.\n"
         "\n"
         "    utility text read report.txt --page 1252",
         {{"FILE", "the text file"}},
         {FromOption(), PageOption()},
         Guarded<Read>},
        {"text",
         "convert",
         "Write a text file in another encoding",
         "Lines end in CR LF afterwards. The target is replaced as a whole, or left as it was; it "
         "may be the\n"
         "source. What the target's encoding lacks becomes \"?\", in ascii and rtf an escape.\n"
         "\n"
         "    utility text convert old.txt new.txt --page 1252 --to utf16",
         {{"FILE", "the text file"}, {"TARGET", "the file to be made"}},
         {FromOption(),
          {"to", "ENCODING", "what to write; utf8 if not given", false, NamesOf(WRITE_MODES)},
          PageOption()},
         Guarded<Convert>},
    };
}

} // namespace utility
