#pragma once

#include "tpif/TPIFImportFeatures.h"

namespace tarvo {

// Readers of what the job has in several elements: the inverses of the writers of TPIFJob.h,
// TPIFImageShift.h and TPIFBackgroundForms.h. Each stores nothing when its elements give nothing.

/// Hold, save or save and print, with what is known of the saved job. A document that saves a form
/// and says nothing of the job's own fate is the job of a form.
void ImportJobType(const TPIFImportFeatures& features, const TPIFImportGroup& group,
                   CFDictionary& result);

void ImportResolution(const TPIFImportFeatures& features, const TPIFImportGroup& group,
                      CFDictionary& result);

/// Four offsets in hundredths of a millimetre, those of side 2 independent of side 1.
/// @param key  of the dictionary: the job's or a page's
void ImportImageShift(const TPIFFeatureReader& feature, const TPIFImportGroup& group,
                      CFDictionary& result, std::string_view key);

void ImportBackgroundForms(const TPIFImportFeatures& features, const TPIFImportGroup& group,
                           CFDictionary& result);

} // namespace tarvo
