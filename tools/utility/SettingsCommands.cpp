#include "CommandTable.h"

namespace utility
{

std::vector<CCommand> SettingsCommands()
{
    return {};
}

} // namespace utility
