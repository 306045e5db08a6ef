#include "platform/backend/odbc/StatementAdapter.h"

#include "platform/base/Encoding.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace utility;

// A statement that was adapted has nothing left to adapt, and grows by no more than its names can.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr CSqlDialect dialects[] = {
        {.Quote = u'`', .KeepsWhereZero = true, .AutoIncrement = EAutoIncrement::Drop},
        {.AutoIncrement = EAutoIncrement::Identity, .HasDollarLiterals = true},
        {.Quote = u'`',
         .KeepsWhereZero = true,
         .HasBackslashEscapes = true,
         .HasHashComments = true}};
    const CString sql = FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    for (const CSqlDialect& dialect : dialects)
    {
        const CString once = AdaptStatement(sql.View(), dialect);
        if (once.GetLength() > 3 * sql.GetLength() + 2)
            std::abort();
        // A bracket that nothing closes stays, and what stands before it may have become a name:
        // only then may a second walk find something.
        if (once.Find(u'[') < 0 && AdaptStatement(once.View(), dialect) != once)
            std::abort();
    }
    return 0;
}
