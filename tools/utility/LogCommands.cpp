#include "CommandTable.h"

namespace utility
{

std::vector<CCommand> LogCommands()
{
    return {};
}

} // namespace utility
