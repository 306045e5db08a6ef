#include "settings/form/FormBinary.h"

#include "platform/base/CharacterClass.h"

namespace utility
{

CString FormBinaryLine(const BYTE* bytes, UINT count)
{
    static constexpr char16_t digits[] = u"0123456789ABCDEF";
    CString line;
    line.Preallocate(static_cast<int>(count) * 3);
    for (UINT i = 0; i < count; ++i)
    {
        if (i > 0)
            line += u' ';
        line += digits[bytes[i] >> 4];
        line += digits[bytes[i] & 15];
    }
    return line;
}

BYTE FormBinaryByte(std::u16string_view token)
{
    if (token.size() < 2)
        return 0;
    const auto digit = [](char16_t unit)
    {
        return std::max(HexDigitValue(unit), 0);
    };
    return static_cast<BYTE>(digit(token[0]) << 4 | digit(token[1]));
}

} // namespace utility
