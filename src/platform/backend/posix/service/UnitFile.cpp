#include "platform/backend/posix/service/UnitFile.h"

#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/file/Descriptor.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <unistd.h>

namespace utility
{

namespace
{

namespace fs = std::filesystem;

// A service in /etc could not be disabled: the manager's mark for it would have to stand there too.
constexpr char UNIT_FOLDER[] = "/usr/local/lib/systemd/system";
constexpr char UNIT_FOLDERS_VARIABLE[] = "SYSTEMD_UNIT_PATH"; // the manager's own, ":" between two

constexpr mode_t UNIT_FILE_MODE = 0644; // nothing in it is secret
constexpr std::string_view SUFFIX = ".service";
constexpr std::size_t LONGEST_NAME = 255;
constexpr std::string_view NAME_SIGNS = ":-_.\\@";
constexpr std::string_view DESCRIPTION = "\nDescription=";

bool IsNameSign(char sign)
{
    const bool isLetter = (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z');
    return isLetter || (sign >= '0' && sign <= '9') || NAME_SIGNS.find(sign) != NAME_SIGNS.npos;
}

fs::path UnitFolder()
{
    const char* variable = std::getenv(UNIT_FOLDERS_VARIABLE);
    const std::string_view folders = variable ? variable : "";
    const std::string_view first = folders.substr(0, folders.find(':'));
    return first.empty() ? fs::path(UNIT_FOLDER) : fs::path(first);
}

/// A percent sign starts a specifier, a control character or a last backslash would break the line.
std::string DescriptionText(const CString& description)
{
    std::string text;
    for (const char sign : ToUtf8(description.View()))
    {
        const bool isControl = (sign >= 0 && sign < ' ') || sign == 0x7F;
        text += sign == '%' ? "%%" : std::string(1, isControl ? ' ' : sign);
    }
    text.erase(text.find_last_not_of(" \\") + 1);
    return text;
}

/// An argument in quotes as the manager undoes them.
std::string QuotedArgument(std::string_view argument)
{
    std::string text = "\"";
    for (const char sign : argument)
    {
        char code[8] = {};
        if (sign == '"' || sign == '\\')
            text += '\\';
        if (sign == '%')
            text += '%';
        std::snprintf(code, sizeof code, "\\x%02x", static_cast<unsigned char>(sign));
        text += sign >= 0 && sign < ' ' ? code : std::string(1, sign);
    }
    return text + "\"";
}

bool WriteAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty())
    {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::fsync(descriptor) == 0;
}

/// Old or new, whole. The exact name counts, unlike for the files of designs.
DWORD ReplaceText(const fs::path& path, const std::string& text)
{
    const std::string written = path.string() + "~"; // no name of a unit
    CDescriptor descriptor(
        ::open(written.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, UNIT_FILE_MODE));
    if (!descriptor)
        return ErrorFromErrno(errno);
    const bool isDone = WriteAll(descriptor.Get(), text) && descriptor.Close() == 0 &&
                        ::rename(written.c_str(), path.c_str()) == 0;
    const DWORD code = isDone ? DWORD{ERROR_SUCCESS} : ErrorFromErrno(errno);
    if (!isDone)
        ::unlink(written.c_str());
    return code;
}

} // namespace

std::string UnitName(const CString& service)
{
    std::string name = ToUtf8(service.View());
    const bool isSound = !name.empty() && std::all_of(name.begin(), name.end(), IsNameSign);
    if (!isSound || name.starts_with('.'))
        return {};
    if (!name.ends_with(SUFFIX))
        name += SUFFIX;
    return name.size() <= LONGEST_NAME ? name : std::string();
}

std::string MakeUnitText(const CString& description, std::span<const std::string> program)
{
    std::string line = "ExecStart=:"; // the colon: "$" in arguments means itself
    for (const std::string& argument : program)
        line += (line.back() == ':' ? "" : " ") + QuotedArgument(argument);
    return "[Unit]" + std::string(DESCRIPTION) + DescriptionText(description) +
           "\n\n[Service]\nType=exec\n" + line + "\n\n[Install]\nWantedBy=multi-user.target\n";
}

DWORD CheckUnitFolder()
{
    fs::path folder = UnitFolder();
    std::error_code ignored;
    while (!fs::exists(folder, ignored) && folder.has_relative_path())
        folder = folder.parent_path(); // it will be made
    return ::access(folder.c_str(), W_OK) == 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
}

DWORD CheckUnitFile(const std::string& name)
{
    std::error_code ignored;
    const bool isOurs = fs::is_regular_file(UnitFolder() / name, ignored);
    return isOurs ? CheckUnitFolder() : DWORD{ERROR_ACCESS_DENIED};
}

DWORD WriteUnitFile(const std::string& name, const std::string& text)
{
    std::error_code error;
    const fs::path folder = UnitFolder();
    fs::create_directories(folder, error);
    return error ? ErrorFromErrno(error.value()) : ReplaceText(folder / name, text);
}

DWORD DeleteUnitFile(const std::string& name)
{
    return ::unlink((UnitFolder() / name).c_str()) == 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
}

DWORD ChangeUnitDescription(const std::string& name, const CString& description)
{
    if (const DWORD code = CheckUnitFile(name))
        return code;
    const fs::path path = UnitFolder() / name;
    std::ifstream file(path);
    std::string text((std::istreambuf_iterator<char>(file)), {});
    const std::size_t start = text.find(DESCRIPTION);
    if (!file || start == std::string::npos)
        return ERROR_GEN_FAILURE; // somebody has edited it
    const std::size_t value = start + DESCRIPTION.size();
    text.replace(value, text.find('\n', value) - value, DescriptionText(description));
    return ReplaceText(path, text);
}

} // namespace utility
