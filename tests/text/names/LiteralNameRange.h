#pragma once

#include <string>
#include <vector>

namespace utility
{

/// The characters and ways of a range of names.
struct CNameRangeRules
{
    char16_t m_Start = u'[';
    char16_t m_End = u']';
    char16_t m_Between = u'-';
    char16_t m_Item = u',';
    bool m_CaseSensitive = false;
    bool m_Ordered = false;
};

/// A set of names by the rules as they are laid down: a plain list whose names are walked one by
/// one for each question. Slow, and kept apart from the library's own reading of them.
class CLiteralNameRange
{
public:
    explicit CLiteralNameRange(const CNameRangeRules& rules) : m_Rules(rules) {}

    void SetString(const std::u16string& text);
    void Add(const std::u16string& text);
    bool Delete(const std::u16string& text);
    bool Contains(const std::u16string& name) const;
    bool IsValid() const { return m_Valid; }
    long long CountNames() const;
    std::vector<std::u16string> GetNames() const;
    std::u16string GetString() const;

private:
    struct CItem
    {
        std::u16string m_Stem;
        std::u16string m_Tail;
        long long m_Low = -1; // of a plain name
        long long m_High = -1;
        std::size_t m_Width = 0;
    };
    struct CStem
    {
        std::u16string m_Stem;
        std::u16string m_Tail;
        long long m_Number = -1;
        std::size_t m_Width = 0;
    };

    static CStem GetStem(const std::u16string& name);
    static std::u16string NumberText(long long number, std::size_t width);
    static std::vector<std::u16string> NamesOf(const CItem& item);
    static long long NumberOf(const CItem& item, std::size_t index);

    CStem GetRangeStem(const std::u16string& name) const;
    bool AddNameItem(std::u16string entry);
    bool AddMember(const std::u16string& prefix, const std::u16string& digits,
                   const std::u16string& member, const std::u16string& suffix);
    void AddSingleName(const std::u16string& name);
    void AddOne(const std::u16string& name);
    bool Grow(CItem& item, const CStem& name);
    void Join(const CItem& grown, bool above);
    bool DeleteOne(const std::u16string& name);
    bool IsSame(const std::u16string& left, const std::u16string& right) const;
    bool HasName(const CItem& item, const std::u16string& name, std::size_t& index) const;

    CNameRangeRules m_Rules;
    std::vector<CItem> m_Items;
    bool m_Valid = true;
};

} // namespace utility
