#include "dialogs/resources/DialogTemplates.h"

namespace utility
{

namespace
{

constexpr CDialogText OWN_DIALOGS = uR"(
)";

} // namespace

CDialogText GetOwnDialogs()
{
    return OWN_DIALOGS;
}

} // namespace utility
