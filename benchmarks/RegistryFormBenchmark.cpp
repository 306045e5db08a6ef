#include "platform/system/file/NativePath.h"
#include "settings/Registry.h"
#include "settings/RegistryForms.h"
#include "settings/export/SettingsExport.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

using namespace utility;

// Registry forms out and in: one of 10,000 pairs through a file, a hundred of 20 short pairs
// through a key. The peer of the file is the same pairs as bare lines, written and cut again; that
// of the key the same hundred texts as plain values.

namespace
{

constexpr int LONG_FORM = 10000; // pairs
constexpr int SHORT_FORM = 20;
constexpr int FORMS = 100;
constexpr char16_t KEY[] = u"Software\\Makers\\Board\\Forms";

/// A folder with a store of its own, gone at the end.
class CPlace
{
public:
    CPlace()
        : m_Path(std::filesystem::temp_directory_path() /
                 ("registry-form-benchmark-" + std::to_string(getpid())))
    {
        std::filesystem::create_directories(m_Path);
        setenv("UTILITY_SETTINGS_DIR", m_Path.c_str(), 1);
        ReopenRegistry();
    }
    ~CPlace()
    {
        unsetenv("UTILITY_SETTINGS_DIR");
        ReopenRegistry();
        std::filesystem::remove_all(m_Path);
    }
    CPlace(const CPlace&) = delete;
    CPlace& operator=(const CPlace&) = delete;

    std::string PathOf(const char* name) const { return m_Path / name; }

private:
    std::filesystem::path m_Path;
};

CString KeyOf(int number)
{
    CString key;
    key.Format(u"Parameter%d", number);
    return key;
}

CRegistryFormStruct MakeForm(const CString& name, int pairs, const CString& value)
{
    CRegistryFormStruct form(name);
    for (int number = 0; number < pairs; ++number)
        form.AddKeyAndValue(KeyOf(number), value);
    return form;
}

void FileOurs(benchmark::State& state)
{
    const CPlace place;
    const CString file = ClassicPath(place.PathOf("forms.txt"));
    CRegistryForms out(file, true);
    CRegistryFormStruct form = MakeForm(u"Long", LONG_FORM, u"4k7 \"1%\"");
    out.AddForm(&form);
    for (auto _ : state)
    {
        CRegistryForms in(file, true);
        if (!out.Export() || !in.Import() || in.GetForm(0).GetCount() != LONG_FORM)
            return state.SkipWithError("not all came back");
    }
}

void FileLines(benchmark::State& state)
{
    const CPlace place;
    const std::string path = place.PathOf("lines.txt");
    for (auto _ : state)
    {
        std::ofstream out(path, std::ios::binary);
        for (int number = 0; number < LONG_FORM; ++number)
            out << "Parameter" << number << "=4k7 \"1%\"\n";
        out.close();
        std::vector<std::pair<std::string, std::string>> pairs;
        std::ifstream in(path, std::ios::binary);
        for (std::string line; std::getline(in, line);)
            pairs.emplace_back(line.substr(0, line.find('=')), line.substr(line.find('=') + 1));
        if (pairs.size() != LONG_FORM)
            return state.SkipWithError("not all came back");
    }
}

void KeyOurs(benchmark::State& state)
{
    const CPlace place;
    CRegistryForms out(KEY, false);
    for (int number = 0; number < FORMS; ++number)
    {
        CRegistryFormStruct form = MakeForm(KeyOf(number), SHORT_FORM, u"4k7");
        out.AddForm(&form);
    }
    for (auto _ : state)
    {
        CRegistryForms in(KEY, false);
        if (!out.Export() || !in.Import() || in.GetCount() != FORMS)
            return state.SkipWithError("not all came back");
    }
}

void KeyValues(benchmark::State& state)
{
    const CPlace place;
    const CString text = MakeForm(u"Short", SHORT_FORM, u"4k7").GetFormString();
    CRegistry key(KEY, HKEY_CURRENT_USER);
    for (auto _ : state)
    {
        for (int number = 0; number < FORMS; ++number)
            key.SetValue(KeyOf(number), text);
        CString read;
        for (int number = 0; number < FORMS; ++number)
        {
            if (!key.GetValue(KeyOf(number), read) || read != text)
                return state.SkipWithError("not all came back");
        }
    }
}

/// Pairs one by one, and the text at the end: ten times the pairs take ten times as long.
void AddOurs(benchmark::State& state)
{
    for (auto _ : state)
    {
        CRegistryFormStruct form = MakeForm(u"Long", static_cast<int>(state.range(0)), u"4k7");
        benchmark::DoNotOptimize(form.GetFullString().GetLength());
    }
}

/// Settings of 10,000 values as typed XML, formatted and parsed.
void ExportOurs(benchmark::State& state)
{
    CSettingsTree tree;
    tree.AddKey(0, CString());
    for (int number = 0; number < LONG_FORM; ++number)
        tree.AddValue(0, {KeyOf(number), REG_DWORD, {1, 2, 3, 4}});
    const auto format = static_cast<ESettingsFormat>(state.range(0));
    std::size_t size = 0;
    for (auto _ : state)
    {
        std::string bytes;
        CSettingsTree back;
        CSettingsFault fault;
        if (!FormatSettings(tree, u"B", format, bytes, fault) ||
            !ParseSettings(bytes, u"B", format, back, fault))
            return state.SkipWithError("not all came back");
        size = bytes.size();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
}

BENCHMARK(FileOurs)
    ->Name("form of 10,000 pairs through a file/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FileLines)
    ->Name("form of 10,000 pairs through a file/lines")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(KeyOurs)->Name("100 forms through a key/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(KeyValues)->Name("100 forms through a key/values")->Unit(benchmark::kMillisecond);
BENCHMARK(AddOurs)
    ->Name("pairs added one by one/ours")
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ExportOurs)
    ->Name("10,000 values out and in/ours (0 XML, 1 form)")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond);

} // namespace
