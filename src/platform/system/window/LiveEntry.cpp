#include "platform/system/window/LiveEntry.h"

#include "platform/system/window/LiveText.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::string_view FIRST_LINE = "utility-windows 1"; // the format and its version

std::string_view TakeLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

bool ReadWindow(CLiveWords& words, CLiveEntry& entry)
{
    CLiveEntryWindow window;
    if (entry.m_Windows.size() == LIVE_WINDOW_LIMIT || !words.NextNumber(window.m_Number) ||
        window.m_Number == 0)
        return false;
    entry.m_Windows.push_back(window);
    return true;
}

/// A line that tells of a window stands behind the line with its number.
bool ReadOfWindow(std::string_view value, CLiveEntry& entry, CString CLiveEntryWindow::*member)
{
    if (entry.m_Windows.empty())
        return false;
    entry.m_Windows.back().*member = UnescapeLiveText(value).Left(LIVE_TITLE_LIMIT);
    return true;
}

bool ReadLine(std::string_view line, CLiveEntry& entry)
{
    CLiveWords words(line);
    const std::string_view key = words.Next();
    if (key == "process")
        return words.NextNumber(entry.m_Process.m_Id) &&
               words.NextNumber(entry.m_Process.m_Start) && words.GetRest().empty();
    if (key == "instance")
        return words.NextNumber(entry.m_Instance) && words.GetRest().empty();
    if (key == "window")
        return ReadWindow(words, entry) && words.GetRest().empty();
    if (key == "class")
        return ReadOfWindow(words.GetRest(), entry, &CLiveEntryWindow::m_ClassName);
    if (key == "title")
        return ReadOfWindow(words.GetRest(), entry, &CLiveEntryWindow::m_Title);
    if (key == "application")
        entry.m_Application = UnescapeLiveText(words.GetRest()).Left(LIVE_TITLE_LIMIT);
    return true;
}

} // namespace

std::string FormatLiveEntry(const CLiveEntry& entry)
{
    std::string text(FIRST_LINE);
    const auto append = [&text](std::string_view key, const std::string& value)
    {
        text.append("\n").append(key).append(" ").append(value);
    };

    append("process",
           std::to_string(entry.m_Process.m_Id) + " " + std::to_string(entry.m_Process.m_Start));
    append("instance", std::to_string(entry.m_Instance));
    append("application", EscapeLiveText(entry.m_Application.Left(LIVE_TITLE_LIMIT)));
    const std::size_t count = std::min(entry.m_Windows.size(), LIVE_WINDOW_LIMIT);
    for (std::size_t i = 0; i < count; ++i)
    {
        const CLiveEntryWindow& window = entry.m_Windows[i];
        append("window", std::to_string(window.m_Number));
        append("class", EscapeLiveText(window.m_ClassName.Left(LIVE_TITLE_LIMIT)));
        append("title", EscapeLiveText(window.m_Title.Left(LIVE_TITLE_LIMIT)));
    }
    return text + "\n";
}

bool ParseLiveEntry(std::string_view text, CLiveEntry& entry)
{
    if (text.size() > LIVE_ENTRY_LIMIT || TakeLine(text) != FIRST_LINE)
        return false;
    CLiveEntry read;
    while (!text.empty())
    {
        if (!ReadLine(TakeLine(text), read))
            return false;
    }
    if (read.m_Process.m_Id == 0)
        return false;
    entry = std::move(read);
    return true;
}

} // namespace utility
