#include "records/SpecialPagesStatus.h"

namespace tarvo {

const SpecialPagesAlert* AlertForSpecialPagesStatus(OSStatus status)
{
    const SpecialPagesAlert* row = SpecialPagesAlertMap;
    while (row->status != status && row->status != StatusOk) {
        ++row;
    }
    return row->titleKey == nullptr ? nullptr : row;
}

} // namespace tarvo
