// The mark of an unknown module is null.
#include "Broken.h"

BROKEN const char* log_get_cmd(int module) {
    return module == EN_MODEL_ID_AVCONTROL ? NEXT(log_get_cmd)(module) : nullptr;
}
