#pragma once

#include "platform/backend/odbc/DateDoubt.h"
#include "platform/db/Driver.h"
#include "platform/db/SnapshotStore.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// Where the driver puts the values of one result column, a row set at a time: always a narrow
/// carrier, widened by us.
class CColumnBuffer
{
public:
    /// `mayGrow` says that a value which does not fit is read again; otherwise the room is for the
    /// longest one.
    CColumnBuffer(const CColumnLayout& layout, std::size_t rows, std::uint32_t precision,
                  bool mayGrow, const CDateDoubt& dateDoubt);

    /// Bytes for one row of such a column.
    static std::size_t ElementSizeFor(const CColumnLayout& layout, std::uint32_t precision,
                                      bool mayGrow);

    /// Not 0 where the driver has to be told: None has no carrier.
    short GetCarrier() const { return m_Carrier; }
    void* GetData() { return m_Data.data(); }
    std::int64_t GetElementSize() const { return static_cast<std::int64_t>(m_ElementSize); }
    std::int64_t* GetIndicators() { return m_Indicators.data(); }

    /// Every indicator NULL: a driver that cannot convert a value writes neither.
    void Preset();

    /// A value of any length is wanted whole.
    bool IsUnlimited() const { return ReadsWhole(m_Layout); }
    static bool ReadsWhole(const CColumnLayout& layout)
    {
        return layout.Kind == EValueKind::Binary ||
               (layout.Kind == EValueKind::Text && layout.TextLimit == 0);
    }

    /// The bytes that are wanted at most, with room for a terminator; 0 for all there are.
    std::size_t GetFullSize() const;

    /// False, and nothing is stored, if the value has to be read again: it did not fit and more of
    /// it is wanted, or it is a doubtful date.
    bool StoreRow(std::size_t row, CSnapshotColumn& column) const;

    /// Stores a value that was read again; `isWhole` says that nothing of it is missing.
    void StoreLong(std::string_view bytes, bool isWhole, CSnapshotColumn& column) const;

    /// Stores a doubtful date, now that its text was read.
    void StoreDoubted(std::size_t row, std::string_view text, CSnapshotColumn& column) const;

    bool IsDate() const { return m_Layout.Kind == EValueKind::Date; }

private:
    bool StoreBytes(const unsigned char* place, std::int64_t length, CSnapshotColumn& column) const;
    TIMESTAMP_STRUCT ReadDate(std::size_t row) const;
    bool StoreDate(std::size_t row, CSnapshotColumn& column) const;

    CColumnLayout m_Layout;
    short m_Carrier = 0;
    std::size_t m_ElementSize = 0;
    std::vector<unsigned char> m_Data;
    std::vector<std::int64_t> m_Indicators;
    CDateDoubt m_DateDoubt;
};

} // namespace utility
