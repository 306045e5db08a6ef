#pragma once

#include "platform/base/Types.h"
#include "platform/db/DBException.h"
#include "platform/db/Driver.h"

#include <string_view>
#include <vector>

namespace utility
{

/// Throws one of our own refusals; `insert`, where its words have room for one, names the column or
/// object.
[[noreturn]] void ThrowRefusal(RETCODE code, std::u16string_view insert = {});

/// Throws what a driver said; with no diagnostics the words are those of the code. The kind is
/// `unlessTold` where no diagnostic tells one.
[[noreturn]] void ThrowDriverRefusal(RETCODE code, const std::vector<CDiagnostic>& diagnostics,
                                     EDBFailure unlessTold);

} // namespace utility
