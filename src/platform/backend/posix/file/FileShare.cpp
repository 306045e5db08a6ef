#include "platform/backend/posix/file/FileShare.h"

#include "platform/base/ErrorCodes.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <time.h>
#include <unistd.h>

namespace utility
{

namespace
{

// Far behind any content, so that the marks meet no other program's locks. All programs of the
// suite agree on them.
constexpr off_t MARK_BASE = off_t(1) << 62;
constexpr off_t MARK_READS = 0;
constexpr off_t MARK_WRITES = 1;
constexpr off_t MARK_DENIES_READERS = 2;
constexpr off_t MARK_DENIES_WRITERS = 3;

// The gate is held for a few calls only; who finds it taken for longer than this meets a stranger's
// lock.
constexpr int GATE_TRIES = 200;
constexpr timespec GATE_PAUSE = {0, 1'000'000};

struct flock MarkAt(off_t mark, short type)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = MARK_BASE + mark;
    lock.l_len = 1;
    return lock;
}

bool IsMarkedByOthers(int descriptor, off_t mark)
{
    struct flock lock = MarkAt(mark, F_WRLCK);
    return fcntl(descriptor, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

bool TakeGate(int descriptor)
{
    for (int i = 0; i < GATE_TRIES; ++i)
    {
        if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
            return true;
        if (errno != EWOULDBLOCK && errno != EINTR)
            return true; // no such locks on this disk: the marks alone must do
        nanosleep(&GATE_PAUSE, nullptr);
    }
    return false;
}

bool Conflicts(int descriptor, const CFileShare& share)
{
    return (share.Reads && IsMarkedByOthers(descriptor, MARK_DENIES_READERS)) ||
           (share.Writes && IsMarkedByOthers(descriptor, MARK_DENIES_WRITERS)) ||
           (share.DeniesReaders && IsMarkedByOthers(descriptor, MARK_READS)) ||
           (share.DeniesWriters && IsMarkedByOthers(descriptor, MARK_WRITES));
}

void SetMark(int descriptor, bool wanted, off_t mark)
{
    if (!wanted)
        return;
    struct flock lock = MarkAt(mark, F_RDLCK);
    // A failure leaves the file open to everybody, as the header says.
    static_cast<void>(fcntl(descriptor, F_OFD_SETLK, &lock));
}

} // namespace

DWORD TakeFileShare(int descriptor, const CFileShare& share)
{
    if (!TakeGate(descriptor))
        return ERROR_SHARING_VIOLATION;

    const bool conflicts = Conflicts(descriptor, share);
    if (!conflicts)
    {
        SetMark(descriptor, share.Reads, MARK_READS);
        SetMark(descriptor, share.Writes, MARK_WRITES);
        SetMark(descriptor, share.DeniesReaders, MARK_DENIES_READERS);
        SetMark(descriptor, share.DeniesWriters, MARK_DENIES_WRITERS);
    }
    flock(descriptor, LOCK_UN);
    return conflicts ? ERROR_SHARING_VIOLATION : ERROR_SUCCESS;
}

} // namespace utility
