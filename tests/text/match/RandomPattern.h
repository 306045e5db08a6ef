#pragma once

#include <cstddef>
#include <random>
#include <string>

namespace utility
{

/// Draws patterns of all items, each with a text that has a fair chance to match it. The same pairs
/// in each run.
class CRandomPattern
{
public:
    void Next();

    const std::u16string& GetPattern() const { return m_Pattern; }
    const std::u16string& GetText() const { return m_Text; }
    bool IsCaseSensitive() const { return m_CaseSensitive; }

private:
    std::size_t Pick(std::size_t count) { return m_Random() % count; }
    bool Chance(std::size_t percent) { return Pick(100) < percent; }
    char16_t PickUnit(std::u16string_view units) { return units[Pick(units.size())]; }
    void AddToText(std::u16string_view units, std::size_t least, std::size_t most);
    void AddPieces(int depth, std::size_t most);
    void AddPiece(int depth);
    void AddPlain();
    void AddItem();
    void AddRange();
    void AddGroup(int depth);
    void AddNegation(int depth);
    void AddStray();
    void SpoilText();

    std::mt19937 m_Random{20260105};
    std::u16string m_Pattern;
    std::u16string m_Text;
    bool m_CaseSensitive = false;
};

} // namespace utility
