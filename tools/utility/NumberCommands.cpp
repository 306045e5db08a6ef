#include "CommandTable.h"

namespace utility
{

std::vector<CCommand> NumberCommands()
{
    return {};
}

} // namespace utility
