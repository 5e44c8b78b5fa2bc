#include "Slots.h"

#include <limits.h>
#include <math.h>

void releaseHeldValue(const NPVariant& variant) {
    if (isObject(variant)) {
        NPN_ReleaseObject(NPVARIANT_TO_OBJECT(variant));
    } else if (NPVARIANT_IS_STRING(variant)) {
        NPN_MemFree(const_cast<NPUTF8*>(NPVARIANT_TO_STRING(variant).UTF8Characters));
    }
}

void releaseAnswer(NPVariant* answer) {
    // An Object may be null: there is nothing to give back.
    if (!NPVARIANT_IS_OBJECT(*answer) || isObject(*answer)) {
        NPN_ReleaseVariantValue(answer);
    }
}

Outcome releaseFor(VideoPlugin& plugin, const NPVariant& variant) {
    const InstanceGuard guard(&plugin);
    releaseHeldValue(variant);
    return guard.outcome();
}

Outcome moveToSlot(VideoPlugin& plugin, NPVariant* slot, const NPVariant& owned) {
    const NPVariant former = *slot;
    *slot = owned;
    return releaseFor(plugin, former);
}

Outcome storeInSlot(VideoPlugin& plugin, NPVariant* slot, const NPVariant& value) {
    NPVariant copy;
    return HbbTVBaseClass::copyVariant(value, &copy) ? moveToSlot(plugin, slot, copy) : Outcome::Refused;
}

bool handToScript(const NPVariant& slot, NPVariant* result) {
    NPVariant copy;
    if (!HbbTVBaseClass::copyVariant(slot, &copy)) {
        return false;
    }
    const NPVariant former = *result;
    *result = copy;
    if (isObject(former)) {
        NPN_ReleaseObject(NPVARIANT_TO_OBJECT(former));
    }
    return true;
}

int truncateToInt(double number) {
    return number >= INT_MAX ? INT_MAX : number <= INT_MIN ? INT_MIN : static_cast<int>(number);
}

bool readNumber(const NPVariant& variant, double* number) {
    if (NPVARIANT_IS_INT32(variant)) {
        *number = NPVARIANT_TO_INT32(variant);
        return true;
    }
    if (NPVARIANT_IS_DOUBLE(variant) && !isnan(NPVARIANT_TO_DOUBLE(variant))) {
        *number = NPVARIANT_TO_DOUBLE(variant);
        return true;
    }
    return false;
}

bool readInt(const NPVariant& variant, int* number) {
    double value = 0;
    if (!readNumber(variant, &value)) {
        return false;
    }
    *number = truncateToInt(value);
    return true;
}

bool readTruth(const NPVariant& variant) {
    if (NPVARIANT_IS_BOOLEAN(variant)) {
        return NPVARIANT_TO_BOOLEAN(variant);
    }
    double number = 0;
    return readNumber(variant, &number) && (number < 0 || number > 0);
}
