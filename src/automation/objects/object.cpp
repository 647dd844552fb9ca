#include "automation/objects/object.h"

namespace mox {

void checkArray(SAFEARRAY* array, VARTYPE variant, const GUID* record) {
    VARTYPE found = VT_EMPTY;
    succeed(SafeArrayGetVartype(array, &found));
    if (found != variant) {
        throw StatusError(DISP_E_TYPEMISMATCH);
    }
    if (record) {
        Ref<IRecordInfo> info;
        succeed(SafeArrayGetRecordInfo(array, info.out()));
        GUID id{};
        if (!info || FAILED(info->GetGuid(&id)) || id != *record) {
            throw StatusError(DISP_E_TYPEMISMATCH);
        }
    }
    if (SafeArrayGetDim(array) != 1) {
        throw StatusError(DISP_E_BADINDEX);
    }
}

} // namespace mox
