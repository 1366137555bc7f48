#include "printer/FeatureDatabase.h"
#include "tpif/DeviceProfile.h"
#include "tpif/TPIFImport.h"

#include <cstdlib>

int main(int count, char** words)
{
    using namespace tarvo;
    const FeatureDatabase database(DeviceProfile());
    const TPIFImportFeatures features(database);
    CFDictionary result;
    ParseError error;
    const bool isDone =
        count == 2 && TPIFImportFileAtPath(features, words[1], result, error) == StatusOk;
    std::_Exit(isDone ? EXIT_SUCCESS : EXIT_FAILURE); // what is measured ends here
}
