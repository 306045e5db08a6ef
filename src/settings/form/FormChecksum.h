#pragma once

#include <cstdint>
#include <string_view>

namespace utility
{

/// The running sum of a region of form text, the same on the writer's and the reader's side.
///
/// Units above 31 count, so blanks do and line ends and tabs do not; the sum stays below 348721.
class CFormChecksum
{
public:
    void Start()
    {
        m_Sum = 0;
        m_On = true;
    }
    void Stop() { m_On = false; }
    bool IsOn() const { return m_On; }
    std::int32_t GetSum() const { return m_Sum; }

    void Add(std::u16string_view text)
    {
        if (!m_On)
            return;
        for (const char16_t unit : text)
            if (unit > 31)
                m_Sum = (m_Sum + unit) % MODULUS;
    }

private:
    static constexpr std::int32_t MODULUS = 348721; // agreed between all programs of the suite

    bool m_On = false;
    std::int32_t m_Sum = 0;
};

} // namespace utility
