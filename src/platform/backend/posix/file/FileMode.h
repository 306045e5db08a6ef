#pragma once

#include <string>
#include <sys/stat.h>

namespace utility
{

constexpr mode_t MODE_BITS = 07777;
constexpr mode_t WRITE_BITS = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t NEW_FILE_MODE = 0666;   // less the user's mask
constexpr mode_t NEW_FOLDER_MODE = 0777; // likewise

/// No write bit at all, or this user may not write. The first holds for the superuser too: it is a
/// wish of the owner.
bool IsReadOnlyOnDisk(const std::string& diskName, mode_t mode);

/// Gives an open file the mode and owner that another has; false with errno. Where the owner cannot
/// be kept, neither may his group's rights go to another group.
bool GiveModeAndOwner(int descriptor, const struct stat& other);

} // namespace utility
