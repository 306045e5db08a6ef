#include "CommandTable.h"

namespace utility
{

std::vector<CCommand> DbCommands()
{
    return {};
}

} // namespace utility
