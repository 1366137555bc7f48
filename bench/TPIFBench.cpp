#include "Tickets.h"
#include "tpif/TPIFWriter.h"

#include <benchmark/benchmark.h>
#include <libxml/xmlreader.h>
#include <libxml/xmlwriter.h>

#include <memory>
#include <string>
#include <vector>

namespace tarvo {
namespace {

// Both writers write into memory that they keep between rounds: what it costs to get fresh memory
// from the system is nobody's work here.
void Export(const CFDictionary& ticket, std::string& text)
{
    text.clear();
    TPIFChannel channel([&text](std::string_view piece) { text += piece; });
    WriteTPIF(channel, ticket, nullptr);
    channel.flush();
}

// What a general XML writer has to be told to write a document.
struct XmlStep {
    enum class Kind { Start, Text, End } kind;
    std::string text; // name or content
    std::vector<std::pair<std::string, std::string>> attributes;
};

struct ReaderDeleter {
    void operator()(xmlTextReader* reader) const { xmlFreeTextReader(reader); }
};

const xmlChar* Xml(const std::string& text)
{
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

std::string Plain(const xmlChar* text)
{
    return text == nullptr ? "" : reinterpret_cast<const char*>(text);
}

XmlStep StartStep(xmlTextReader* reader)
{
    XmlStep step{XmlStep::Kind::Start, Plain(xmlTextReaderConstName(reader)), {}};
    while (xmlTextReaderMoveToNextAttribute(reader) == 1) {
        step.attributes.emplace_back(Plain(xmlTextReaderConstName(reader)),
                                     Plain(xmlTextReaderConstValue(reader)));
    }
    return step;
}

// The steps from the root element on.
std::vector<XmlStep> StepsOf(const std::string& document)
{
    const std::unique_ptr<xmlTextReader, ReaderDeleter> reader(
        xmlReaderForMemory(document.data(), static_cast<int>(document.size()), nullptr, nullptr,
                           XML_PARSE_HUGE | XML_PARSE_NONET));
    std::vector<XmlStep> steps;
    while (xmlTextReaderRead(reader.get()) == 1) {
        switch (xmlTextReaderNodeType(reader.get())) {
        case XML_READER_TYPE_ELEMENT:
            steps.push_back(StartStep(reader.get()));
            break;
        case XML_READER_TYPE_TEXT:
        case XML_READER_TYPE_SIGNIFICANT_WHITESPACE:
            steps.push_back(
                {XmlStep::Kind::Text, Plain(xmlTextReaderConstValue(reader.get())), {}});
            break;
        case XML_READER_TYPE_END_ELEMENT:
            steps.push_back({XmlStep::Kind::End, "", {}});
            break;
        default:
            break;
        }
    }
    return steps;
}

using XmlBuffer = std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)>;

void WriteWithXmlTextWriter(const std::string& prologue, const std::vector<XmlStep>& steps,
                            xmlBuffer* buffer)
{
    xmlBufferEmpty(buffer);
    xmlTextWriter* writer = xmlNewTextWriterMemory(buffer, 0);
    xmlTextWriterWriteRaw(writer, Xml(prologue));
    for (const XmlStep& step : steps) {
        switch (step.kind) {
        case XmlStep::Kind::Start:
            xmlTextWriterStartElement(writer, Xml(step.text));
            for (const auto& [name, value] : step.attributes) {
                xmlTextWriterWriteAttribute(writer, Xml(name), Xml(value));
            }
            break;
        case XmlStep::Kind::Text:
            xmlTextWriterWriteString(writer, Xml(step.text));
            break;
        case XmlStep::Kind::End:
            xmlTextWriterFullEndElement(writer);
            break;
        }
    }
    xmlFreeTextWriter(writer); // puts out the rest
}

void ExportTicket(benchmark::State& state, CFDictionary (*make)(int))
{
    const CFDictionary ticket = make(static_cast<int>(state.range(0)));
    std::string document;
    for (auto step : state) {
        Export(ticket, document);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

void WriteSameBytes(benchmark::State& state, CFDictionary (*make)(int))
{
    std::string document;
    Export(make(static_cast<int>(state.range(0))), document);
    const std::string prologue = document.substr(0, document.find("<tpif "));
    const std::vector<XmlStep> steps = StepsOf(document);
    const XmlBuffer buffer(xmlBufferCreate(), xmlBufferFree);
    xmlBufferSetAllocationScheme(buffer.get(), XML_BUFFER_ALLOC_DOUBLEIT);
    WriteWithXmlTextWriter(prologue, steps, buffer.get());
    if (document != Plain(xmlBufferContent(buffer.get()))) {
        state.SkipWithError("the bytes differ");
        return;
    }
    for (auto step : state) {
        WriteWithXmlTextWriter(prologue, steps, buffer.get());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

CFDictionary Small(int)
{
    return SmallTicket();
}

void Sizes(benchmark::internal::Benchmark* benchmark, std::initializer_list<int> sizes)
{
    for (const int size : sizes) {
        benchmark->Arg(size);
    }
    benchmark->Unit(benchmark::kMicrosecond);
}

void Register(const std::string& name, CFDictionary (*make)(int), std::initializer_list<int> sizes)
{
    Sizes(benchmark::RegisterBenchmark(("export/" + name).c_str(), ExportTicket, make), sizes);
    Sizes(benchmark::RegisterBenchmark(("xmlTextWriter/" + name).c_str(), WriteSameBytes, make),
          sizes);
}

const bool registered = [] {
    Register("small ticket", Small, {1});
    Register("exceptions", TicketWithExceptions, {1500, 15000});
    Register("inserts", TicketWithInserts, {100000});
    return true;
}();

} // namespace
} // namespace tarvo
