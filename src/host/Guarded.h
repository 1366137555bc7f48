#pragma once

#include <cstdio>
#include <exception>

namespace tarvo {

/// Runs what a toolkit calls: an exception that left it would end the application, whose print
/// dialog this is.
template <typename Body>
void Guarded(Body body) noexcept
{
    try {
        body();
    } catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "tarvo-printhost: %s\n", error.what()));
    } catch (...) {
        static_cast<void>(std::fputs("tarvo-printhost: unknown exception\n", stderr));
    }
}

} // namespace tarvo
