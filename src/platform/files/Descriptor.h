#pragma once

#include <unistd.h>

#include <utility>

namespace tarvo {

/// Owns an open file and closes it.
class Descriptor {
public:
    Descriptor() = default;
    /// @param number  negative: no file, as what failed to open
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (valid()) {
            close(number_);
        }
    }
    bool valid() const { return number_ >= 0; }
    int number() const { return number_; }

private:
    int number_ = -1;
};

} // namespace tarvo
