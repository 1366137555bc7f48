#include "settings/MeasurementSystem.h"

#include <unicode/uloc.h>
#include <unicode/ulocdata.h>

namespace tarvo {

bool LocaleMeasuresInInches()
{
    return LocaleMeasuresInInches(uloc_getDefault());
}

bool LocaleMeasuresInInches(const char* localeName)
{
    UErrorCode status = U_ZERO_ERROR;
    const UMeasurementSystem system = ulocdata_getMeasurementSystem(localeName, &status);
    return U_SUCCESS(status) && system == UMS_US;
}

} // namespace tarvo
