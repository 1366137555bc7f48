// Reads property lists from standard input and writes them again, many in one run. A NUL, which no
// document can hold, stands behind each of them and behind each answer, which is the document
// written again or "refused: " and the reason.
#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListWriter.h"

#include <iostream>

int main()
{
    for (std::string document; std::getline(std::cin, document, '\0');) {
        tarvo::ParseError error;
        const auto value = tarvo::ReadPropertyList(document, error);
        const auto written = value ? tarvo::WritePropertyList(*value, error) : std::nullopt;
        std::cout << (written ? *written : "refused: " + error.reason) << '\0';
    }
    return std::cout.flush() ? 0 : 1;
}
