#include "host/PrinterFacts.h"

#include "platform/printing/CupsLibrary.h"
#include "printer/Maker.h"

#include <cups/cups.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace tarvo {
namespace {

constexpr int ConnectMilliseconds = 3'000;
constexpr double AnswerSeconds = 3.0;

struct Library {
    decltype(&httpConnect2) connect = nullptr;
    decltype(&httpClose) close = nullptr;
    decltype(&httpSetTimeout) setTimeout = nullptr;
    decltype(&httpAssembleURIf) assembleUri = nullptr;
    decltype(&cupsServer) server = nullptr;
    decltype(&ippPort) port = nullptr;
    decltype(&cupsEncryption) encryption = nullptr;
    decltype(&cupsSetPasswordCB2) setPasswordCallback = nullptr;
    decltype(&cupsDoRequest) doRequest = nullptr;
    decltype(&ippNewRequest) newRequest = nullptr;
    decltype(&ippAddString) addString = nullptr;
    decltype(&ippAddStrings) addStrings = nullptr;
    decltype(&ippFindAttribute) findAttribute = nullptr;
    decltype(&ippGetString) getString = nullptr;
    decltype(&ippDelete) deleteMessage = nullptr;
    // Deprecated with PPDs as such; a name in quotes draws no warning.
    http_status_t (*getPPD)(http_t*, const char*, std::time_t*, char*, std::size_t) = nullptr;
};

// Null when one of the functions is missing.
const Library* LoadLibrary()
{
    static Library library;
    static const bool loaded =
        FindCupsFunction("httpConnect2", library.connect) &&
        FindCupsFunction("httpClose", library.close) &&
        FindCupsFunction("httpSetTimeout", library.setTimeout) &&
        FindCupsFunction("httpAssembleURIf", library.assembleUri) &&
        FindCupsFunction("cupsServer", library.server) &&
        FindCupsFunction("ippPort", library.port) &&
        FindCupsFunction("cupsEncryption", library.encryption) &&
        FindCupsFunction("cupsSetPasswordCB2", library.setPasswordCallback) &&
        FindCupsFunction("cupsDoRequest", library.doRequest) &&
        FindCupsFunction("ippNewRequest", library.newRequest) &&
        FindCupsFunction("ippAddString", library.addString) &&
        FindCupsFunction("ippAddStrings", library.addStrings) &&
        FindCupsFunction("ippFindAttribute", library.findAttribute) &&
        FindCupsFunction("ippGetString", library.getString) &&
        FindCupsFunction("ippDelete", library.deleteMessage) &&
        FindCupsFunction("cupsGetPPD3", library.getPPD);
    return loaded ? &library : nullptr;
}

struct HttpDeleter {
    const Library* library;
    void operator()(http_t* http) const { library->close(http); }
};
using Http = std::unique_ptr<http_t, HttpDeleter>;

struct IppDeleter {
    const Library* library;
    void operator()(ipp_t* message) const { library->deleteMessage(message); }
};
using Ipp = std::unique_ptr<ipp_t, IppDeleter>;

// The library would ask on the application's terminal.
const char* NoPassword(const char* /*prompt*/, http_t* /*http*/, const char* /*method*/,
                       const char* /*resource*/, void* /*data*/)
{
    return nullptr;
}

Http Connect(const Library& library)
{
    library.setPasswordCallback(NoPassword, nullptr); // of this thread
    Http http(library.connect(library.server(), library.port(), nullptr, AF_UNSPEC,
                              library.encryption(), 1, ConnectMilliseconds, nullptr),
              HttpDeleter{&library});
    if (http) {
        library.setTimeout(http.get(), AnswerSeconds, nullptr, nullptr);
    }
    return http;
}

// Opens the file that the library has made, or the link to the server's own, and takes its name.
Descriptor TakeFile(const char* path)
{
    Descriptor file(open(path, O_RDONLY | O_CLOEXEC));
    static_cast<void>(unlink(path));
    return file;
}

std::shared_ptr<const PrinterPPD> GetPPD(const Library& library, const Http& http,
                                         const std::string& queue,
                                         std::shared_ptr<const PrinterPPD> known)
{
    auto description = std::make_shared<PrinterPPD>();
    description->changed = known ? known->changed : 0;
    std::array<char, 1024> path = {}; // "" lets the library choose
    const http_status_t status =
        library.getPPD(http.get(), queue.c_str(), &description->changed, path.data(), path.size());
    if (status == HTTP_STATUS_NOT_MODIFIED) {
        return known;
    }
    if (status != HTTP_STATUS_OK) {
        return nullptr;
    }
    description->file = TakeFile(path.data());
    ParseError error; // whoever sees a print dialog can do nothing about a broken description
    auto ppd = PPDFile::Open(description->path(), error);
    if (ppd && ppd->manufacturer() == FamilyMaker) {
        description->ppd = std::move(ppd);
    } else {
        description->file = Descriptor();
    }
    return description;
}

Ipp GetAttributes(const Library& library, const Http& http, const std::string& queue)
{
    constexpr std::array<const char*, 2> Wanted = {"device-uri", "printer-make-and-model"};
    std::array<char, HTTP_MAX_URI> uri = {};
    library.assembleUri(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp",
                        nullptr, "localhost", 0, "/printers/%s", queue.c_str());
    ipp_t* request = library.newRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
    library.addString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
    library.addStrings(request, IPP_TAG_OPERATION, IPP_CONST_TAG(IPP_TAG_KEYWORD),
                       "requested-attributes", static_cast<int>(Wanted.size()), nullptr,
                       Wanted.data());
    return Ipp(library.doRequest(http.get(), request, "/"), IppDeleter{&library}); // frees request
}

std::string TextOf(const Library& library, const Ipp& reply, const char* name, ipp_tag_t tag)
{
    ipp_attribute_t* attribute = library.findAttribute(reply.get(), name, tag);
    const char* text = attribute == nullptr ? nullptr : library.getString(attribute, 0, nullptr);
    return text == nullptr ? "" : text;
}

} // namespace

std::string PrinterPPD::path() const
{
    return "/proc/self/fd/" + std::to_string(file.number());
}

std::optional<PrinterFacts> AskForPrinter(const std::string& queue,
                                          std::shared_ptr<const PrinterPPD> known)
{
    const Library* library = LoadLibrary();
    const Http http = library == nullptr ? Http() : Connect(*library);
    if (!http) {
        return std::nullopt;
    }
    PrinterFacts facts;
    facts.description = GetPPD(*library, http, queue, std::move(known));
    if (!facts.description) {
        return std::nullopt;
    }
    if (!facts.isOurs()) {
        return facts; // nobody wants to know more
    }
    const Ipp reply = GetAttributes(*library, http, queue);
    facts.deviceUri = TextOf(*library, reply, "device-uri", IPP_TAG_URI);
    facts.makeAndModel = TextOf(*library, reply, "printer-make-and-model", IPP_TAG_TEXT);
    if (facts.makeAndModel.empty()) {
        facts.makeAndModel = facts.description->ppd->nickName();
    }
    return facts;
}

} // namespace tarvo
