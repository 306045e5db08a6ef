#include "CommandTable.h"

namespace utility
{

std::vector<CCommand> MatchCommands()
{
    return {};
}

} // namespace utility
