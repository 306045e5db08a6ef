#pragma once

#include "files/backup/BackupFiles.h"

#include "support/PrintText.h"
#include "support/SettingsSandbox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace utility
{

/// A design "board.pcb" in a folder of its own, with settings that nobody has touched.
class CBackupFixture : public testing::Test
{
protected:
    static constexpr char DESIGN_BYTES[] = "the design";

    /// A file whose age is so many minutes; its content is its name.
    CString MakeCopy(const CString& name, int minutesOld) const
    {
        const CString path = m_Folder.MakeFile(name, NativeText(name));
        SetAge(name, minutesOld);
        return path;
    }

    void SetAge(const CString& name, int minutesOld) const
    {
        using namespace std::chrono;
        static const auto now = floor<seconds>(std::filesystem::file_time_type::clock::now());
        std::filesystem::last_write_time(m_Folder.GetNativePath() / NativeText(name),
                                         now - minutes(minutesOld));
    }

    CSettingsSandbox m_Settings;
    CTemporaryFolder m_Folder;
    CString m_Design = m_Folder.MakeFile(u"board.pcb", DESIGN_BYTES);

private:
    static std::string NativeText(const CString& text)
    {
        std::string bytes;
        for (const char16_t unit : text.View())
            bytes += unit == u'\\' ? '/' : static_cast<char>(unit); // the tests' names are ASCII
        return bytes;
    }
};

} // namespace utility
