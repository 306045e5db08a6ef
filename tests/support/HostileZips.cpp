#include "support/HostileZips.h"

#include "support/RawZip.h"

namespace utility
{

namespace
{

// What the tool says
constexpr char NO_END[] = "this is no zip archive, or its end is cut off";
constexpr char SPLIT[] = "the archive is split over several files, which cannot be read";
constexpr char ELSEWHERE[] = "the directory does not lie where the end record says";
constexpr char DIRECTORY[] = "the directory is damaged";
constexpr char COUNT[] = "the directory does not have as many entries as it claims";
constexpr char LARGE[] = "a Zip64 record is missing or damaged";
constexpr char OUTSIDE[] = "an entry lies outside the archive";
constexpr char OVERLAP[] = "entries overlap, as in an archive made to fill disks";
constexpr char NO_HEADER[] = "its header is missing";
constexpr char METHOD[] = "it is compressed in a way that cannot be read";
constexpr char ENCRYPTION[] = "it is encrypted in a way that cannot be read";
constexpr char DATA[] = "its data are damaged";
constexpr char DATA_CUT[] = "its data end too early";
constexpr char CRC[] = "its data are damaged: the checksum differs";
constexpr char SIZE[] = "its size is not what the directory says";
constexpr char PASSWORD[] = "the password is missing or wrong; see --password";
constexpr char CONTROLS[] = "its name has control characters";
constexpr char NO_NAME[] = "nothing is left of its name below the target folder";
constexpr char SAME_NAME[] = "passed over: an entry of the same name, but for case, came before";
constexpr char NO_FOLDER[] = "a file or a link stands where a folder is wanted";
constexpr char TOO_MUCH[] = "nothing is unpacked: it would be";

constexpr std::uint32_t IN_LARGE = 0xFFFFFFFF;

std::string One(const CRawEntry& entry)
{
    return BuildRawZip({.m_Entries = {entry}});
}

std::string Named(const std::string& name)
{
    return One({.m_Name = name});
}

CRawEntry Deflated(const std::string& data, std::uint32_t size = 5)
{
    return {.m_Data = data, .m_Method = 8, .m_Crc = RawCrc("hello"), .m_Size = size};
}

std::string Cut(std::string bytes, std::size_t count)
{
    bytes.resize(bytes.size() - count);
    return bytes;
}

/// One small block of data in which many entries have their headers, each one reaching to the end.
std::string FlatBomb()
{
    constexpr int COUNT_OF_ENTRIES = 250;
    constexpr int HEADER = 31;
    std::vector<CRawEntry> entries;
    for (int i = 0; i < COUNT_OF_ENTRIES; ++i)
        entries.push_back({.m_Name = "b", .m_Data = ""});
    const std::string kernel(20'000, 'x');
    entries.back().m_Data = kernel;
    for (int i = 0; i < COUNT_OF_ENTRIES; ++i)
    {
        const auto size =
            static_cast<std::uint32_t>(kernel.size()) + HEADER * (COUNT_OF_ENTRIES - 1 - i);
        entries[std::size_t(i)].m_PackedSize = entries[std::size_t(i)].m_Size = size;
    }
    return BuildRawZip({.m_Entries = entries});
}

/// Zip64 records behind one entry, which the end record points to by its full fields.
std::string WithLargeEnd(std::uint64_t count, std::uint64_t size, std::uint64_t offset)
{
    CRawZip zip{.m_Entries = {{}}};
    const std::string plain = BuildRawZip(zip);
    const std::uint64_t place = plain.size() - 22;
    zip.m_BeforeEnd = RawLargeEnd(count, size == 0 ? 47 : size, offset == 0 ? 36 : offset, place);
    zip.m_Count = 0xFFFF;
    zip.m_DirectorySize = IN_LARGE;
    zip.m_DirectoryOffset = IN_LARGE;
    return BuildRawZip(zip);
}

std::vector<CHostileZip> HostileEnds()
{
    const CRawZip plain{.m_Entries = {{}}};
    const std::string bytes = BuildRawZip(plain);
    const auto with = [&](auto change)
    {
        CRawZip zip = plain;
        change(zip);
        return BuildRawZip(zip);
    };
    return {
        {"nothing", "", NO_END},
        {"one byte", "P", NO_END},
        {"a text", "This is a letter and no archive at all.", NO_END},
        {"end record cut", Cut(bytes, 1), NO_END},
        {"end record missing", with([](CRawZip& zip) { zip.m_HasEnd = false; }), NO_END},
        {"comment that is not there", with([](CRawZip& zip) { zip.m_CommentLength = 100; }),
         NO_END},
        {"end too far from the end",
         with([](CRawZip& zip) { zip.m_Behind = std::string(70'000, 0); }), NO_END},
        {"2^32-1 entries claimed", WithLargeEnd(IN_LARGE, 0, 0), COUNT},
        {"2^64-1 entries claimed", WithLargeEnd(std::uint64_t(-1), 0, 0), COUNT},
        {"65,534 entries claimed", with([](CRawZip& zip) { zip.m_Count = 0xFFFE; }), COUNT},
        {"no entries claimed", with([](CRawZip& zip) { zip.m_Count = 0; }), COUNT},
        {"directory behind the end", with([](CRawZip& zip) { zip.m_DirectoryOffset = 1000; }),
         ELSEWHERE},
        {"directory of 4 GB", with([](CRawZip& zip) { zip.m_DirectorySize = 0xFFFFFFFE; }),
         ELSEWHERE},
        {"directory of 4 bytes less", with([](CRawZip& zip) { zip.m_DirectorySize = 43; }),
         ELSEWHERE},
        {"directory wrapping round", WithLargeEnd(1, std::uint64_t(-1), 2), ELSEWHERE},
        {"second disk", with([](CRawZip& zip) { zip.m_Disk = 1; }), SPLIT},
        {"entries on other disks", with([](CRawZip& zip) { zip.m_CountHere = 0; }), SPLIT},
        {"Zip64 record missing", with([](CRawZip& zip) { zip.m_DirectorySize = IN_LARGE; }), LARGE},
        {"Zip64 locator alone",
         with(
             [](CRawZip& zip)
             {
                 zip.m_DirectorySize = IN_LARGE;
                 zip.m_BeforeEnd = std::string(56, 'x') + RawLargeEnd(1, 47, 36, 83).substr(56);
             }),
         LARGE},
        {"Zip64 on other disks",
         with(
             [](CRawZip& zip)
             {
                 zip.m_DirectorySize = IN_LARGE;
                 zip.m_BeforeEnd = RawLargeEnd(1, 47, 36, 83);
                 zip.m_BeforeEnd[16] = 1;
             }),
         SPLIT},
    };
}

std::vector<CHostileZip> HostileDirectories()
{
    CRawEntry second{.m_Name = "second"};
    CRawEntry broken = second;
    broken.m_CentralSignature = 0x12345678;
    CRawEntry twin = second;
    twin.m_Offset = 0;
    // The first entry's data hold the whole of the second.
    const std::string inner = One({.m_Name = "in", .m_Data = "data"}).substr(0, 36);
    CRawEntry nested{.m_Name = "in", .m_Data = "data", .m_Offset = 31};
    return {
        {"name longer than the directory", One({.m_CentralNameLength = 500}), DIRECTORY},
        {"extra field longer than the directory", One({.m_CentralExtraLength = 0xFFFF}), DIRECTORY},
        {"record without its mark", BuildRawZip({.m_Entries = {{}, broken}}), DIRECTORY},
        {"entry on another disk", One({.m_Disk = 3}), SPLIT},
        {"Zip64 size that is missing", One({.m_Size = IN_LARGE}), LARGE},
        {"Zip64 size that is cut", One({.m_Size = IN_LARGE, .m_CentralExtra = RawExtra(1, "1234")}),
         LARGE},
        {"entry at 2^64-1",
         One({.m_Offset = IN_LARGE,
              .m_CentralExtra = RawExtra(1, RawNumber(std::uint64_t(-1), 8))}),
         OUTSIDE},
        {"entry behind the directory", One({.m_Offset = 5000}), OUTSIDE},
        {"entry that reaches into the directory", One({.m_PackedSize = 50, .m_Size = 50}), OUTSIDE},
        {"entry of 4 GB", One({.m_PackedSize = 0xFFFFFFFE, .m_Size = 0xFFFFFFFE}), OUTSIDE},
        {"two entries, one header", BuildRawZip({.m_Entries = {{}, twin}}), OVERLAP},
        {"entry within an entry", BuildRawZip({.m_Entries = {{.m_Data = inner}, nested}}), OVERLAP},
        {"flat bomb", FlatBomb(), OVERLAP},
    };
}

std::vector<CHostileZip> HostileEntries()
{
    CRawEntry encrypted{.m_Data = "short", .m_Flags = 1, .m_Size = 0};
    const std::string extraIntoTheNext = [&]
    {
        std::string bytes = BuildRawZip({.m_Entries = {{}, {.m_Name = "second"}}});
        bytes[28] = 10; // the length of the first local header's extra field
        return bytes;
    }();
    return {
        {"no local header", One({.m_LocalSignature = 0}), NO_HEADER},
        {"local header that reaches into the next", extraIntoTheNext, OVERLAP, {"second"}},
        {"bzip2", One({.m_Method = 12}), METHOD},
        {"method 65,535", One({.m_Method = 0xFFFF}), METHOD},
        {"patched", One({.m_Flags = 0x20}), METHOD},
        {"AES", One({.m_Method = 99, .m_Flags = 1}), ENCRYPTION},
        {"strong encryption", One({.m_Flags = 0x41}), ENCRYPTION},
        {"masked header", One({.m_Flags = 0x2001}), ENCRYPTION},
        {"encrypted, without a password", One({.m_Data = "0123456789abcdef", .m_Flags = 1}),
         PASSWORD},
        {"encrypted, too short", One(encrypted), DATA_CUT},
        {"deflated damage", One(Deflated("\xFF\xFF\xFF\xFF\xFF\xFF")), DATA},
        {"deflated, cut", One(Deflated(RawDeflated("hello").substr(0, 7))), DATA_CUT},
        {"deflated, nothing", One(Deflated("")), DATA_CUT},
        {"deflated, more than told", One(Deflated(RawDeflated("hello!"))), SIZE},
        {"deflated, less than told", One(Deflated(RawDeflated("hell"))), SIZE},
        {"deflated, bytes behind", One(Deflated(RawDeflated("hello") + "tail")), SIZE},
        {"deflated, 2 GB told", One(Deflated(RawDeflated("hello"), 0x7FFFFFFF)), SIZE},
        {"all that 64 bits tell",
         One({.m_Data = RawDeflated("hello"),
              .m_Method = 8,
              .m_Size = IN_LARGE,
              .m_CentralExtra = RawExtra(1, RawNumber(std::uint64_t(-1), 8))}),
         TOO_MUCH},
        {"stored, other size", One({.m_Size = 4}), SIZE},
        {"wrong checksum", One({.m_Crc = 1}), CRC},
    };
}

std::vector<CHostileZip> HostileNames()
{
    const std::vector<std::string> justX = {"x"};
    return {
        {"upwards", Named("../../x"), "", justX},
        {"upwards by backslashes", Named("..\\..\\x"), "", justX},
        {"upwards within", Named("a/../../x"), "", justX},
        {"upwards behind a drive", Named("C:..\\x"), "", justX},
        {"absolute", Named("/tmp/x"), "", {"tmp/", "tmp/x"}},
        {"drive", Named("C:\\x"), "", justX},
        {"share", Named("\\\\server\\x"), "", {"server/", "server/x"}},
        {"stacked", Named("/C:/../D:\\../x"), "", justX},
        {"only upwards", Named(".."), NO_NAME},
        {"empty", Named(""), NO_NAME},
        {"only dots", Named("./x"), "", justX},
        {"escape sequence", Named("a\x1b[2Jb"), CONTROLS},
        {"line end", Named("a\nb"), CONTROLS},
        {"zero byte", Named(std::string("a\0.txt", 6)), CONTROLS},
        {"longer than disks take", Named(std::string(5000, 'n')), "File name too long"},
        {"link, then through it",
         BuildRawZip({.m_Entries = {{.m_Name = "link",
                                     .m_Data = "../outside",
                                     .m_MadeBy = 0x0314,
                                     .m_Attributes = 0120777U << 16U},
                                    {.m_Name = "link/x"}}}),
         NO_FOLDER,
         {"link"}},
        {"A beside a",
         BuildRawZip({.m_Entries = {{.m_Name = "A"}, {.m_Name = "a"}}}),
         SAME_NAME,
         {"A"}},
        {"twice the same", BuildRawZip({.m_Entries = {{}, {.m_Data = "other"}}}), SAME_NAME, {"a"}},
        {"file, then folder",
         BuildRawZip({.m_Entries = {{}, {.m_Name = "a/b"}}}),
         NO_FOLDER,
         {"a"}},
        {"folder, then file",
         BuildRawZip({.m_Entries = {{.m_Name = "a/b"}, {}}}),
         "kept as it is; see --overwrite",
         {"a/", "a/b"}},
    };
}

} // namespace

std::vector<CHostileZip> HostileZips()
{
    std::vector<CHostileZip> all;
    for (const auto group : {HostileEnds, HostileDirectories, HostileEntries, HostileNames})
    {
        for (CHostileZip& each : group())
            all.push_back(std::move(each));
    }
    return all;
}

} // namespace utility
