#include "support/TemporaryFolder.h"

#include "platform/base/Encoding.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <stdlib.h>
#include <system_error>

namespace utility
{

namespace fs = std::filesystem;

CTemporaryFolder::CTemporaryFolder()
{
    std::string name = (fs::temp_directory_path() / "utility-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(), name);
    m_Folder = name;
}

CTemporaryFolder::~CTemporaryFolder()
{
    // A test may have taken its folders' write permission away.
    std::error_code ignored;
    for (fs::recursive_directory_iterator entry(m_Folder, ignored), none; entry != none;
         entry.increment(ignored))
    {
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored))
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::remove_all(m_Folder, ignored);
}

CString CTemporaryFolder::GetPath() const
{
    CString path = FromUtf8(m_Folder.string());
    path.Replace(u'/', u'\\');
    return path;
}

CString CTemporaryFolder::PathOf(const CString& name) const
{
    return GetPath() + u"\\" + name;
}

fs::path CTemporaryFolder::NativeOf(const CString& name) const
{
    std::string native = ToUtf8(name.View());
    std::replace(native.begin(), native.end(), '\\', '/');
    return m_Folder / native;
}

CString CTemporaryFolder::MakeFile(const CString& name, std::string_view bytes) const
{
    const fs::path native = NativeOf(name);
    fs::create_directories(native.parent_path());
    std::ofstream file(native, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + native.string());
    return PathOf(name);
}

CString CTemporaryFolder::MakeFolder(const CString& name) const
{
    fs::create_directories(NativeOf(name));
    return PathOf(name);
}

std::string CTemporaryFolder::Read(const CString& name) const
{
    const fs::path native = NativeOf(name);
    std::ifstream file(native, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + native.string());
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

bool CTemporaryFolder::Exists(const CString& name) const
{
    return fs::exists(fs::symlink_status(NativeOf(name)));
}

std::vector<std::string> CTemporaryFolder::List() const
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_Folder))
    {
        const std::string name = entry.path().lexically_relative(m_Folder).string();
        names.push_back(entry.symlink_status().type() == fs::file_type::directory ? name + "/"
                                                                                  : name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace utility
