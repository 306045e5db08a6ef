#pragma once

#include "utility/db/stock/PassiveStock.h"

namespace utility
{

class CDBADatabase;

/// Replaces the rows of table `Passives`, which is made where it is not there yet: all of them or,
/// false, none when the user interrupted. Refusals raise CDBException.
[[nodiscard]] bool StorePassives(CDBADatabase& database, const std::vector<CPassive>& stock);

} // namespace utility
