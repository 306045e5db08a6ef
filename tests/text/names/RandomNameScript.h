#pragma once

#include "text/names/LiteralNameRange.h"

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// Draws short scripts of operations on one range, with few stems and small numbers, so that names
/// meet, spans touch and texts are odd now and then. The same scripts in each run.
class CRandomNameScript
{
public:
    enum class EStep
    {
        Set,
        Add,
        Delete,
        Contains
    };
    struct CStep
    {
        EStep m_Step;
        std::u16string m_Text;
    };

    void Next();

    const CNameRangeRules& GetRules() const { return m_Rules; }
    const std::vector<CStep>& GetSteps() const { return m_Steps; }

private:
    std::size_t Pick(std::size_t count) { return m_Random() % count; }
    bool Chance(std::size_t percent) { return Pick(100) < percent; }
    template <std::size_t N>
    const char16_t* PickOf(const char16_t* const (&texts)[N])
    {
        return texts[Pick(N)];
    }
    std::u16string MakeNumber(bool large);
    std::u16string MakeName();
    std::u16string MakeSpan();
    std::u16string MakeText();
    void Spoil(std::u16string& text);

    std::mt19937 m_Random{20260112};
    CNameRangeRules m_Rules;
    std::vector<CStep> m_Steps;
};

} // namespace utility
