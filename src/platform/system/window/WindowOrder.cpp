#include "platform/system/window/WindowOrder.h"

#include "platform/system/window/LiveText.h"

namespace utility
{

namespace
{

constexpr std::string_view MARK = "utility-order";
constexpr int VERSION = 1;

struct COrderWord
{
    EWindowOrder m_Kind;
    std::string_view m_Word;
};

constexpr COrderWord ORDER_WORDS[] = {
    {EWindowOrder::Top, "top"},         {EWindowOrder::Maximise, "maximise"},
    {EWindowOrder::Close, "close"},     {EWindowOrder::Move, "move"},
    {EWindowOrder::Message, "message"}, {EWindowOrder::Event, "event"},
};

bool IsNamed(EWindowOrder kind)
{
    return kind == EWindowOrder::Message || kind == EWindowOrder::Event;
}

bool IsName(const CString& name)
{
    return !name.IsEmpty() && name.GetLength() <= ORDER_NAME_LIMIT;
}

std::string_view WordOf(EWindowOrder kind)
{
    for (const COrderWord& word : ORDER_WORDS)
    {
        if (word.m_Kind == kind)
            return word.m_Word;
    }
    return {};
}

bool ReadKind(std::string_view text, EWindowOrder& kind)
{
    for (const COrderWord& word : ORDER_WORDS)
    {
        if (word.m_Word != text)
            continue;
        kind = word.m_Kind;
        return true;
    }
    return false;
}

bool ReadPlace(CLiveWords& words, CRect& place)
{
    return words.NextNumber(place.left) && words.NextNumber(place.top) &&
           words.NextNumber(place.right) && words.NextNumber(place.bottom);
}

bool ReadNamed(CLiveWords& words, CWindowOrder& order)
{
    if (!words.NextNumber(order.m_WParam) || !words.NextNumber(order.m_LParam))
        return false;
    order.m_Name = UnescapeLiveText(words.GetRest());
    return IsName(order.m_Name);
}

} // namespace

std::string FormatWindowOrder(const CWindowOrder& order)
{
    std::string text(MARK);
    const auto append = [&text](const std::string& word)
    {
        text.append(" ").append(word);
    };
    append(std::to_string(VERSION));
    append(std::string(WordOf(order.m_Kind)));
    append(std::to_string(order.m_Window));
    if (order.m_Kind == EWindowOrder::Move)
    {
        const CRect& place = order.m_Place;
        for (const LONG side : {place.left, place.top, place.right, place.bottom})
            append(std::to_string(side));
    }
    if (IsNamed(order.m_Kind))
    {
        if (!IsName(order.m_Name))
            return {};
        append(std::to_string(order.m_WParam));
        append(std::to_string(order.m_LParam));
        append(EscapeLiveText(order.m_Name));
    }
    return text.size() <= ORDER_LIMIT ? text : std::string();
}

bool ParseWindowOrder(std::string_view text, CWindowOrder& order)
{
    CLiveWords words(text);
    CWindowOrder read;
    int version = 0;
    if (text.size() > ORDER_LIMIT || words.Next() != MARK || !words.NextNumber(version) ||
        version != VERSION || !ReadKind(words.Next(), read.m_Kind) ||
        !words.NextNumber(read.m_Window))
        return false;

    if (read.m_Kind == EWindowOrder::Move && !ReadPlace(words, read.m_Place))
        return false;
    if (IsNamed(read.m_Kind) ? !ReadNamed(words, read) : !words.GetRest().empty())
        return false;
    order = std::move(read);
    return true;
}

} // namespace utility
