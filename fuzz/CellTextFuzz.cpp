#include "database/transfer/CellText.h"

#include "Require.h"

#include <cstdint>

using namespace utility;

/// The first byte is the type of the column, the rest a value as a source writes it. A text that is
/// one reads as itself, and no character has more than four bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const auto type =
        static_cast<ETransferType>(data[0] % (static_cast<int>(ETransferType::Binary) + 1));
    CDbValue value;
    value.Kind = EValueKind::Text;
    value.IsNull = false;
    value.Bytes = {reinterpret_cast<const char*>(data) + 1, size - 1};
    const std::int64_t characters = CountCharacters(value.Bytes);
    Require(characters == -1 || (characters <= static_cast<std::int64_t>(value.Bytes.size()) &&
                                 characters * 4 >= static_cast<std::int64_t>(value.Bytes.size())));
    std::string text;
    if (!MakeCellText(type, value, text))
        return 0;
    if (type == ETransferType::Date || type == ETransferType::Timestamp)
        Require(YearOf(text) != 0 || text.ends_with(" BC"));
    value.Bytes = text;
    std::string again;
    Require(MakeCellText(type, value, again) && again == text);
    return 0;
}
