#include "platform/ui/ResourceTables.h"

#include "dialogs/resources/Bitmaps.h"
#include "platform/base/CaseFold.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace utility
{

namespace
{

/// Where in its table's text a dialog stands.
struct CDialogPlace
{
    UINT m_Id = 0;
    std::u16string_view m_Name;
    std::u16string_view m_Text;
};

/// A text and its dialogs, found by a walk: tables are short, and dialogs rarely made.
class CDialogTable
{
public:
    explicit CDialogTable(std::u16string_view text)
        : m_Text(std::make_unique<std::u16string>(text)),
          m_Fault(FindDialogs())
    {
    }

    const std::u16string& GetText() const { return *m_Text; }
    const CDialogTextFault& GetFault() const { return m_Fault; }

    std::u16string_view Find(UINT id) const
    {
        const auto found = std::ranges::find(m_Dialogs, id, &CDialogPlace::m_Id);
        return id == 0 || found == m_Dialogs.end() ? std::u16string_view() : found->m_Text;
    }
    std::u16string_view Find(std::u16string_view name) const
    {
        const auto hasName = [&](const CDialogPlace& dialog)
        {
            return !name.empty() && EqualNoCase(dialog.m_Name, name);
        };
        const auto found = std::ranges::find_if(m_Dialogs, hasName);
        return found == m_Dialogs.end() ? std::u16string_view() : found->m_Text;
    }

private:
    CDialogTextFault FindDialogs()
    {
        const std::u16string_view text = *m_Text;
        CDialogTextReader reader(text);
        CDialogLine dialog;
        while (reader.ReadDialog(dialog))
        {
            CControlLine control;
            while (reader.ReadControl(control))
            {
            }
            m_Dialogs.push_back({dialog.m_Id, dialog.m_Name,
                                 text.substr(dialog.m_Start, reader.GetPlace() - dialog.m_Start)});
        }
        return reader.GetFault();
    }

    std::unique_ptr<std::u16string> m_Text; // stays where it is, for the views into it
    std::vector<CDialogPlace> m_Dialogs;
    CDialogTextFault m_Fault;
};

// In both the newest stands last; never destroyed, since windows end late.
std::vector<CDialogTable>& DialogTables()
{
    static auto& tables = *new std::vector<CDialogTable>;
    return tables;
}

std::vector<std::span<const CPixelPicture>>& BitmapTables()
{
    static auto& tables = *new std::vector<std::span<const CPixelPicture>>{GetOwnBitmaps()};
    return tables;
}

template <typename TKey>
std::u16string_view FindInDialogTables(const TKey& key)
{
    const std::vector<CDialogTable>& tables = DialogTables();
    for (auto table = tables.rbegin(); table != tables.rend(); ++table)
    {
        if (const std::u16string_view text = table->Find(key); !text.empty())
            return text;
    }
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return {};
}

template <typename TTables, typename TFits>
void EraseNewest(TTables& tables, const TFits& fits)
{
    const auto found = std::find_if(tables.rbegin(), tables.rend(), fits);
    if (found != tables.rend())
        tables.erase(std::next(found).base());
}

} // namespace

std::u16string_view CResourceTables::FindDialog(UINT id)
{
    return FindInDialogTables(id);
}

std::u16string_view CResourceTables::FindDialog(const char16_t* name)
{
    return FindInDialogTables(name ? std::u16string_view(name) : std::u16string_view());
}

void CResourceTables::AddDialogs(const CDialogText& text)
{
    DialogTables().emplace_back(text.View());
}

bool CResourceTables::AddDialogs(std::u16string_view text, CDialogTextFault& fault)
{
    CDialogTable table(text);
    if (table.GetFault())
    {
        fault = table.GetFault();
        return false;
    }
    DialogTables().push_back(std::move(table));
    return true;
}

void CResourceTables::RemoveDialogs(std::u16string_view text)
{
    const auto isThat = [&](const CDialogTable& table)
    {
        return table.GetText() == text;
    };
    EraseNewest(DialogTables(), isThat);
}

const CPixelPicture* CResourceTables::FindBitmap(UINT id)
{
    const auto& tables = BitmapTables();
    for (auto table = tables.rbegin(); table != tables.rend(); ++table)
    {
        const auto found = std::ranges::find(*table, id, &CPixelPicture::GetId);
        if (found != table->end())
            return &*found;
    }
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
}

void CResourceTables::AddBitmaps(std::span<const CPixelPicture> pictures)
{
    BitmapTables().push_back(pictures);
}

void CResourceTables::RemoveBitmaps(std::span<const CPixelPicture> pictures)
{
    const auto isThat = [&](std::span<const CPixelPicture> table)
    {
        return table.data() == pictures.data();
    };
    EraseNewest(BitmapTables(), isThat);
}

} // namespace utility
