#include "CommandTable.h"

namespace utility
{

std::vector<CCommand> FormCommands()
{
    return {};
}

} // namespace utility
