#include "CommandTable.h"

namespace utility
{

std::vector<CCommand> TextCommands()
{
    return {};
}

} // namespace utility
