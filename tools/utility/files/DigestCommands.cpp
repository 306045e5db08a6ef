#include "files/MD5Checksum.h"
#include "files/SafeFile.h"
#include "files/XXTea.h"
#include "frame/AppError.h"
#include "platform/base/Encoding.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/file/StdioFile.h"

#include "utility/command/CommandTable.h"
#include "utility/files/Md5List.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"

#include <optional>

namespace utility
{

namespace
{

constexpr char16_t STANDARD_INPUT[] = u"-";
constexpr std::size_t READ_SIZE = 1U << 20;
constexpr std::uint64_t CIPHER_LIMIT = 1U << 30; // bytes: the cipher works on all of them at once

CString PathOf(const CString& argument)
{
    return argument == STANDARD_INPUT ? CString(u"\\dev\\stdin") : argument;
}

int TellFailure(const CString& path, const CString& reason)
{
    PrintError(NativePath(path) + u": " + reason);
    return RESULT_FAILURE;
}

/// None, and the reason is told, if the file cannot be read.
std::optional<CString> DigestOf(const CString& path)
{
    try
    {
        return CMD5Checksum::GetMD5(PathOf(path));
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        TellFailure(path, exception->GetErrorText());
        return std::nullopt;
    }
}

/// The files that a call names: the standard input if there is none.
std::vector<CString> FilesOf(const CCommandCall& call)
{
    return call.GetArguments().empty() ? std::vector<CString>{STANDARD_INPUT} : call.GetArguments();
}

int PrintDigests(const CCommandCall& call)
{
    CJsonWriter json;
    json.BeginArray();
    int result = RESULT_OK;
    for (const CString& path : FilesOf(call))
    {
        const std::optional<CString> digest = DigestOf(path);
        if (!digest)
        {
            result = RESULT_FAILURE;
            continue;
        }
        if (!call.WantsJson())
        {
            PrintBytes(FormatMd5Line({*digest, ToUtf8(NativePath(path).View())}) + "\n");
            continue;
        }
        json.BeginObject();
        json.Field(u"file", NativePath(path));
        json.Field(u"md5", *digest);
        json.EndObject();
        json.Flush();
    }
    json.EndArray();
    if (call.WantsJson())
        PrintBytes(json.GetText() + "\n");
    return result;
}

/// Compares the files of digest lists with their digests now.
class CListCheck
{
public:
    explicit CListCheck(bool wantsJson) : m_WantsJson(wantsJson) { m_Json.BeginArray(); }

    void CheckList(const CString& path)
    {
        CStdioFile list(PathOf(path), CFile::modeRead | CFile::shareDenyNone | CFile::typeText);
        CMd5Line parsed;
        int taken = 0;
        for (CString line; !IsInterrupted() && list.ReadString(line);)
        {
            const std::string bytes = ToUtf8(line.View());
            if (bytes.empty() || bytes.front() == '#')
                continue;
            if (!ParseMd5Line(bytes, parsed))
            {
                Worsen(TellFailure(path, u"'" + line + u"' is no line of a digest list"));
                continue;
            }
            CheckFile(parsed);
            ++taken;
        }
        if (taken == 0)
            Worsen(TellFailure(path, u"it holds no digest"));
    }

    int Finish()
    {
        m_Json.EndArray();
        if (m_WantsJson)
            PrintBytes(m_Json.GetText() + "\n");
        return IsInterrupted() ? RESULT_FAILURE : m_Result;
    }

private:
    void CheckFile(const CMd5Line& line)
    {
        const std::optional<CString> digest =
            DigestOf(line.m_Name == "-" ? CString(STANDARD_INPUT) : ClassicPath(line.m_Name));
        const bool isEqual = digest && digest->CompareNoCase(line.m_Digest) == 0;
        Worsen(isEqual ? RESULT_OK : digest ? RESULT_NO : RESULT_FAILURE);
        const CString name = FromUtf8(line.m_Name);
        if (!m_WantsJson)
        {
            PrintLine(name + (isEqual ? u": OK" : digest ? u": FAILED" : u": FAILED open or read"));
            return;
        }
        m_Json.BeginObject();
        m_Json.Field(u"file", name);
        m_Json.Field(u"result", isEqual ? u"ok" : digest ? u"differs" : u"unreadable");
        m_Json.EndObject();
        m_Json.Flush();
    }

    void Worsen(int result) { m_Result = std::max(m_Result, result); }

    CJsonWriter m_Json;
    bool m_WantsJson;
    int m_Result = RESULT_OK;
};

int RunMd5(const CCommandCall& call)
{
    if (!call.Has("check"))
        return PrintDigests(call);
    CListCheck check(call.WantsJson());
    int result = RESULT_OK;
    for (const CString& path : FilesOf(call))
    {
        try
        {
            check.CheckList(path);
        }
        catch (CFileException* exception)
        {
            const CExceptionGuard guard(exception);
            result = TellFailure(path, exception->GetErrorText());
        }
    }
    return std::max(result, check.Finish());
}

/// All bytes of a file; raises CFileException.
std::string ReadWhole(const CString& path, std::uint64_t limit)
{
    CFile file(PathOf(path), CFile::modeRead | CFile::shareDenyNone);
    std::string bytes;
    std::string piece(READ_SIZE, '\0');
    while (bytes.size() <= limit)
    {
        const UINT count = file.Read(piece.data(), static_cast<UINT>(piece.size()));
        if (count == 0)
            break;
        bytes.append(piece, 0, count);
    }
    return bytes;
}

/// None, and the reason is told, unless the file holds a key and nothing else.
std::optional<CXXTeaKey> ReadKey(const CString& path)
{
    const std::string bytes = ReadWhole(path, XXTEA_KEY_SIZE);
    CXXTeaKey key = {};
    if (bytes.size() != key.size())
    {
        TellFailure(path, u"a key file holds 16 bytes exactly");
        return std::nullopt;
    }
    std::copy(bytes.begin(), bytes.end(), key.begin());
    return key;
}

int WriteResult(const CCommandCall& call, const std::string& bytes)
{
    if (call.GetArguments().size() < 2)
        PrintBytes(bytes);
    else if (!CSafeFile::Write(call.GetArgument(1), bytes))
        return TellFailure(call.GetArgument(1), CAppError::GetLastErrorString());
    return RESULT_OK;
}

using CCipher = std::string (*)(std::string_view bytes, const CXXTeaKey& key);

template <CCipher Cipher>
int RunCipher(const CCommandCall& call)
{
    if (!call.Has("key-file"))
    {
        PrintError(u"--key-file is missing: the file that holds the key");
        return RESULT_USAGE;
    }
    CString path = call.Get("key-file");
    try
    {
        const std::optional<CXXTeaKey> key = ReadKey(path);
        if (!key)
            return RESULT_FAILURE;
        path = call.GetArgument(0);
        const std::string bytes = ReadWhole(path, CIPHER_LIMIT);
        if (bytes.size() > CIPHER_LIMIT)
            return TellFailure(path, u"more than 1 GiB");
        const std::string result = Cipher(bytes, *key);
        if (result.empty() && !bytes.empty())
            return TellFailure(path, u"the key does not fit, or the data is damaged");
        return WriteResult(call, result);
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return TellFailure(path, exception->GetErrorText());
    }
}

CCommand CipherCommand(const char* verb, const char* summary, int (*run)(const CCommandCall& call))
{
    return {"xxtea",
            verb,
            summary,
            "The XXTEA cipher over whole files, with their length in the last word. For old data, "
            "not for secrecy: the\n"
            "cipher is broken, nothing tells whether data was changed, and equal files under one "
            "key look equal.\n"
            "The key is never given on the command line, where others could see it.\n"
            "\n"
            "    head -c 16 /dev/urandom > key; utility xxtea encrypt old.dat new.dat --key-file "
            "key",
            {{"FILE", "the file, or - for the standard input"},
             {"TARGET", "the file to be made; the standard output without it", EArity::Optional}},
            {{"key-file", "K", "the file with the 16 bytes of the key"}},
            run};
}

} // namespace

std::vector<CCommand> Md5Commands()
{
    return {{"md5",
             "",
             "Print or check the MD5 digests of files",
             "Prints, and with --check reads, lists as md5sum does: digest, two blanks, name. MD5 "
             "tells whether a file is\n"
             "still the same; it does not withstand somebody who changes files on purpose.\n"
             "\n"
             "    utility md5 *.zip > list; utility md5 --check list",
             {{"FILE", "a file, or a list; the standard input without one", EArity::Any}},
             {{"check", "",
               "The files are lists: compare what they name, ending with 1 if it differs"}},
             RunMd5}};
}

std::vector<CCommand> XXTeaCommands()
{
    return {CipherCommand("encrypt", "Encipher a file for programs that read old data",
                          RunCipher<EncryptXXTea>),
            CipherCommand("decrypt", "Decipher a file of old data", RunCipher<DecryptXXTea>)};
}

} // namespace utility
