#pragma once

#include <string>
#include <vector>

namespace utility
{

/// Cells as parts tables hold them: numbers in every way of writing, with letters that suit and
/// that do not, and no numbers.
///
/// Every number stands before every ending, and then come whole texts that no such pair gives.
inline std::vector<std::u16string> MakeValueTexts()
{
    static const char16_t* const numbers[] = {u"10",  u"4",    u"47",  u"104",  u"0.05",
                                              u"3,3", u"-2.5", u"1e3", u"4.7e3"};
    static const char16_t* const endings[] = {
        u"",  u"k",  u"K",   u"M",  u"m",  u"u",    u"\u00B5", u"n",     u"p",      u"R",
        u"F", u"pF", u" PF", u"mH", u"uh", u"kOhm", u"k7",     u" /16W", u"\u03BC", u"n2F"};
    static const char16_t* const others[] = {u"",
                                             u" ",
                                             u"k",
                                             u"uF",
                                             u"Resistor",
                                             u"\u00C9T\u00C9",
                                             u"_net",
                                             u"n47",
                                             u"R47",
                                             u"4n7",
                                             u"4R7",
                                             u"3. PF",
                                             u"3.",
                                             u"3. ",
                                             u".5",
                                             u"+5",
                                             u"--5",
                                             u"- 5",
                                             u"1N4148",
                                             u"BC547",
                                             u"99999999999999999999",
                                             u"-99999999999999999999k",
                                             u" 4k7 ",
                                             u"4k7 /x",
                                             u"10/0",
                                             u"10 %",
                                             u"10|20",
                                             u"1.2.3",
                                             u"1,2,3",
                                             u"4,7kF",
                                             u"100",
                                             u"\u0664",
                                             u"1\u0664",
                                             u"4\u06647",
                                             u"0x10",
                                             u"1.5e400",
                                             u"2n2",
                                             u"2200p",
                                             u"0R",
                                             u"1k\u00E9"};
    std::vector<std::u16string> texts;
    for (const char16_t* number : numbers)
        for (const char16_t* ending : endings)
            texts.push_back(std::u16string(number) + ending);
    for (const char16_t* text : others)
        texts.emplace_back(text);
    return texts;
}

} // namespace utility
