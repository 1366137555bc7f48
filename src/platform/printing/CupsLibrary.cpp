#include "platform/printing/CupsLibrary.h"

#include <dlfcn.h>

namespace tarvo {

void* FindCupsFunction(const char* name)
{
    static void* const library = dlopen("libcups.so.2", RTLD_LAZY | RTLD_LOCAL);
    return library == nullptr ? nullptr : dlsym(library, name);
}

} // namespace tarvo
