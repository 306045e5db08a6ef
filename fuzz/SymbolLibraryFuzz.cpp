#include "utility/db/stock/SymbolLibrary.h"

#include "FuzzFile.h"
#include "Require.h"
#include "utility/form/FormScanner.h"

#include <cstdint>

using namespace utility;

namespace
{

constexpr char NAME[] = "symbols";

CFormScanner Scan(std::string_view bytes, std::size_t step)
{
    CFormScanner scanner;
    bool isSound = true;
    for (std::size_t i = 0; i < bytes.size() && isSound; i += step)
    {
        const std::string_view piece = bytes.substr(i, step);
        isSound = scanner.Feed(piece.data(), piece.size());
    }
    Require(scanner.Finish() == !scanner.GetFault());
    return scanner;
}

bool IsEqual(const std::optional<CFormFault>& a, const std::optional<CFormFault>& b)
{
    if (!a || !b)
        return !a && !b;
    return a->line == b->line && a->column == b->column && a->reason == b->reason;
}

} // namespace

/// What is found does not hang on the pieces in which a file comes; of a sound one each symbol is a
/// form of its own.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const CFormScanner whole = Scan(bytes, size + 1);
    const CFormScanner pieces = Scan(bytes, 1);
    Require(IsEqual(whole.GetFault(), pieces.GetFault()));
    Require(whole.GetFormCount() == pieces.GetFormCount());
    if (whole.GetFault())
        return 0;

    std::vector<CSymbol> symbols;
    if (ReadSymbolLibrary(MakeFuzzFile(NAME, bytes), symbols))
        Require(symbols.size() < whole.GetFormCount());
    RemoveFuzzFile(NAME);
    return 0;
}
