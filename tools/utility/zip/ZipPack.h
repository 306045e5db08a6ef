#pragma once

namespace utility
{

class CCommandCall;

/// zip create: files and folders to a new archive, which takes its place once it is whole.
int CreateZipArchive(const CCommandCall& call);

} // namespace utility
