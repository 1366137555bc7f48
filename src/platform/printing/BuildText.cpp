#include "platform/printing/BuildText.h"

namespace tarvo {

const char* BuildText()
{
    return TARVO_BUILD_TEXT;
}

} // namespace tarvo
