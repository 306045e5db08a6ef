#include "files/SafeFile.h"
#include "frame/AppError.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/NativePath.h"

#include "utility/command/CommandTable.h"
#include "utility/form/FormLayout.h"
#include "utility/form/FormScanner.h"
#include "utility/form/FormTree.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

// Tells why a file cannot be read or written.
int FailOnFile(const CString& path)
{
    PrintError(CString(NativePath(path)) + u": " + CAppError::GetLastErrorString());
    return RESULT_FAILURE;
}

// Tells the first fault of a file, or why it cannot be read; true if it is sound.
bool IsSound(const CString& path, CFormScanner& scanner)
{
    if (ScanFormFile(path, scanner))
        return true;
    if (scanner.GetFault())
        PrintError(DescribeFault(path, *scanner.GetFault()));
    else
        FailOnFile(path);
    return false;
}

int RunCheck(const CCommandCall& call)
{
    int result = RESULT_OK;
    for (const CString& path : call.GetArguments())
    {
        CFormScanner scanner;
        if (!IsSound(path, scanner))
        {
            result = RESULT_FAILURE;
            continue;
        }
        CString line;
        line.Format(u"%s: %I64d forms", NativePath(path),
                    static_cast<std::int64_t>(scanner.GetFormCount()));
        PrintLine(line);
    }
    return result;
}

int RunRead(const CCommandCall& call)
{
    for (const CString& path : call.GetArguments())
        if (!PrintFormTree(path, call.WantsJson()))
            return FailOnFile(path);
    return RESULT_OK;
}

std::string ReadWhole(const CString& path)
{
    CFile file(path, CFile::modeRead | CFile::shareDenyNone);
    std::string bytes(file.GetLength(), '\0');
    bytes.resize(file.Read(bytes.data(), static_cast<UINT>(bytes.size())));
    return bytes;
}

int RunFormat(const CCommandCall& call)
{
    const CString path = call.GetArgument(0);
    CFormScanner scanner;
    if (!IsSound(path, scanner))
        return RESULT_FAILURE;
    try
    {
        const std::string text = ReadWhole(path);
        const CString target = call.Has("in-place") ? path : call.Get("output");
        if (target.IsEmpty())
            PrintBytes(LayOutForms(text, "\n"));
        else if (!CSafeFile::Write(target, LayOutForms(text, "\r\n")))
            return FailOnFile(target);
        return RESULT_OK;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return FailOnFile(path);
    }
}

} // namespace

std::vector<CCommand> FormCommands()
{
    const CCommandArgument files{"FILE", "a file of form text", EArity::Many};
    return {
        {"form",
         "check",
         "Find the first fault of form text",
         "Names file, line and column of the first open or stray bracket, open quote, NUL, "
         "ill-formed UTF-8, line above "
         "16 MB or nesting above 10,000, and ends with 3. Nothing is stored, memory stays "
         "constant.",
         {files},
         {},
         RunCheck},
        {"form",
         "format",
         "Lay form text out anew",
         "Each form on its own line, two blanks a level; files get CR LF, the output LF. Tokens "
         "stay as they stand. A file with a "
         "fault is refused.",
         {{"FILE", "a file of form text"}},
         {{"in-place", "", "replace the file as a whole"},
          {"output", "FILE", "write here instead of the output"}},
         RunFormat},
        {"form",
         "read",
         "Show form text as a tree",
         "Reads as the library's reader does, which stays silent about damage: see 'form check'. "
         "With --json a form is "
         "{\"name\": ..., \"items\": [...]}, its values being texts and its children forms.",
         {files},
         {},
         RunRead},
    };
}

} // namespace utility
