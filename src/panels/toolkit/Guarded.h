#pragma once

#include <functional>
#include <utility>

namespace tarvo {

/// Tells on standard error of the exception that is being handled.
void ReportCaughtException() noexcept;

/// Makes a callback safe to hand to GTK: an exception that left it would end the application. What
/// failed is told on standard error, and the caller gets false, 0 or nothing.
template <typename Result, typename... Arguments>
auto Guarded(std::function<Result(Arguments...)> function)
{
    return [function = std::move(function)](Arguments... arguments) -> Result {
        try {
            return function(std::forward<Arguments>(arguments)...);
        } catch (...) {
            ReportCaughtException();
            return Result();
        }
    };
}
template <typename Function>
auto Guarded(Function function)
{
    return Guarded(std::function(std::move(function)));
}

} // namespace tarvo
