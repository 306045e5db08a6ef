// A module with a mistake: it takes it that there are at least so many values, and reads one that
// is not there.

static const char* const VALUES[] = {"10k", nullptr};

/// The letters of the first `count` values.
extern "C" [[gnu::visibility("default")]] int CountLetters(int count)
{
    int letters = 0;
    for (int i = 0; i < count; ++i)
    {
        for (const char* letter = VALUES[i]; *letter != 0; ++letter)
            ++letters;
    }
    return letters;
}
