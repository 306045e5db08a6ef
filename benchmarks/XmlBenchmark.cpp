#include "platform/base/Encoding.h"
#include "settings/xml/XMLSettings.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <pugixml.hpp>
#include <string>
#include <unistd.h>

using namespace utility;

// A file of settings as hosts keep them, loaded into a tree and saved from one, beside two general
// XML libraries.

namespace
{

constexpr int GROUPS = 20000; // some 5 MB

/// Made once, gone at the process's end.
class CSample
{
public:
    CSample() : m_Path("/dev/shm/xml-benchmark-" + std::to_string(getpid()))
    {
        std::ofstream file(m_Path, std::ios::binary);
        file << "<?xml version='1.0' encoding='UTF-8' ?>\r\n<Settings>\r\n";
        for (int group = 0; group < GROUPS; ++group)
        {
            file << "    <Component id=\"" << group << "\" kind=\"resistor\">\r\n"
                 << "        <Name>Widerstandsnetzwerk, 8 Elemente</Name>\r\n"
                 << "        <Value unit=\"ohm\">4700</Value>\r\n"
                 << "        <Position>\r\n            <X>" << group << "</X>\r\n"
                 << "            <Y>-1250</Y>\r\n        </Position>\r\n"
                 << "        <Fitted/>\r\n    </Component>\r\n";
        }
        file << "</Settings>\r\n";
    }
    ~CSample() { unlink(m_Path.c_str()); }
    CSample(const CSample&) = delete;
    CSample& operator=(const CSample&) = delete;

    const std::string m_Path;
};

const CSample& Sample()
{
    static const CSample sample;
    return sample;
}

void ReportBytes(benchmark::State& state)
{
    const auto size = static_cast<std::int64_t>(std::filesystem::file_size(Sample().m_Path));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * size);
}

void LoadOurs(benchmark::State& state)
{
    const CString path = FromUtf8(Sample().m_Path);
    for (auto _ : state)
    {
        CXMLSettings settings;
        settings.SetEncodings(2);
        if (!settings.LoadXML(path))
            return state.SkipWithError("cannot load");
    }
    ReportBytes(state);
}

void LoadPugixml(benchmark::State& state)
{
    for (auto _ : state)
    {
        pugi::xml_document document;
        if (!document.load_file(Sample().m_Path.c_str()))
            return state.SkipWithError("cannot load");
    }
    ReportBytes(state);
}

void LoadLibxml2(benchmark::State& state)
{
    for (auto _ : state)
    {
        const xmlDocPtr document = xmlReadFile(Sample().m_Path.c_str(), nullptr, 0);
        if (!document)
            return state.SkipWithError("cannot load");
        xmlFreeDoc(document);
    }
    ReportBytes(state);
}

void SaveOurs(benchmark::State& state)
{
    const std::string written = Sample().m_Path + ".ours";
    CXMLSettings settings;
    settings.SetEncodings(2);
    settings.LoadXML(FromUtf8(Sample().m_Path));
    for (auto _ : state)
    {
        if (!settings.SaveXML(FromUtf8(written)))
            return state.SkipWithError("cannot save");
    }
    ReportBytes(state);
    unlink(written.c_str());
}

void SavePugixml(benchmark::State& state)
{
    const std::string written = Sample().m_Path + ".pugixml";
    pugi::xml_document document;
    document.load_file(Sample().m_Path.c_str());
    for (auto _ : state)
    {
        if (!document.save_file(written.c_str(), "    "))
            return state.SkipWithError("cannot save");
    }
    ReportBytes(state);
    unlink(written.c_str());
}

void SaveLibxml2(benchmark::State& state)
{
    const std::string written = Sample().m_Path + ".libxml2";
    const xmlDocPtr document = xmlReadFile(Sample().m_Path.c_str(), nullptr, XML_PARSE_NOBLANKS);
    for (auto _ : state)
    {
        if (xmlSaveFormatFileEnc(written.c_str(), document, "UTF-8", 1) < 0)
            return state.SkipWithError("cannot save");
    }
    xmlFreeDoc(document);
    ReportBytes(state);
    unlink(written.c_str());
}

BENCHMARK(LoadOurs)->Name("xml load/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadPugixml)->Name("xml load/pugixml")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadLibxml2)->Name("xml load/libxml2")->Unit(benchmark::kMillisecond);
BENCHMARK(SaveOurs)->Name("xml save/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(SavePugixml)->Name("xml save/pugixml")->Unit(benchmark::kMillisecond);
BENCHMARK(SaveLibxml2)->Name("xml save/libxml2")->Unit(benchmark::kMillisecond);

} // namespace
