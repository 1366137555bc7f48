#pragma once

#include <unistd.h>

namespace tarvo {

/// Owns an open file descriptor, or none when its number is below 0.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (number_ >= 0) {
            close(number_);
        }
    }
    bool valid() const { return number_ >= 0; }
    int number() const { return number_; }

private:
    int number_;
};

} // namespace tarvo
