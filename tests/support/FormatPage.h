#pragma once

#include <string>

namespace utility
{

/// The bytes of a listing in a page of docs/formats, such as
///
///     28 43 6F 6D 70 6F 6E 65  6E 74 0D 0A 20 20 28 4E  |(Component..  (N|
///
/// the first being number 0. Throws if there is none, or if the text beside the bytes is not what
/// they are.
std::string ReadByteListing(const std::string& page, int number = 0);

} // namespace utility
