#include "CommandTable.h"

namespace utility
{

std::vector<CCommand> DateCommands()
{
    return {};
}

} // namespace utility
