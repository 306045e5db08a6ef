#include "utility/command/WordHint.h"

#include <algorithm>
#include <numeric>

namespace utility
{

namespace
{

/// Units to insert, delete or change to make one word of the other.
std::size_t EditDistance(const std::string& left, const std::string& right)
{
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= left.size(); i++)
    {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); j++)
        {
            const std::size_t changed = diagonal + (left[i - 1] == right[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
        }
    }
    return row.back();
}

} // namespace

std::string NearestWord(const std::string& word, const std::vector<std::string>& known)
{
    constexpr std::size_t MAX_WORD = 64; // longer ones are no slips of the hand
    if (word.size() > MAX_WORD)
        return {};

    std::string nearest;
    std::size_t least = std::max<std::size_t>(2, word.size() / 2); // this far is another word
    for (const std::string& candidate : known)
    {
        const std::size_t distance = EditDistance(word, candidate);
        if (distance < least)
        {
            least = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

} // namespace utility
