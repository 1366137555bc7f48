#include "panels/toolkit/Guarded.h"

#include <glibmm/exception.h>

#include <cstdio>
#include <exception>

namespace tarvo {

void ReportCaughtException() noexcept
{
    const char* reason = "unknown exception";
    try {
        throw;
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "Tarvo Features: %s\n", exception.what());
    } catch (const Glib::Exception& exception) {
        std::fprintf(stderr, "Tarvo Features: %s\n", exception.what().c_str());
    } catch (...) {
        std::fprintf(stderr, "Tarvo Features: %s\n", reason);
    }
}

} // namespace tarvo
