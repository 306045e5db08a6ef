#include "CommandTable.h"

namespace utility
{

std::vector<CCommand> PathCommands()
{
    return {};
}

} // namespace utility
