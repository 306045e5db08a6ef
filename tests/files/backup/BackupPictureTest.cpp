#include "files/FilePath.h"
#include "files/backup/BackupFixture.h"

#include <fstream>
#include <iomanip>
#include <sstream>

using namespace utility;

namespace
{

constexpr int SAVES = 12;
constexpr int COPIES = 3;

class BackupPictureTest : public CBackupFixture
{
protected:
    /// The folder after each save: three lines, by the numbers of the copies.
    std::string Draw(const char* tag, const std::array<const char*, COPIES>& headings)
    {
        std::array<std::ostringstream, COPIES> lines;
        CBackupFiles::SetBackupFilenameTemplate(u"b " + CString(tag));
        CBackupFiles::SetBackupCopyCount(COPIES);
        for (int save = 1; save <= SAVES; ++save)
        {
            CFilePath name;
            EXPECT_TRUE(CBackupFiles::MakeBackupName(name, m_Design, true));
            m_Folder.MakeFile(name.GetFileNameAndExtension(), std::to_string(save));
            SetAge(name.GetFileNameAndExtension(), SAVES - save);
            const std::vector<std::string> copies = CopiesByNumber();
            for (std::size_t i = 0; i < COPIES; ++i)
                lines[i] << std::setw(4) << (i < copies.size() ? copies[i] : "");
        }
        std::string picture;
        for (std::size_t i = 0; i < COPIES; ++i)
        {
            std::ostringstream line;
            const std::string title = i == 0 ? tag : "";
            line << title << std::setw(22 - static_cast<int>(title.size())) << headings[i]
                 << lines[i].str();
            picture += line.str() + "\n";
        }
        return picture;
    }

    std::vector<std::string> CopiesByNumber() const
    {
        std::map<int, std::string> copies;
        for (const std::string& name : m_Folder.List())
        {
            if (name.starts_with("b "))
                copies[std::stoi(name.substr(2))] = m_Folder.Read(CString(name.c_str()));
        }
        std::vector<std::string> contents;
        for (const auto& [number, content] : copies)
            contents.push_back(content);
        return contents;
    }
};

/// The block of a page that is marked as a picture.
std::string PictureOf(const std::filesystem::path& page)
{
    std::ifstream file(page);
    std::string picture;
    bool isInside = false;
    for (std::string line; std::getline(file, line);)
    {
        if (line.starts_with("```"))
            isInside = line == "```picture";
        else if (isInside)
            picture += line + "\n";
    }
    return picture;
}

TEST_F(BackupPictureTest, ThePageShowsWhatTwelveSavesLeave)
{
    std::string drawn = "save                  ";
    std::string rule = "----------------------";
    for (int save = 1; save <= SAVES; ++save)
    {
        std::ostringstream number;
        number << std::setw(4) << save;
        drawn += number.str();
        rule += "  --";
    }
    drawn += "\n" + rule + "\n";
    for (const auto& [tag, headings] :
         {std::pair{"$(Increment)", std::array{"1", "2", "3"}},
          std::pair{"$(Decrement)", std::array{"1", "2", "3"}},
          std::pair{"$(Infinite)", std::array{"lowest", ".", "highest"}}})
    {
        drawn += Draw(tag, headings);
        for (const std::string& name : m_Folder.List())
        {
            if (name.starts_with("b "))
                std::filesystem::remove(m_Folder.GetNativePath() / name);
        }
    }

    const std::filesystem::path root = std::filesystem::path(UTILITY_TEST_DATA) / ".." / "..";
    EXPECT_EQ(PictureOf(root.lexically_normal() / "docs/formats/backup-names.md"), drawn);
}

} // namespace
